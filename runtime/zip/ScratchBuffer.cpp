#include "runtime/zip/ScratchBuffer.h"

#include "runtime/ThreadsOwn.h"

namespace vexpa_runtime::zip {

namespace {

constexpr std::size_t kKept = 256UL * 1024;  // most entries of a document are smaller

struct Kept {
    std::unique_ptr<std::uint8_t[]> bytes;
};

std::uint8_t* ThreadBuffer() {
    auto& bytes = ThreadsOwn<Kept>().bytes;
    if (bytes == nullptr) bytes = std::make_unique_for_overwrite<std::uint8_t[]>(kKept);
    return bytes.get();
}

}  // namespace

ScratchBuffer::ScratchBuffer(std::size_t size) {
    if (size > kKept) own_ = std::make_unique_for_overwrite<std::uint8_t[]>(size);
    bytes_ = {own_ ? own_.get() : ThreadBuffer(), size};
}

}  // namespace vexpa_runtime::zip
