#include "runtime/com/BlockStream.h"

#include <cstdint>
#include <cstring>
#include <new>
#include <utility>

#include "runtime/Guarded.h"

namespace vexpa_runtime {

namespace {

constexpr std::uint32_t kReadWrite = 2;  // STGM_READWRITE

}  // namespace

HRESULT BlockStream::Read(void* destination, std::uint32_t size, std::uint32_t* read) {
    if (read != nullptr) *read = 0;
    if (destination == nullptr) return size == 0 ? S_OK : E_INVALIDARG;
    const auto count = static_cast<std::uint32_t>(Available(size));
    if (count == 0) return S_OK;
    std::memcpy(destination, block_->bytes + position_, count);
    position_ += count;
    if (read != nullptr) *read = count;
    return S_OK;
}

HRESULT BlockStream::Write(const void* source, std::uint32_t size, std::uint32_t* written) {
    if (written != nullptr) *written = 0;
    if (source == nullptr && size != 0) return E_INVALIDARG;
    if (size == 0) return S_OK;
    // A position is at most INT64_MAX, so the sum cannot wrap.
    const std::uint64_t end = position_ + size;
    if (end > block_->size) {
        const HRESULT grown = SetSize(end);
        if (grown < 0) return grown;
    }
    std::memmove(block_->bytes + position_, source, size);
    position_ = end;
    if (written != nullptr) *written = size;
    return S_OK;
}

HRESULT BlockStream::SetSize(std::uint64_t size) {
    if (size == block_->size) return S_OK;
    if (size > PTRDIFF_MAX) return E_OUTOFMEMORY;
    if (block_->locks != 0) return E_ACCESSDENIED;
    return ResizeBlock(*block_, static_cast<std::size_t>(size)) ? S_OK : E_OUTOFMEMORY;
}

HRESULT BlockStream::Stat(STATSTG* stat, std::uint32_t) {
    if (stat == nullptr) return E_INVALIDARG;
    *stat = {};
    stat->type = STGTY_STREAM;
    stat->cbSize = Size();
    stat->grfMode = kReadWrite;
    return S_OK;
}

HRESULT BlockStream::Clone(IStream** out) {
    if (out == nullptr) return E_INVALIDARG;
    *out = new (std::nothrow) BlockStream(block_, position_);
    return *out != nullptr ? S_OK : E_OUTOFMEMORY;
}

}  // namespace vexpa_runtime

HRESULT _XCreateStreamOnHGBL(HGBL block, int freeOnRelease, IStream** out) {
    using namespace vexpa_runtime;
    return Guarded([&] {
        if (out != nullptr) *out = nullptr;
        SharedBlock shared = ShareBlock(block, freeOnRelease != 0);
        if (out == nullptr) return E_INVALIDARG;
        if (block == nullptr) {
            HGBL empty = _XGblAlloc(0, 0);
            if (empty == nullptr) return E_OUTOFMEMORY;
            shared = ShareBlock(empty, true);
        }
        *out = new BlockStream(std::move(shared));
        return S_OK;
    });
}
