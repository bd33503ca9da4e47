// runtime/zip/NameHash.h - a hash of names that a hostile archive cannot steer.
#ifndef VEXPA_RUNTIME_ZIP_NAMEHASH_H_
#define VEXPA_RUNTIME_ZIP_NAMEHASH_H_

#include <cstdint>
#include <string_view>

namespace vexpa_runtime::zip {

struct HashKey {
    std::uint64_t k0;
    std::uint64_t k1;
};

// Drawn once for the process: names that collide cannot be prepared, so looking up is never slow.
const HashKey& ProcessHashKey();

// SipHash-1-3 (Aumasson and Bernstein, 2012).
std::uint64_t HashName(std::string_view name, const HashKey& key) noexcept;

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_NAMEHASH_H_
