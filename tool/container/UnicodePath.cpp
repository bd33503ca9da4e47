#include "tool/container/UnicodePath.h"

#include <libdeflate.h>

#include "runtime/text/Utf8.h"
#include "runtime/zip/ExtraFields.h"

namespace vexpa_tool {

namespace zip = vexpa_runtime::zip;

std::optional<std::string> UnicodePath(const Container& container, const ContainerEntry& entry) {
    constexpr std::uint16_t kUnicodePath = 0x7075;  // APPNOTE 4.6.9
    constexpr std::uint8_t kVersion = 1;
    if (entry.extraSize == 0) return std::nullopt;
    const std::string extra = container.ExtraData(entry);
    zip::FieldBytes field = zip::FindField(
        {reinterpret_cast<const std::uint8_t*>(extra.data()), extra.size()}, kUnicodePath);
    std::uint8_t version = 0;
    std::uint32_t crc = 0;
    if (!field.Take(version) || !field.Take(crc) || version != kVersion) return std::nullopt;

    const std::string rawName = container.RawName(entry);
    if (libdeflate_crc32(0, rawName.data(), rawName.size()) != crc) return std::nullopt;
    std::string name(reinterpret_cast<const char*>(field.at), field.size);
    if (!vexpa_runtime::IsUtf8(name)) return std::nullopt;
    return name;
}

}  // namespace vexpa_tool
