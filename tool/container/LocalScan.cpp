#include "tool/container/LocalScan.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "runtime/zip/DirectoryHeader.h"
#include "runtime/zip/LittleEndian.h"

namespace vexpa_tool {

namespace zip = vexpa_runtime::zip;

namespace {

constexpr std::uint32_t kDescriptorSignature = 0x08074b50;
constexpr std::uint64_t kDescriptorSize = 16;    // with its signature (APPNOTE 4.3.9)
constexpr std::uint64_t kDescriptor64Size = 24;  // its sizes as zip64 has them
constexpr std::uint64_t kFirstPiece = 512;
constexpr std::uint64_t kLargestPiece = 64 << 10;
constexpr std::uint64_t kSignatureSize = 4;

std::optional<std::uint32_t> SignatureAt(const Container& container, std::uint64_t position) {
    std::uint8_t bytes[kSignatureSize];
    if (!container.ReadAt(position, bytes, sizeof bytes)) return std::nullopt;
    return zip::Le32(bytes);
}

bool IsRecord(std::string_view signature) {
    return signature == "PK\3\4" || signature == "PK\1\2" || signature == "PK\7\x8";
}

std::size_t FindRecordIn(std::string_view piece) {
    std::size_t at = piece.find("PK");
    while (at != piece.npos && !IsRecord(piece.substr(at, kSignatureSize)))
        at = piece.find("PK", at + 1);
    return at;
}

// Where the first record begins from `position` on; kNowhere when none does. The pieces grow, so
// that a file of many short entries is not read again and again.
std::uint64_t FindRecord(const Container& container, std::uint64_t position) {
    for (std::uint64_t size = kFirstPiece; position < container.FileSize();
         size = std::min(2 * size, kLargestPiece)) {
        const std::string piece =
            container.Bytes(position, std::min(size, container.FileSize() - position));
        const std::size_t at = FindRecordIn(piece);
        if (at != std::string::npos) return position + at;
        if (piece.size() < size) break;
        // A signature may begin in this piece and end in the next.
        position += size - (kSignatureSize - 1);
    }
    return kNowhere;
}

// Where the entry's data ends, and what follows it begins.
struct DataEnd {
    std::uint64_t data;
    std::uint64_t next;
};

DataEnd FindDataEnd(const Container& container, const LocalHeader& header) {
    const std::uint64_t start = header.DataPosition();
    const bool isTold = (header.flags & kHasDescriptor) == 0 || header.compressedSize != 0;
    const std::uint64_t told = start + header.compressedSize;
    const std::uint64_t end = isTold && told >= start ? told : FindRecord(container, start);
    if (end == kNowhere) return {std::max(start, container.FileSize()), kNowhere};
    if (SignatureAt(container, end) != kDescriptorSignature) return {end, end};
    const std::uint64_t wideEnd = end + kDescriptor64Size;
    return {end, IsRecord(container.Bytes(wideEnd, kSignatureSize)) ? wideEnd : end + kDescriptorSize};
}

ScanEnd WhatFollows(const Container& container, std::uint64_t position) {
    if (position == container.FileSize()) return ScanEnd::FileEnd;
    if (position > container.FileSize()) return ScanEnd::InsideData;
    const std::optional<std::uint32_t> signature = SignatureAt(container, position);
    if (signature == zip::kDirectoryHeaderSignature) return ScanEnd::Directory;
    if (!signature || signature == kLocalHeaderSignature) return ScanEnd::InsideHeader;
    return ScanEnd::OtherBytes;
}

}  // namespace

LocalScan ScanLocalHeaders(const Container& container, const LocalSink& sink) {
    std::uint64_t position = 0;
    while (std::optional<LocalHeader> header = ReadLocalHeader(container, position)) {
        const std::string name = LocalName(container, *header);
        if (name.size() != header->nameSize) return {position, ScanEnd::InsideHeader};
        const DataEnd end = FindDataEnd(container, *header);
        header->compressedSize = end.data - std::min(end.data, header->DataPosition());
        sink(*header, name);
        position = end.next;
    }
    return {position, WhatFollows(container, position)};
}

}  // namespace vexpa_tool
