#include "runtime/zip/DirectoryReader.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "runtime/zip/DirectoryHeader.h"
#include "runtime/zip/EndRecord.h"
#include "runtime/zip/EntryName.h"
#include "runtime/zip/ForwardReader.h"
#include "runtime/zip/OverlapCheck.h"

namespace vexpa_runtime::zip {

namespace {

// The count that callers get is a signed 32-bit one.
constexpr std::size_t kMostEntries = std::numeric_limits<std::int32_t>::max();

// A file may end in any number of records that look like end records; each one tried costs a
// walk over a directory that may be as long as the file.
constexpr int kMostEndRecordsTried = 8;

bool IsCompoundFile(const ArchiveFile& file) {
    constexpr std::uint8_t kSignature[] = {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};
    std::uint8_t start[sizeof kSignature];
    return file.ReadAt(0, start, sizeof start) && std::memcmp(start, kSignature, sizeof start) == 0;
}

// Where the directory may lie, and what its offsets and disk numbers then mean.
struct Placement {
    std::uint64_t start;
    std::uint64_t end;
    std::uint64_t archiveStart;  // modulo 2^64: below zero when the file's head was cut off
    std::uint32_t disk;
};

std::uint64_t PositionInFile(std::uint64_t offset, std::uint64_t archiveStart, std::uint64_t fileSize) {
    const std::uint64_t position = archiveStart + offset;
    return position < fileSize ? position : kNowhere;
}

class Walk {
public:
    Walk(const ArchiveFile& file, const Placement& placement)
        : fileSize_(file.Size()), placement_(placement), in_(file, placement.start, placement.end) {}

    // Takes headers until something else comes; false when one of them is cut off.
    bool Run() {
        while (const std::uint8_t* bytes = NextHeader()) {
            const std::size_t size = DirectoryHeader{bytes}.SizeWithoutComment();
            bytes = in_.Peek(size);
            if (bytes == nullptr || entries_.size() == kMostEntries) return false;
            const DirectoryHeader header{bytes};
            if (header.CommentSize() > in_.Left() - size) return false;
            Add(header);
            in_.Skip(size + header.CommentSize());
        }
        return true;
    }

    bool ReachedEnd() const { return in_.Left() == 0; }
    std::size_t Count() const { return entries_.size(); }
    DirectoryPlace FoundBy(const EndRecord& end) const {
        return {placement_.start, placement_.end - in_.Left(), placement_.archiveStart, end};
    }

    std::shared_ptr<Directory> Result() {
        MarkOverlaps(entries_, fileSize_);
        return std::make_shared<Directory>(std::move(entries_), std::move(names_));
    }

private:
    const std::uint8_t* NextHeader() {
        const std::uint8_t* bytes = in_.Peek(kDirectoryHeaderSize);
        return bytes != nullptr && Le32(bytes) == kDirectoryHeaderSignature ? bytes : nullptr;
    }

    void Add(const DirectoryHeader& header) {
        const std::size_t nameAt = names_.size();
        AppendEntryName(names_, {reinterpret_cast<const char*>(header.Name()), header.NameSize()},
                        header.Host());
        const WideFields wide = ReadWideFields(header);
        entries_.push_back(
            {PositionInFile(wide.offset, placement_.archiveStart, fileSize_), wide.compressedSize,
             wide.size, nameAt, static_cast<std::uint32_t>(names_.size() - nameAt), header.Crc(),
             header.Method(), (header.Flags() & kEncryptedFlag) != 0, wide.disk != placement_.disk});
    }

    std::uint64_t fileSize_;
    Placement placement_;
    ForwardReader in_;
    std::vector<Entry> entries_;
    std::string names_;
};

std::optional<Walk> WalkBySize(const ArchiveFile& file, const EndRecord& end) {
    if (end.size > end.directoryEnd) return std::nullopt;
    const std::uint64_t start = end.directoryEnd - end.size;
    Walk walk(file, {start, end.directoryEnd, start - end.offset, end.disk});
    if (!walk.Run() || !walk.ReachedEnd()) return std::nullopt;
    // A size of 0 is no agreement with an archive that claims entries.
    if (walk.Count() == 0 && end.count != 0) return std::nullopt;
    return walk;
}

std::optional<Walk> WalkByCount(const ArchiveFile& file, const EndRecord& end) {
    if (end.offset > end.directoryEnd) return std::nullopt;
    Walk walk(file, {end.offset, end.directoryEnd, 0, end.disk});
    if (!walk.Run()) return std::nullopt;
    const std::uint64_t count = end.countIsWhole ? walk.Count() : walk.Count() & 0xFFFF;
    if (count != end.count) return std::nullopt;
    return walk;
}

}  // namespace

std::shared_ptr<Directory> ReadDirectory(const ArchiveFile& file, DirectoryPlace* place) {
    if (IsCompoundFile(file)) return nullptr;
    EndRecordSearch search(file);
    for (int tried = 0; tried < kMostEndRecordsTried; ++tried) {
        const std::optional<EndRecord> end = search.Next();
        if (!end) return nullptr;
        for (const auto walkBy : {WalkBySize, WalkByCount}) {
            std::optional<Walk> walk = walkBy(file, *end);
            if (!walk) continue;
            if (place != nullptr) *place = walk->FoundBy(*end);
            return walk->Result();
        }
    }
    return nullptr;
}

}  // namespace vexpa_runtime::zip
