// vexpa/xmlfx/SampledStringHash.h - the hash of every text key of the namespace maps.
#ifndef VEXPA_XMLFX_SAMPLEDSTRINGHASH_H_
#define VEXPA_XMLFX_SAMPLEDSTRINGHASH_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tarn::xmlfx {

// FNV-1 over at most about ten code units, so that a long URI costs no more than a short name.
//
// Kept: texts that differ only in the units it passes over collide, and it always passes over
// the last ones. (SampledStringHash.PassesOverTheLastUnits)
struct SampledStringHash {
    std::uint64_t operator()(std::u16string_view text) const noexcept {
        const std::size_t stride = text.size() / 10 + 1;
        const std::size_t limit = text.size() > stride ? text.size() - stride : text.size();
        std::uint64_t hash = 0x811C9DC5;
        for (std::size_t i = 0; i < limit; i += stride) {
            std::uint16_t unit = 0;  // copied out: the text may be a caller's `unsigned short`
            std::memcpy(&unit, text.data() + i, sizeof unit);
            hash = (hash * 0x01000193) ^ unit;
        }
        return hash;
    }
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_SAMPLEDSTRINGHASH_H_
