#include "tool/container/Container.h"

#include <algorithm>
#include <utility>

#include "runtime/zip/DirectoryHeader.h"
#include "runtime/zip/DirectoryReader.h"
#include "runtime/zip/EntryName.h"
#include "runtime/zip/ForwardReader.h"
#include "tool/container/LocalHeader.h"
#include "tool/container/LocalScan.h"

namespace vexpa_tool {

namespace zip = vexpa_runtime::zip;

namespace {

constexpr std::uint64_t kEndSize = 22;  // APPNOTE 4.3.16
constexpr std::size_t kCommentSizeAt = 20;

ContainerEnd MakeEnd(const zip::DirectoryPlace& place) {
    const zip::EndRecord& record = place.endRecord;
    ContainerEnd end{};
    end.position = record.position;
    end.directoryStart = place.start;
    end.directoryEnd = place.end;
    end.archiveStart = place.archiveStart;
    end.claimedCount = record.count;
    end.claimedSize = record.size;
    end.claimedOffset = record.offset;
    end.recordsStart = record.directoryEnd;
    end.disk = record.disk;
    end.isZip64 = record.directoryEnd != record.position;
    return end;
}

ContainerEntry FromDirectory(const zip::Directory& directory, const zip::Entry& entry) {
    ContainerEntry made{};
    made.name = directory.NameOf(entry);
    made.headerPosition = entry.headerPosition;
    made.compressedSize = entry.compressedSize;
    made.size = entry.size;
    made.crc = entry.crc;
    made.method = entry.method;
    made.onOtherDisk = entry.onOtherDisk;
    return made;
}

void AddHeader(const zip::DirectoryHeader& header, ContainerEntry& entry) {
    entry.externalAttributes = header.ExternalAttributes();
    entry.flags = header.Flags();
    entry.madeBy = header.MadeBy();
    entry.neededVersion = header.NeededVersion();
    entry.time = header.Time();
    entry.date = header.Date();
    entry.rawNameSize = static_cast<std::uint16_t>(header.NameSize());
    entry.extraSize = static_cast<std::uint16_t>(header.ExtraSize());
    entry.commentSize = static_cast<std::uint16_t>(header.CommentSize());
    const auto* name = reinterpret_cast<const char*>(header.Name());
    entry.isSpelledAsListed = entry.name == std::string_view(name, header.NameSize());
}

void AddHeader(const LocalHeader& header, ContainerEntry& entry) {
    entry.directoryPosition = kNowhere;
    entry.flags = header.flags;
    entry.neededVersion = header.neededVersion;
    entry.time = header.time;
    entry.date = header.date;
    entry.rawNameSize = header.nameSize;
    entry.extraSize = header.extraSize;
}

}  // namespace

std::optional<Container> Container::Read(const std::string& path, std::size_t mostEntries) {
    std::optional<zip::ArchiveFile> file = zip::ArchiveFile::Open(path.c_str());
    if (!file) return std::nullopt;
    Container container(*std::move(file), mostEntries);
    if (!container.ReadDirectory()) container.ReadLocalHeaders();
    return container;
}

// The directory is gone through once more for what the library does not keep.
bool Container::ReadDirectory() {
    zip::DirectoryPlace place{};
    directory_ = zip::ReadDirectory(file_, &place);
    if (directory_ == nullptr) return false;
    source_ = ContainerSource::Directory;
    end_ = MakeEnd(place);
    std::uint8_t commentSize[2];
    if (ReadAt(end_.position + kCommentSizeAt, commentSize, sizeof commentSize)) {
        end_.commentSize = zip::Le16(commentSize);
    }

    zip::ForwardReader in(file_, place.start, place.end);
    entries_.reserve(std::min(directory_->Count(), mostEntries_));
    for (const zip::Entry& entry : directory_->Entries()) {
        if (entries_.size() == mostEntries_) break;
        const std::uint8_t* bytes = in.Peek(zip::kDirectoryHeaderSize);
        if (bytes != nullptr) bytes = in.Peek(zip::DirectoryHeader{bytes}.SizeWithoutComment());
        if (bytes == nullptr) break;
        const zip::DirectoryHeader header{bytes};
        ContainerEntry& made = entries_.emplace_back(FromDirectory(*directory_, entry));
        made.directoryPosition = place.end - in.Left();
        AddHeader(header, made);
        in.Skip(std::min<std::uint64_t>(header.SizeWithoutComment() + header.CommentSize(), in.Left()));
    }
    return true;
}

void Container::ReadLocalHeaders() {
    // Which system wrote a name, only a directory tells.
    constexpr std::uint8_t kUnix = 3;
    std::vector<LocalHeader> headers;
    std::vector<zip::Entry> entries;
    std::string names;
    ScanLocalHeaders(*this, [&](const LocalHeader& header, const std::string& name) {
        if (entries.size() == kMostEntries) return;
        const std::size_t nameAt = names.size();
        zip::AppendEntryName(names, name, kUnix);
        headers.push_back(header);
        entries.push_back({header.position, header.compressedSize, header.size, nameAt,
                           static_cast<std::uint32_t>(names.size() - nameAt), header.crc, header.method,
                           (header.flags & kEncrypted) != 0, false});
    });
    if (entries.empty()) return;

    source_ = ContainerSource::LocalHeaders;
    directory_ = std::make_shared<zip::Directory>(std::move(entries), std::move(names));
    for (std::size_t i = 0; i < headers.size(); ++i) {
        AddHeader(headers[i],
                  entries_.emplace_back(FromDirectory(*directory_, directory_->Entries()[i])));
    }
}

const ContainerEntry* Container::Find(std::string_view name) const {
    const zip::Entry* entry = directory_ ? directory_->Find(name) : nullptr;
    if (entry == nullptr) return nullptr;
    const auto index = static_cast<std::size_t>(entry - directory_->Entries().data());
    return index < entries_.size() ? &entries_[index] : nullptr;
}

bool Container::Has(std::string_view name) const {
    return directory_ && directory_->Find(name) != nullptr;
}

std::string Container::Bytes(std::uint64_t position, std::uint64_t size) const {
    std::string bytes(static_cast<std::size_t>(size), '\0');
    if (!ReadAt(position, bytes.data(), bytes.size())) bytes.clear();
    return bytes;
}

// Name, extra data and comment follow the header's fixed fields, in either header.
std::uint64_t Container::NamePosition(const ContainerEntry& entry) const {
    if (entry.directoryPosition != kNowhere) return entry.directoryPosition + zip::kDirectoryHeaderSize;
    return entry.headerPosition + kLocalHeaderSize;
}

std::string Container::RawName(const ContainerEntry& entry) const {
    if (entry.isSpelledAsListed) return std::string(entry.name);
    return Bytes(NamePosition(entry), entry.rawNameSize);
}

std::string Container::ExtraData(const ContainerEntry& entry) const {
    return Bytes(NamePosition(entry) + entry.rawNameSize, entry.extraSize);
}

std::string Container::Comment(const ContainerEntry& entry) const {
    return Bytes(NamePosition(entry) + entry.rawNameSize + entry.extraSize, entry.commentSize);
}

std::string Container::ArchiveComment() const {
    const std::uint64_t start = end_.position + kEndSize;
    if (source_ != ContainerSource::Directory || start >= FileSize()) return {};
    return Bytes(start, std::min<std::uint64_t>(end_.commentSize, FileSize() - start));
}

}  // namespace vexpa_tool
