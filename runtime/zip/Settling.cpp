#include "runtime/zip/Settling.h"

#include <algorithm>
#include <utility>

namespace vexpa_runtime::zip {

namespace {

constexpr std::int64_t kNanosecondsInASecond = 1'000'000'000;
constexpr std::int64_t kLongestTick = 2 * kNanosecondsInASecond;  // of FAT
// The clock that the kernel stamps files by moves a hundred times a second at least.
constexpr std::int64_t kKernelTick = 10'000'000;
constexpr std::int64_t kKernelTicksWaited = 5;

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

bool Settling::HasSettled(const FileIdentity& file) {
    if (HadSettled(file, stamping_())) return true;
    const std::timespec now = steady_();
    const std::lock_guard lock(mutex_);
    const auto isIt = [&file](const Sight& sight) { return sight.file == file; };
    const auto found = std::find_if(seen_.begin(), seen_.end(), isIt);
    if (found == seen_.end()) {
        if (seen_.size() == kMostSeen) seen_.erase(seen_.begin());
        seen_.push_back({file, now});
        return false;
    }
    std::rotate(found, found + 1, seen_.end());
    return Moment(seen_.back().first.tv_sec, seen_.back().first.tv_nsec) < Moved(now, -TickOf(file));
}

}  // namespace vexpa_runtime::zip
