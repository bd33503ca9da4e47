#include "runtime/zip/DirectoryCache.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "runtime/zip/DirectoryReader.h"

namespace vexpa_runtime::zip {

namespace {

// Documents open at once are few. The bytes are room for several hundred thousand entries.
constexpr std::size_t kMostFiles = 8;
constexpr std::size_t kMostBytes = 32UL * 1024 * 1024;

constexpr std::int64_t kLongestTickSeconds = 2;

std::timespec Now() {
    std::timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    return now;
}

bool IsMoreThanATickBefore(std::int64_t seconds, std::int64_t nanoseconds, const std::timespec& now) {
    return std::pair(seconds, nanoseconds) <
           std::pair<std::int64_t, std::int64_t>(now.tv_sec - kLongestTickSeconds, now.tv_nsec);
}

// Both stamps count: file systems without a change time report another one in its place. But a
// modification in the future was set by hand and says nothing about the last write: archivers
// keep it, and a file must not be slow for it.
bool HadSettled(const FileIdentity& file, const std::timespec& now) {
    const bool isModifiedLater =
        std::pair(file.modifiedSeconds, file.modifiedNanoseconds) >
        std::pair<std::int64_t, std::int64_t>(now.tv_sec + kLongestTickSeconds, now.tv_nsec);
    return (isModifiedLater ||
            IsMoreThanATickBefore(file.modifiedSeconds, file.modifiedNanoseconds, now)) &&
           IsMoreThanATickBefore(file.changedSeconds, file.changedNanoseconds, now);
}

}  // namespace

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
    const std::timespec start = clock_();
    std::shared_ptr<const Directory> directory = ReadDirectory(file);
    if (directory != nullptr && HadSettled(file.Identity(), start) && file.IsUnchanged()) {
        Keep(file.Identity(), directory);
    }
    return directory;
}

void DirectoryCache::Keep(const FileIdentity& identity,
                          const std::shared_ptr<const Directory>& directory) {
    const std::size_t size = directory->MemoryUse();
    if (size > mostBytes_) return;
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
