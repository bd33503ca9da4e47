#include "runtime/zip/DirectoryReader.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "runtime/zip/EndRecord.h"
#include "runtime/zip/EntryName.h"
#include "runtime/zip/ForwardReader.h"
#include "runtime/zip/LittleEndian.h"
#include "runtime/zip/OverlapCheck.h"

namespace vexpa_runtime::zip {

namespace {

constexpr std::size_t kHeaderSize = 46;  // APPNOTE 4.3.12
constexpr std::uint16_t kEncryptedFlag = 0x0001;
constexpr std::uint16_t kZip64Field = 0x0001;
constexpr std::uint16_t kAllOnes16 = 0xFFFF;
constexpr std::uint32_t kAllOnes32 = 0xFFFFFFFF;
// The count that callers get is a signed 32-bit one.
constexpr std::size_t kMostEntries = std::numeric_limits<std::int32_t>::max();
// A position that no file reaches: an entry there fails when it is extracted.
constexpr std::uint64_t kNowhere = std::numeric_limits<std::uint64_t>::max();

// A file may end in any number of records that look like end records; each one tried costs a
// walk over a directory that may be as long as the file.
constexpr int kMostEndRecordsTried = 8;

bool IsCompoundFile(const ArchiveFile& file) {
    constexpr std::uint8_t kSignature[] = {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};
    std::uint8_t start[sizeof kSignature];
    return file.ReadAt(0, start, sizeof start) && std::memcmp(start, kSignature, sizeof start) == 0;
}

// One header of the directory, its fixed fields in place.
struct Header {
    const std::uint8_t* bytes;

    std::uint8_t Host() const { return bytes[5]; }
    std::uint16_t Flags() const { return Le16(bytes + 8); }
    std::uint16_t Method() const { return Le16(bytes + 10); }
    std::uint32_t Crc() const { return Le32(bytes + 16); }
    std::uint32_t CompressedSize() const { return Le32(bytes + 20); }
    std::uint32_t Size() const { return Le32(bytes + 24); }
    std::size_t NameSize() const { return Le16(bytes + 28); }
    std::size_t ExtraSize() const { return Le16(bytes + 30); }
    std::size_t CommentSize() const { return Le16(bytes + 32); }
    std::uint16_t Disk() const { return Le16(bytes + 34); }
    std::uint32_t Offset() const { return Le32(bytes + 42); }

    const std::uint8_t* Name() const { return bytes + kHeaderSize; }
    const std::uint8_t* Extra() const { return Name() + NameSize(); }
    std::size_t SizeWithoutComment() const { return kHeaderSize + NameSize() + ExtraSize(); }
};

struct Bytes {
    const std::uint8_t* at;
    std::size_t size;

    template <class Number>
    bool Take(Number& number) {
        if (size < sizeof number) return false;
        number = Field<Number>(at);
        at += sizeof number;
        size -= sizeof number;
        return true;
    }
};

// The content of the zip64 field; of no size when there is none. A field that runs past the
// extra data ends the search: what comes before it is still good.
Bytes FindZip64Field(Bytes extra) {
    std::uint16_t id, size;
    while (extra.Take(id) && extra.Take(size) && size <= extra.size) {
        if (id == kZip64Field) return {extra.at, size};
        extra.at += size;
        extra.size -= size;
    }
    return {nullptr, 0};
}

struct WideFields {
    std::uint64_t size;
    std::uint64_t compressedSize;
    std::uint64_t offset;
    std::uint32_t disk;
};

// The zip64 field holds, in this order, only what the header leaves at all ones (APPNOTE
// 4.5.3). What it does not hold keeps the header's value, which then says what it says.
WideFields ReadWideFields(const Header& header) {
    WideFields wide{header.Size(), header.CompressedSize(), header.Offset(), header.Disk()};
    Bytes field = FindZip64Field({header.Extra(), header.ExtraSize()});
    if (wide.size == kAllOnes32 && !field.Take(wide.size)) return wide;
    if (wide.compressedSize == kAllOnes32 && !field.Take(wide.compressedSize)) return wide;
    if (wide.offset == kAllOnes32 && !field.Take(wide.offset)) return wide;
    if (wide.disk == kAllOnes16) field.Take(wide.disk);
    return wide;
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
            const std::size_t size = Header{bytes}.SizeWithoutComment();
            bytes = in_.Peek(size);
            if (bytes == nullptr || entries_.size() == kMostEntries) return false;
            const Header header{bytes};
            if (header.CommentSize() > in_.Left() - size) return false;
            Add(header);
            in_.Skip(size + header.CommentSize());
        }
        return true;
    }

    bool ReachedEnd() const { return in_.Left() == 0; }
    std::size_t Count() const { return entries_.size(); }

    std::shared_ptr<const Directory> Result() {
        MarkOverlaps(entries_, fileSize_);
        return std::make_shared<const Directory>(std::move(entries_), std::move(names_));
    }

private:
    const std::uint8_t* NextHeader() {
        const std::uint8_t* bytes = in_.Peek(kHeaderSize);
        return bytes != nullptr && Le32(bytes) == kDirectoryHeaderSignature ? bytes : nullptr;
    }

    void Add(const Header& header) {
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

std::shared_ptr<const Directory> ReadBySize(const ArchiveFile& file, const EndRecord& end) {
    if (end.size > end.directoryEnd) return nullptr;
    const std::uint64_t start = end.directoryEnd - end.size;
    Walk walk(file, {start, end.directoryEnd, start - end.offset, end.disk});
    if (!walk.Run() || !walk.ReachedEnd()) return nullptr;
    // A size of 0 is no agreement with an archive that claims entries.
    if (walk.Count() == 0 && end.count != 0) return nullptr;
    return walk.Result();
}

std::shared_ptr<const Directory> ReadByCount(const ArchiveFile& file, const EndRecord& end) {
    if (end.offset > end.directoryEnd) return nullptr;
    Walk walk(file, {end.offset, end.directoryEnd, 0, end.disk});
    if (!walk.Run()) return nullptr;
    const std::uint64_t count = end.countIsWhole ? walk.Count() : walk.Count() & 0xFFFF;
    return count == end.count ? walk.Result() : nullptr;
}

}  // namespace

std::shared_ptr<const Directory> ReadDirectory(const ArchiveFile& file) {
    if (IsCompoundFile(file)) return nullptr;
    EndRecordSearch search(file);
    for (int tried = 0; tried < kMostEndRecordsTried; ++tried) {
        const std::optional<EndRecord> end = search.Next();
        if (!end) return nullptr;
        if (auto directory = ReadBySize(file, *end)) return directory;
        if (auto directory = ReadByCount(file, *end)) return directory;
    }
    return nullptr;
}

}  // namespace vexpa_runtime::zip
