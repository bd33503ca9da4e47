// vexpa/base/UnitOrder.h - the order of texts by their code units, for maps that are searched
// much.
#ifndef VEXPA_BASE_UNITORDER_H_
#define VEXPA_BASE_UNITORDER_H_

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tarn {

// The place of the first unit in which the texts differ; the length of the shorter one when there
// is none.
//
// Names of one archive begin alike, so most of a look-up is to pass over what two names share. The
// standard library goes unit by unit.
inline std::size_t CommonLength(std::u16string_view a, std::u16string_view b) noexcept {
    constexpr bool kFirstStandsLowest = std::endian::native == std::endian::little;
    constexpr std::size_t kUnits = sizeof(std::uint64_t) / sizeof(char16_t);
    constexpr int kUnitBits = 16;
    const std::size_t length = std::min(a.size(), b.size());
    std::size_t at = 0;
    for (; length - at >= kUnits; at += kUnits) {
        std::uint64_t fromA = 0;
        std::uint64_t fromB = 0;
        std::memcpy(&fromA, a.data() + at, sizeof fromA);
        std::memcpy(&fromB, b.data() + at, sizeof fromB);
        const std::uint64_t differing = fromA ^ fromB;
        if (differing == 0) continue;
        const int bits = kFirstStandsLowest ? std::countr_zero(differing) : std::countl_zero(differing);
        return at + static_cast<std::size_t>(bits / kUnitBits);
    }
    while (at < length && a[at] == b[at]) ++at;
    return at;
}

// By code unit, a text before those that it begins: the order of std::less<>, and as that it
// compares any two kinds of text.
struct UnitLess {
    using is_transparent = void;
    bool operator()(std::u16string_view a, std::u16string_view b) const noexcept {
        const std::size_t at = CommonLength(a, b);
        if (at == b.size()) return false;
        return at == a.size() || a[at] < b[at];
    }
};

}  // namespace tarn

#endif  // VEXPA_BASE_UNITORDER_H_
