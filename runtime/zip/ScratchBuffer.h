// runtime/zip/ScratchBuffer.h - memory for compressed data, kept from one entry to the next.
#ifndef VEXPA_RUNTIME_ZIP_SCRATCHBUFFER_H_
#define VEXPA_RUNTIME_ZIP_SCRATCHBUFFER_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace vexpa_runtime::zip {

// Bytes of no particular value. A thread keeps one buffer of a bounded size, which ends with
// the thread; what is larger lives as long as this object. A thread uses one at a time.
class ScratchBuffer {
public:
    explicit ScratchBuffer(std::size_t size);  // throws when memory is exhausted

    std::span<std::uint8_t> Bytes() const noexcept { return bytes_; }

private:
    std::unique_ptr<std::uint8_t[]> own_;
    std::span<std::uint8_t> bytes_;
};

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_SCRATCHBUFFER_H_
