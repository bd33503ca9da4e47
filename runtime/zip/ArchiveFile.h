// runtime/zip/ArchiveFile.h - a file opened for reading at positions, and what tells its states apart.
#ifndef VEXPA_RUNTIME_ZIP_ARCHIVEFILE_H_
#define VEXPA_RUNTIME_ZIP_ARCHIVEFILE_H_

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>

namespace vexpa_runtime::zip {

// Two equal identities, seen at different times, mean the same bytes - unless the file was
// changed twice within one tick of the file system's clock (see DirectoryCache).
struct FileIdentity {
    dev_t device;
    ino_t inode;
    std::uint64_t size;
    std::int64_t modifiedSeconds;
    std::int64_t modifiedNanoseconds;
    std::int64_t changedSeconds;
    std::int64_t changedNanoseconds;

    bool operator==(const FileIdentity&) const = default;
};

// What `path` leads to now; nothing unless that is a regular file.
std::optional<FileIdentity> IdentityOf(const char* path) noexcept;

// A regular file, open as long as this object lives.
class ArchiveFile {
public:
    // Nothing when `path` cannot be opened or is no regular file. Never waits on a FIFO.
    static std::optional<ArchiveFile> Open(const char* path) noexcept;

    ArchiveFile(ArchiveFile&& other) noexcept;
    ArchiveFile& operator=(ArchiveFile&&) = delete;
    ~ArchiveFile();

    // As it was when the file was opened.
    const FileIdentity& Identity() const noexcept { return identity_; }
    std::uint64_t Size() const noexcept { return identity_.size; }

    // Whether the open file still is what it was when it was opened.
    bool IsUnchanged() const noexcept;

    // Fills `destination` with the `size` bytes at `position`; false when the file ends before
    // or cannot be read. A mapping would be faster, but dies when another program cuts the file.
    bool ReadAt(std::uint64_t position, void* destination, std::size_t size) const noexcept;

private:
    ArchiveFile(int descriptor, const FileIdentity& identity) noexcept
        : descriptor_(descriptor), identity_(identity) {}

    int descriptor_;
    FileIdentity identity_;
};

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_ARCHIVEFILE_H_
