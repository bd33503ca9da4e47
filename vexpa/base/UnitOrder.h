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
// Names of one archive begin alike, so this is what their look-ups do. The standard library goes
// unit by unit.
inline std::size_t CommonLength(std::u16string_view a, std::u16string_view b) noexcept {
    static_assert(std::endian::native == std::endian::little, "the first unit stands lowest");
    constexpr std::size_t kUnits = sizeof(std::uint64_t) / sizeof(char16_t);
    constexpr int kUnitBits = 16;
    const std::size_t length = std::min(a.size(), b.size());
    std::size_t at = 0;
    for (; length - at >= kUnits; at += kUnits) {
        std::uint64_t fromA = 0;
        std::uint64_t fromB = 0;
        std::memcpy(&fromA, a.data() + at, sizeof fromA);
        std::memcpy(&fromB, b.data() + at, sizeof fromB);
        if (fromA == fromB) continue;
        return at + static_cast<std::size_t>(std::countr_zero(fromA ^ fromB) / kUnitBits);
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
