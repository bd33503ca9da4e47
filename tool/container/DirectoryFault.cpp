#include "tool/container/DirectoryFault.h"

#include <algorithm>

#include "runtime/zip/DirectoryHeader.h"
#include "runtime/zip/ForwardReader.h"
#include "runtime/zip/LittleEndian.h"
#include "tool/container/LocalScan.h"

namespace vexpa_tool {

namespace zip = vexpa_runtime::zip;

namespace {

using Kind = DirectoryFault::Kind;

constexpr std::size_t kEndSize = 22;
constexpr std::uint64_t kLongestTail = kEndSize + 0xFFFF;  // the longest comment

Kind KindOf(ScanEnd end) {
    switch (end) {
        case ScanEnd::FileEnd:
            return Kind::CutBeforeDirectory;
        case ScanEnd::InsideData:
        case ScanEnd::InsideHeader:
            return Kind::CutInsideEntry;
        case ScanEnd::Directory:
        case ScanEnd::OtherBytes:
            break;
    }
    return Kind::NoEndRecord;
}

bool DirectoryBeginsAt(const Container& container, std::uint64_t position) {
    const std::string signature = container.Bytes(position, 4);
    return signature == "PK\1\2";
}

// Goes through the headers from `start` up to `limit`; false when one runs out of that.
bool WalkHeaders(const Container& container, std::uint64_t start, std::uint64_t limit,
                 DirectoryFault& fault) {
    zip::ForwardReader in(container.File(), start, limit);
    for (;; ++fault.count) {
        fault.position = limit - in.Left();
        const std::uint8_t* bytes = in.Peek(zip::kDirectoryHeaderSize);
        if (bytes == nullptr) return !DirectoryBeginsAt(container, fault.position);
        if (zip::Le32(bytes) != zip::kDirectoryHeaderSignature) return true;
        const zip::DirectoryHeader header{bytes};
        const std::uint64_t size = header.SizeWithoutComment() + header.CommentSize();
        if (size > in.Left()) return false;
        in.Skip(size);
    }
}

// The directory follows the entries, and no end record follows the directory.
void LookAtDirectory(const Container& container, DirectoryFault& fault) {
    const std::uint64_t start = fault.position;
    fault.count = 0;
    const bool isWhole = WalkHeaders(container, start, container.FileSize(), fault);
    fault.kind = isWhole && fault.position != container.FileSize() ? Kind::NoEndRecord
                                                                   : Kind::CutInsideDirectory;
    if (fault.kind == Kind::CutInsideDirectory) fault.position = start;
}

DirectoryFault WithoutEndRecord(const Container& container) {
    DirectoryFault fault;
    if (container.Source() != ContainerSource::LocalHeaders) return fault;
    const LocalScan scan = ScanLocalHeaders(container, [](const LocalHeader&, const std::string&) {});
    fault.kind = KindOf(scan.how);
    fault.position = scan.end;
    fault.count = container.EntryCount();
    fault.entry = container.Entries().back().name;
    if (scan.how == ScanEnd::Directory) LookAtDirectory(container, fault);
    return fault;
}

DirectoryFault WithEndRecord(const Container& container, std::uint64_t position,
                             const std::uint8_t* record) {
    DirectoryFault fault;
    fault.kind = Kind::NoDirectory;
    fault.endRecord = position;
    fault.claimedCount = zip::Le16(record + 10);
    fault.claimedSize = zip::Le32(record + 12);
    fault.claimedOffset = zip::Le32(record + 16);
    for (const std::uint64_t start : {fault.claimedOffset, position - fault.claimedSize}) {
        if (start >= position || !DirectoryBeginsAt(container, start)) continue;
        const bool isWhole = WalkHeaders(container, start, position, fault);
        fault.kind = isWhole ? Kind::DirectoryMiscounted : Kind::DirectoryBreaksOff;
        break;
    }
    return fault;
}

DirectoryFault CutAt(std::uint64_t endRecord) {
    DirectoryFault fault;
    fault.kind = Kind::CutInsideEndRecord;
    fault.position = endRecord;
    return fault;
}

}  // namespace

DirectoryFault FindDirectoryFault(const Container& container) {
    const std::uint64_t size = std::min(container.FileSize(), kLongestTail);
    const std::uint64_t tailPosition = container.FileSize() - size;
    const std::string tail = container.Bytes(tailPosition, size);
    const std::size_t found = tail.rfind("PK\5\6");
    if (found == std::string::npos) return WithoutEndRecord(container);
    if (tail.size() - found < kEndSize) return CutAt(tailPosition + found);
    return WithEndRecord(container, tailPosition + found,
                         reinterpret_cast<const std::uint8_t*>(tail.data()) + found);
}

}  // namespace vexpa_tool
