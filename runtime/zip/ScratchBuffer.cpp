#include "runtime/zip/ScratchBuffer.h"

namespace vexpa_runtime::zip {

namespace {

constexpr std::size_t kKept = 256UL * 1024;  // most entries of a document are smaller

std::uint8_t* ThreadBuffer() {
    thread_local std::unique_ptr<std::uint8_t[]> buffer;
    if (buffer == nullptr) buffer = std::make_unique_for_overwrite<std::uint8_t[]>(kKept);
    // The analyzer takes the thread's buffer for gone when the call is over.
    return buffer.get();  // NOLINT(clang-analyzer-cplusplus.NewDelete)
}

}  // namespace

ScratchBuffer::ScratchBuffer(std::size_t size) {
    if (size > kKept) own_ = std::make_unique_for_overwrite<std::uint8_t[]>(size);
    bytes_ = {own_ ? own_.get() : ThreadBuffer(), size};
}

}  // namespace vexpa_runtime::zip
