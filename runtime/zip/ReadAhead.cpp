#include "runtime/zip/ReadAhead.h"

#include <algorithm>

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

void ReadAhead::Prepare(ArchiveFile& file, const Entry& entry) {
    const std::uint64_t position = entry.headerPosition;
    const bool isNear = IsNear(file.Identity(), position);
    identity_ = file.Identity();
    last_ = position;
    size_ = 0;
    isKept_ = false;
    if (!isNear || position >= file.Size() || LikelySize(file, entry) > kPiece - kBehind) return;

    if (bytes_ == nullptr) bytes_ = std::make_unique_for_overwrite<std::uint8_t[]>(kPiece);
    begin_ = position - std::min(position, kBehind);
    const auto whole = static_cast<std::size_t>(std::min<std::uint64_t>(kPiece, file.Size() - begin_));
    if (!file.ReadAt(begin_, bytes_.get(), whole)) return;
    size_ = whole;
    file.HoldInMemory({bytes_.get(), size_}, begin_);
}

}  // namespace vexpa_runtime::zip
