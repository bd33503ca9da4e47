// runtime/zip/NameHash.h - a hash of names that a hostile archive cannot steer.
#ifndef VEXPA_RUNTIME_ZIP_NAMEHASH_H_
#define VEXPA_RUNTIME_ZIP_NAMEHASH_H_

#include <cstdint>
#include <string_view>

#include "runtime/RandomKey.h"

namespace vexpa_runtime::zip {

// SipHash-1-3 (Aumasson and Bernstein, 2012).
std::uint64_t HashName(std::string_view name, const RandomKey& key) noexcept;

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_NAMEHASH_H_
