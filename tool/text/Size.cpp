#include "tool/text/Size.h"

namespace vexpa_tool {

std::string HumanSize(std::uint64_t bytes) {
    if (bytes < 1024) return std::to_string(bytes) + " B";

    // 1023.95 KiB and more would round to 1024.0 KiB, so the next unit begins there.
    static const char* const kUnits[] = {" KiB", " MiB", " GiB", " TiB", " PiB", " EiB"};
    int unit = 0;
    std::uint64_t scaled = bytes;
    std::uint64_t lost = 0;  // the ten bits below `scaled`
    for (;; ++unit) {
        lost = scaled % 1024;
        scaled /= 1024;
        if (scaled * 1024 + lost < 1024 * 1024 - 51) break;
    }
    const std::uint64_t tenths = (scaled * 1024 + lost) * 10;
    const std::uint64_t rounded = (tenths + 512) / 1024;
    return std::to_string(rounded / 10) + "." + std::to_string(rounded % 10) + kUnits[unit];
}

std::string GroupedDigits(std::uint64_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t at = digits.size(); at > 3;) digits.insert(at -= 3, 1, ',');
    return digits;
}

}  // namespace vexpa_tool
