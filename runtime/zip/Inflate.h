// runtime/zip/Inflate.h - undoes deflate.
#ifndef VEXPA_RUNTIME_ZIP_INFLATE_H_
#define VEXPA_RUNTIME_ZIP_INFLATE_H_

#include <cstddef>
#include <cstdint>
#include <span>

namespace vexpa_runtime::zip {

// Whether `compressed` begins with a deflate stream of exactly `size` bytes, now in `out`.
bool Inflate(std::span<const std::uint8_t> compressed, void* out, std::size_t size);

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_INFLATE_H_
