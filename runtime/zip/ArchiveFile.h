// runtime/zip/ArchiveFile.h - a file opened for reading at positions, and what tells its states apart.
#ifndef VEXPA_RUNTIME_ZIP_ARCHIVEFILE_H_
#define VEXPA_RUNTIME_ZIP_ARCHIVEFILE_H_

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
#include <span>
#include <vector>

namespace vexpa_runtime::zip {

// Two equal identities, seen at different times, mean the same bytes - unless the file was
// changed twice within one tick of the file system's clock (see Settling.h).
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

// A regular file: open for as long as this object lives, or held in memory, or open with a piece of
// it in memory.
class ArchiveFile {
public:
    // Nothing when `path` cannot be opened or is no regular file. Never waits on a FIFO.
    static std::optional<ArchiveFile> Open(const char* path) noexcept;

    // The file that had these bytes at `position`, which must live as long as this object. Nothing
    // is opened: the rest of the file, if there is any, cannot be read.
    ArchiveFile(const FileIdentity& identity, std::span<const std::uint8_t> bytes,
                std::uint64_t position = 0) noexcept
        : identity_(identity), bytes_(bytes), bytesAt_(position) {}

    ArchiveFile(ArchiveFile&& other) noexcept;
    ArchiveFile& operator=(ArchiveFile&&) = delete;
    ~ArchiveFile();

    // As it was when the file was opened.
    const FileIdentity& Identity() const noexcept { return identity_; }
    std::uint64_t Size() const noexcept { return identity_.size; }

    // Whether the open file still is what it was when it was opened; bytes never change.
    bool IsUnchanged() const noexcept;

    // Fills `destination` with the `size` bytes at `position`; false when the file ends before
    // or cannot be read. A mapping would be faster, but dies when another program cuts the file.
    bool ReadAt(std::uint64_t position, void* destination, std::size_t size) const noexcept;

    // The same bytes without copying them, or null: not in memory, or beyond the end.
    const std::uint8_t* View(std::uint64_t position, std::size_t size) const noexcept;

    // From now on these bytes, which the file has at `position`, are taken from memory. They must
    // live as long as this object.
    void HoldInMemory(std::span<const std::uint8_t> bytes, std::uint64_t position) noexcept {
        bytes_ = bytes;
        bytesAt_ = position;
    }

private:
    static constexpr int kNone = -1;

    ArchiveFile() noexcept = default;

    int descriptor_ = kNone;
    FileIdentity identity_{};
    std::span<const std::uint8_t> bytes_;
    std::uint64_t bytesAt_ = 0;
};

// The whole of a file; nothing when it cannot be read. Throws when memory is exhausted.
std::optional<std::vector<std::uint8_t>> ReadWhole(const ArchiveFile& file);

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_ARCHIVEFILE_H_
