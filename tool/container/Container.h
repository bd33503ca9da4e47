// tool/container/Container.h - a zip archive as its bytes tell it, also one the library refuses.
#ifndef VEXPA_TOOL_CONTAINER_CONTAINER_H_
#define VEXPA_TOOL_CONTAINER_CONTAINER_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/zip/ArchiveFile.h"
#include "runtime/zip/Directory.h"
#include "tool/container/ReadWindow.h"

namespace vexpa_tool {

using vexpa_runtime::zip::kNowhere;

// Bits of ContainerEntry::flags (APPNOTE 4.4.4).
inline constexpr std::uint16_t kEncrypted = 0x0001;
inline constexpr std::uint16_t kHasDescriptor = 0x0008;  // sizes follow the data
inline constexpr std::uint16_t kIsUtf8 = 0x0800;

// What the directory says about an entry.
struct ContainerEntry {
    std::string_view name;            // [borrowed] UTF-8, as the library lists it
    std::uint64_t directoryPosition;  // of its header in the directory
    std::uint64_t headerPosition;     // of its local header; kNowhere when beyond the file
    std::uint64_t compressedSize;
    std::uint64_t size;
    std::uint32_t crc;
    std::uint32_t externalAttributes;
    std::uint16_t method;
    std::uint16_t flags;
    std::uint16_t madeBy;  // version, the host system in the upper byte
    std::uint16_t neededVersion;
    std::uint16_t time;  // MS-DOS time and date
    std::uint16_t date;
    std::uint16_t rawNameSize;
    std::uint16_t extraSize;
    std::uint16_t commentSize;
    bool onOtherDisk;
    bool isSpelledAsListed;  // the bytes of the name are `name`
};

// The end record, and how the archive lies in its file.
struct ContainerEnd {
    std::uint64_t position;  // of the end record
    std::uint64_t directoryStart;
    std::uint64_t directoryEnd;
    std::uint64_t archiveStart;   // what offsets count from; modulo 2^64
    std::uint64_t claimedCount;   // of entries
    std::uint64_t claimedSize;    // of the directory
    std::uint64_t claimedOffset;  // of the directory
    std::uint64_t recordsStart;   // of the zip64 end record, or of the end record without one
    std::uint32_t disk;
    std::uint16_t commentSize;  // as claimed
    bool isZip64;
};

enum class ContainerSource {
    None,          // nothing of an archive was found
    Directory,     // a sound directory, which the library reads, too
    LocalHeaders,  // no sound directory: what stands before the data of the entries
};

// An archive, open as long as this object lives.
//
// What is long (extra data, comments, local headers) is read when it is asked for, so memory
// follows the number of entries.
//
// Threads  One at a time.
class Container {
public:
    static constexpr std::size_t kMostEntries = 1 << 20;

    // Nothing when the path leads to no readable regular file. Entries of the directory beyond the
    // most are counted, but not told of.
    static std::optional<Container> Read(const std::string& path,
                                         std::size_t mostEntries = kMostEntries);

    const vexpa_runtime::zip::ArchiveFile& File() const noexcept { return file_; }
    // Like the file's, and cheap for small reads.
    bool ReadAt(std::uint64_t position, void* destination, std::size_t size) const {
        return window_.ReadAt(file_, position, destination, size);
    }
    std::uint64_t FileSize() const noexcept { return file_.Size(); }
    ContainerSource Source() const noexcept { return source_; }

    // In the order of the directory, or of the file.
    const std::vector<ContainerEntry>& Entries() const noexcept { return entries_; }
    std::size_t EntryCount() const noexcept { return directory_ ? directory_->Count() : 0; }

    // [borrowed] The first entry of this name, or null; null also for one that is not told of.
    const ContainerEntry* Find(std::string_view name) const;
    // Whether there is an entry of this name, told of or not.
    bool Has(std::string_view name) const;
    // Whether all entries are told of.
    bool IsWhole() const noexcept { return entries_.size() == EntryCount(); }

    // With a directory only.
    const ContainerEnd& End() const noexcept { return end_; }

    // What is read anew; empty when that fails.
    std::string RawName(const ContainerEntry& entry) const;
    std::string ExtraData(const ContainerEntry& entry) const;
    std::string Comment(const ContainerEntry& entry) const;
    std::string ArchiveComment() const;
    std::string Bytes(std::uint64_t position, std::uint64_t size) const;

private:
    Container(vexpa_runtime::zip::ArchiveFile file, std::size_t mostEntries)
        : file_(std::move(file)), mostEntries_(mostEntries) {}
    bool ReadDirectory();
    void ReadLocalHeaders();
    std::uint64_t NamePosition(const ContainerEntry& entry) const;

    vexpa_runtime::zip::ArchiveFile file_;
    mutable ReadWindow window_;
    std::size_t mostEntries_;
    ContainerSource source_ = ContainerSource::None;
    std::shared_ptr<const vexpa_runtime::zip::Directory> directory_;
    std::vector<ContainerEntry> entries_;
    ContainerEnd end_{};
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CONTAINER_CONTAINER_H_
