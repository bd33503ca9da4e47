#include "runtime/zip/ReadAhead.h"

#include <algorithm>
#include <new>

#include "runtime/ThreadsOwn.h"
#include "runtime/zip/EntryReader.h"

namespace vexpa_runtime::zip {

namespace {

// A part and its relationships lie side by side, in either order.
constexpr std::uint64_t kBehind = ReadAhead::kPiece / 8;

}  // namespace

ReadAhead& ReadAhead::OfThread() {
    return ThreadsOwn<ReadAhead>();
}

ArchiveFile ReadAhead::Find(const FileIdentity& identity) const noexcept {
    if (!isKept_ || identity_ != identity) return {identity, {}};
    return {identity, {bytes_.get(), size_}, begin_};
}

bool ReadAhead::IsNear(const FileIdentity& identity, std::uint64_t position) const noexcept {
    if (identity_ != identity) return false;
    return position < last_ ? last_ - position < kPiece : position - last_ < kPiece;
}

bool ReadAhead::Prepare(ArchiveFile& file, const Entry& entry) noexcept {
    if (!IsPlausible(file, entry)) return false;
    const std::uint64_t position = entry.headerPosition;
    const std::uint64_t size = LikelySize(file, entry);
    const bool isNear = IsNear(file.Identity(), position);
    const bool isHeld = Find(file.Identity()).View(position, static_cast<std::size_t>(size)) != nullptr;
    identity_ = file.Identity();
    last_ = position;
    if (isHeld) {
        file.HoldInMemory({bytes_.get(), size_}, begin_);
        return false;
    }
    isKept_ = false;
    if (!isNear || size > kPiece - kBehind) return false;

    if (bytes_ == nullptr) bytes_.reset(new (std::nothrow) std::uint8_t[kPiece]);
    if (bytes_ == nullptr) return false;
    begin_ = position - std::min(position, kBehind);
    size_ = static_cast<std::size_t>(std::min<std::uint64_t>(kPiece, file.Size() - begin_));
    if (!file.ReadAt(begin_, bytes_.get(), size_)) return false;
    file.HoldInMemory({bytes_.get(), size_}, begin_);
    return true;
}

}  // namespace vexpa_runtime::zip
