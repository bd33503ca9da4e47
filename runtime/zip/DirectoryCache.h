// runtime/zip/DirectoryCache.h - the parsed directories of the files used last, and small files whole.
#ifndef VEXPA_RUNTIME_ZIP_DIRECTORYCACHE_H_
#define VEXPA_RUNTIME_ZIP_DIRECTORYCACHE_H_

#include <cstddef>
#include <ctime>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "runtime/zip/ArchiveFile.h"
#include "runtime/zip/Directory.h"
#include "runtime/zip/Settling.h"

namespace vexpa_runtime::zip {

// Every call of the zip service names a file anew, and most name the file that the last one
// named. What is kept is what parsing found, and beside it the bytes of a small file, so that
// its entries cost no reading; no file stays open, so that its file system can be unmounted
// between calls.
//
// A directory is found again only under the identity of the file that it was read from, so a
// replaced or rewritten file is read afresh. For every later change to show, a directory is kept
// only when the file had settled (Settling.h) before reading began. Until then the directory is
// read anew for each entry, which takes a tick of the file's clock at most from the first one on.
//
// Threads  All functions may be called from any thread.
class DirectoryCache {
public:
    // How often other files are asked for until a directory that is too large is forgotten.
    static constexpr int kPatience = 256;

    // Keeps at most `mostFiles` directories, together at most `mostBytes` large. Of those that are
    // larger the one read last is kept besides, as to read it again for each of its entries would
    // never end; but not for long when it is not asked for. A file of up to a quarter of the bytes
    // is kept whole. The clocks are those of Settling.
    DirectoryCache(std::size_t mostFiles, std::size_t mostBytes, Settling::Clock stamping,
                   Settling::Clock steady = SteadyClock);

    // The directory kept of the file when it had this identity, or null.
    std::shared_ptr<const Directory> Find(const FileIdentity& identity);

    // Whether every change of `file` from now on shows in its identity.
    bool HasSettled(const ArchiveFile& file) { return settling_.HasSettled(file.Identity()); }

    // Reads the directory of `file`, and keeps it if that is safe; null when there is no sound
    // one. What is kept whole had not changed when all was read.
    std::shared_ptr<const Directory> Read(const ArchiveFile& file);

private:
    static std::timespec SteadyClock();

    struct Kept {
        FileIdentity identity;
        std::shared_ptr<const Directory> directory;
    };

    std::shared_ptr<const Directory> FindLarge(const FileIdentity& identity);
    void DropOldest();
    void Keep(const FileIdentity& identity, const std::shared_ptr<const Directory>& directory);

    const std::size_t mostFiles_;
    const std::size_t mostBytes_;
    Settling settling_;
    std::mutex mutex_;        // guards what follows
    std::vector<Kept> kept_;  // the one used last stands last
    std::size_t bytes_ = 0;   // of those
    std::optional<Kept> large_;
    int sinceLarge_ = 0;  // how often other files have been asked for since large_ was
};

// The cache of the process, which is never destroyed.
DirectoryCache& SharedDirectoryCache();

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_DIRECTORYCACHE_H_
