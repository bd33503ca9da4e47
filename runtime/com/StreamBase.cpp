#include "runtime/com/StreamBase.h"

#include <algorithm>
#include <cstddef>

namespace vexpa_runtime {

namespace {

constexpr std::size_t kCopyPiece = 16UL * 1024;

}  // namespace

std::uint64_t StreamBase::Available(std::uint64_t wanted) const noexcept {
    const std::uint64_t size = Size();
    return position_ < size ? std::min(wanted, size - position_) : 0;
}

HRESULT StreamBase::Seek(std::int64_t move, std::uint32_t origin, std::uint64_t* position) {
    std::uint64_t base = 0;
    switch (origin) {
        case STREAM_SEEK_SET:
            break;
        case STREAM_SEEK_CUR:
            base = position_;
            break;
        case STREAM_SEEK_END:
            base = Size();
            break;
        default:
            return STG_E_INVALIDFUNCTION;
    }
    // Neither a position nor a size exceeds INT64_MAX, so only the sum can.
    std::int64_t target = 0;
    if (__builtin_add_overflow(static_cast<std::int64_t>(base), move, &target) || target < 0) {
        return STG_E_INVALIDFUNCTION;
    }
    position_ = static_cast<std::uint64_t>(target);
    if (position != nullptr) *position = position_;
    return S_OK;
}

HRESULT StreamBase::CopyTo(IStream* destination, std::uint64_t size, std::uint64_t* read,
                           std::uint64_t* written) {
    if (read != nullptr) *read = 0;
    if (written != nullptr) *written = 0;
    if (destination == nullptr) return E_INVALIDARG;

    // What counts is the size at the start: the destination may be a clone of this stream,
    // and what it appends would otherwise be copied again without end.
    std::uint64_t left = Available(size);
    std::byte piece[kCopyPiece];
    while (left > 0) {
        const auto wanted = static_cast<std::uint32_t>(std::min<std::uint64_t>(left, kCopyPiece));
        std::uint32_t got = 0;
        const HRESULT readResult = Read(piece, wanted, &got);
        if (readResult < 0) return readResult;
        if (got == 0) return S_OK;
        if (read != nullptr) *read += got;

        std::uint32_t put = 0;
        const HRESULT writeResult = destination->Write(piece, got, &put);
        if (written != nullptr) *written += put;
        if (writeResult < 0) return writeResult;
        if (put != got) return E_FAIL;
        left -= got;
    }
    return S_OK;
}

}  // namespace vexpa_runtime
