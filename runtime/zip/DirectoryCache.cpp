#include "runtime/zip/DirectoryCache.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "runtime/zip/DirectoryReader.h"

namespace vexpa_runtime::zip {

namespace {

// Documents open at once are few. The bytes are room for some hundred thousand entries.
constexpr std::size_t kMostFiles = 8;
constexpr std::size_t kMostBytes = 32UL * 1024 * 1024;
// Files so much smaller than the room are kept whole.
constexpr std::size_t kFilesKeptWhole = 4;

constexpr std::int64_t kNanosecondsInASecond = 1'000'000'000;
constexpr std::int64_t kLongestTick = 2 * kNanosecondsInASecond;  // of FAT
// The clock that the kernel stamps files by moves a hundred times a second at least.
constexpr std::int64_t kKernelTick = 10'000'000;
constexpr std::int64_t kKernelTicksWaited = 5;

std::timespec Now() {
    std::timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    return now;
}

// In seconds and nanoseconds. A file's stamp may be any number, so it is the clock that is moved.
using Moment = std::pair<std::int64_t, std::int64_t>;

Moment Moved(const std::timespec& now, std::int64_t nanoseconds) {
    const std::int64_t sum = kNanosecondsInASecond + now.tv_nsec + nanoseconds % kNanosecondsInASecond;
    return {now.tv_sec + nanoseconds / kNanosecondsInASecond + sum / kNanosecondsInASecond - 1,
            sum % kNanosecondsInASecond};
}

// A file system of long ticks has no stamp in the middle of a short one.
std::int64_t TickOf(const FileIdentity& file) {
    return file.changedNanoseconds % kKernelTick == 0 ? kLongestTick : kKernelTicksWaited * kKernelTick;
}

}  // namespace

// Both stamps count: file systems without a change time report another one in its place. But a
// modification in the future was set by hand and says nothing about the last write: archivers
// keep it, and a file must not be slow for it.
bool HadSettled(const FileIdentity& file, const std::timespec& now) {
    const Moment modified{file.modifiedSeconds, file.modifiedNanoseconds};
    const Moment changed{file.changedSeconds, file.changedNanoseconds};
    const Moment aTickAgo = Moved(now, -TickOf(file));
    const bool isModifiedLater = modified > Moved(now, kLongestTick);
    return (isModifiedLater || modified < aTickAgo) && changed < aTickAgo;
}

DirectoryCache::DirectoryCache(std::size_t mostFiles, std::size_t mostBytes, Clock clock)
    : mostFiles_(mostFiles), mostBytes_(mostBytes), clock_(clock) {}

std::shared_ptr<const Directory> DirectoryCache::Find(const FileIdentity& identity) {
    const std::lock_guard lock(mutex_);
    const auto isIt = [&identity](const Kept& kept) { return kept.identity == identity; };
    const auto found = std::find_if(kept_.begin(), kept_.end(), isIt);
    if (found == kept_.end()) return nullptr;
    std::rotate(found, found + 1, kept_.end());
    return kept_.back().directory;
}

bool DirectoryCache::HasSettled(const ArchiveFile& file) const {
    return HadSettled(file.Identity(), clock_());
}

std::shared_ptr<const Directory> DirectoryCache::Read(const ArchiveFile& file) {
    if (!HasSettled(file)) return ReadDirectory(file);

    std::optional<std::vector<std::uint8_t>> bytes;
    if (file.Size() <= mostBytes_ / kFilesKeptWhole) bytes = ReadWhole(file);
    const std::shared_ptr<Directory> directory =
        bytes ? ReadDirectory(ArchiveFile(file.Identity(), *bytes)) : ReadDirectory(file);
    if (directory == nullptr || !file.IsUnchanged()) return directory;
    if (bytes) directory->KeepFile(*std::move(bytes));
    Keep(file.Identity(), directory);
    return directory;
}

void DirectoryCache::Keep(const FileIdentity& identity,
                          const std::shared_ptr<const Directory>& directory) {
    const std::size_t size = directory->MemoryUse();
    const std::lock_guard lock(mutex_);
    // Another state of the same file will not come back, and another thread may have read this one.
    std::erase_if(kept_, [&](const Kept& kept) {
        if (kept.identity.device != identity.device || kept.identity.inode != identity.inode)
            return false;
        bytes_ -= kept.directory->MemoryUse();
        return true;
    });
    while (!kept_.empty() && (kept_.size() >= mostFiles_ || bytes_ + size > mostBytes_)) {
        bytes_ -= kept_.front().directory->MemoryUse();
        kept_.erase(kept_.begin());
    }
    kept_.push_back({identity, directory});
    bytes_ += size;
}

DirectoryCache& SharedDirectoryCache() {
    static DirectoryCache cache(kMostFiles, kMostBytes, Now);
    return cache;
}

}  // namespace vexpa_runtime::zip
