// runtime/zip/Settling.h - from when on every change of a file shows in its identity.
#ifndef VEXPA_RUNTIME_ZIP_SETTLING_H_
#define VEXPA_RUNTIME_ZIP_SETTLING_H_

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <mutex>
#include <vector>

#include "runtime/zip/ArchiveFile.h"

namespace vexpa_runtime::zip {

// Time stamps move in ticks - two seconds on some file systems, the kernel's few milliseconds on
// most - and a file changed twice within one tick looks unchanged after the second change. Once
// the last change lies more than a tick back, the file has settled: every later one shows.

// Whether the stamps of the file say so, by the clock that files are stamped by.
bool HadSettled(const FileIdentity& file, const std::timespec& now);

// Stamps may lie hours ahead of this machine's clock: that of a server is fast, or this one was set
// back. But the clock that stamped a file had reached the stamp when the file was first seen with it,
// so any change more than a tick later gets a later stamp. Hence no file stays unsettled for longer
// than a tick, unless the clock that it is stamped by is set back to the very tick of its last change.
//
// Threads  All functions may be called from any thread.
class Settling {
public:
    using Clock = std::timespec (*)();

    // The clock that files are stamped by, and one that nobody sets.
    Settling(Clock stamping, Clock steady) : stamping_(stamping), steady_(steady) {}

    // Whether `file`, which had this identity just now, has settled.
    bool HasSettled(const FileIdentity& file);

private:
    // Only files that have not settled by their stamps are written down, the latest of them.
    static constexpr std::size_t kMostSeen = 64;

    struct Sight {
        FileIdentity file;
        std::timespec first;
    };

    const Clock stamping_;
    const Clock steady_;
    std::mutex mutex_;         // guards what follows
    std::vector<Sight> seen_;  // the one asked for last stands last
};

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_SETTLING_H_
