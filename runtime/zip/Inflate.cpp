#include "runtime/zip/Inflate.h"

#include <libdeflate.h>

#include <memory>
#include <new>

#include "runtime/ThreadsOwn.h"

namespace vexpa_runtime::zip {

namespace {

struct FreeDecompressor {
    void operator()(libdeflate_decompressor* decompressor) const noexcept {
        libdeflate_free_decompressor(decompressor);
    }
};

using DecompressorPtr = std::unique_ptr<libdeflate_decompressor, FreeDecompressor>;

// One for each thread, as making one costs as much as inflating a small entry.
libdeflate_decompressor& ThreadDecompressor() {
    auto& decompressor = ThreadsOwn<DecompressorPtr>();
    if (decompressor == nullptr) decompressor.reset(libdeflate_alloc_decompressor());
    if (decompressor == nullptr) throw std::bad_alloc();
    return *decompressor;
}

}  // namespace

bool Inflate(std::span<const std::uint8_t> compressed, void* out, std::size_t size) {
    // Without a place for the actual size, anything but `size` bytes is an error.
    return libdeflate_deflate_decompress(&ThreadDecompressor(), compressed.data(), compressed.size(),
                                         out, size, nullptr) == LIBDEFLATE_SUCCESS;
}

}  // namespace vexpa_runtime::zip
