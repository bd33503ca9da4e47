#include "runtime/zip/DirectoryCache.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "runtime/NeverDestroyed.h"
#include "runtime/zip/DirectoryReader.h"

namespace vexpa_runtime::zip {

namespace {

// Documents open at once are few. The bytes are room for a hundred thousand entries.
constexpr std::size_t kMostFiles = 64;
constexpr std::size_t kMostBytes = 32UL * 1024 * 1024;
// Files so much smaller than the room are kept whole.
constexpr std::size_t kFilesKeptWhole = 4;

std::timespec TimeOf(clockid_t clock) {
    std::timespec now;
    clock_gettime(clock, &now);
    return now;
}

}  // namespace

std::timespec DirectoryCache::SteadyClock() {
    return TimeOf(CLOCK_MONOTONIC);
}

DirectoryCache::DirectoryCache(std::size_t mostFiles, std::size_t mostBytes, Settling::Clock stamping,
                               Settling::Clock steady)
    : mostFiles_(mostFiles), mostBytes_(mostBytes), settling_(stamping, steady) {}

std::shared_ptr<const Directory> DirectoryCache::Find(const FileIdentity& identity) {
    std::optional<Kept> dropped;  // freed after the lock is given up, as it may be very large
    const std::lock_guard lock(mutex_);
    if (auto large = FindLarge(identity)) return large;
    if (sinceLarge_ >= kPatience) dropped.swap(large_);
    const auto isIt = [&identity](const Kept& kept) { return kept.identity == identity; };
    const auto found = std::find_if(kept_.begin(), kept_.end(), isIt);
    if (found == kept_.end()) return nullptr;
    std::rotate(found, found + 1, kept_.end());
    return kept_.back().directory;
}

std::shared_ptr<const Directory> DirectoryCache::FindLarge(const FileIdentity& identity) {
    if (!large_) return nullptr;
    if (large_->identity == identity) {
        sinceLarge_ = 0;
        return large_->directory;
    }
    ++sinceLarge_;
    return nullptr;
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
    std::optional<Kept> dropped;  // as in Find
    const std::lock_guard lock(mutex_);
    // Another state of the same file will not come back, and another thread may have read this one.
    const auto isSameFile = [&identity](const Kept& kept) {
        return kept.identity.device == identity.device && kept.identity.inode == identity.inode;
    };
    if (large_ && isSameFile(*large_)) dropped.swap(large_);
    std::erase_if(kept_, [&](const Kept& kept) {
        if (!isSameFile(kept)) return false;
        bytes_ -= kept.directory->MemoryUse();
        return true;
    });
    if (size > mostBytes_) {
        if (large_) dropped.swap(large_);
        large_ = {identity, directory};
        sinceLarge_ = 0;
        return;
    }
    while (!kept_.empty() && (kept_.size() >= mostFiles_ || bytes_ + size > mostBytes_)) DropOldest();
    kept_.push_back({identity, directory});
    bytes_ += size;
}

void DirectoryCache::DropOldest() {
    bytes_ -= kept_.front().directory->MemoryUse();
    kept_.erase(kept_.begin());
}

DirectoryCache& SharedDirectoryCache() {
    static NeverDestroyed<DirectoryCache> cache(kMostFiles, kMostBytes,
                                                [] { return TimeOf(CLOCK_REALTIME); });
    return cache.Get();
}

}  // namespace vexpa_runtime::zip
