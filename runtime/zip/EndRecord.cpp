#include "runtime/zip/EndRecord.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "runtime/zip/DirectoryHeader.h"
#include "runtime/zip/LittleEndian.h"

namespace vexpa_runtime::zip {

namespace {

constexpr std::string_view kEndSignature = "PK\x05\x06";
constexpr std::size_t kEndSize = 22;
constexpr std::uint64_t kLongestTail = kEndSize + 0xFFFF;  // the longest comment

constexpr std::uint32_t kLocatorSignature = 0x07064b50;
constexpr std::size_t kLocatorSize = 20;
constexpr std::uint32_t kEnd64Signature = 0x06064b50;
constexpr std::size_t kEnd64Size = 56;

constexpr std::uint16_t kAllOnes16 = 0xFFFF;
constexpr std::uint32_t kAllOnes32 = 0xFFFFFFFF;

bool DirectoryBeginsAt(const ArchiveFile& file, std::uint64_t position) {
    std::uint8_t signature[4];
    return file.ReadAt(position, signature, sizeof signature) &&
           Le32(signature) == kDirectoryHeaderSignature;
}

bool ShowsDirectory(const ArchiveFile& file, const EndRecord& end) {
    if (end.count == 0 && end.size == 0) return end.offset <= end.directoryEnd;
    if (end.size <= end.directoryEnd && DirectoryBeginsAt(file, end.directoryEnd - end.size))
        return true;
    return end.offset < end.directoryEnd && DirectoryBeginsAt(file, end.offset);
}

EndRecord Plain(const std::uint8_t* record, std::uint64_t position) {
    return {position,         position, Le16(record + 10), Le32(record + 12), Le32(record + 16),
            Le16(record + 4), false};
}

struct End64 {
    std::uint8_t bytes[kEnd64Size];
    std::uint64_t position;
};

// The zip64 record that the locator before the end record at `endPosition` leads to. Right
// before the locator comes first: there it lies in nearly every archive, and there it is found
// when bytes before the archive have moved everything.
std::optional<End64> FindEnd64(const ArchiveFile& file, std::uint64_t endPosition) {
    if (endPosition < kLocatorSize + kEnd64Size) return std::nullopt;
    const std::uint64_t locatorPosition = endPosition - kLocatorSize;
    std::uint8_t locator[kLocatorSize];
    if (!file.ReadAt(locatorPosition, locator, sizeof locator)) return std::nullopt;
    if (Le32(locator) != kLocatorSignature) return std::nullopt;

    const std::uint64_t latest = locatorPosition - kEnd64Size;
    for (const std::uint64_t position : {latest, Le64(locator + 8)}) {
        End64 end64{{}, position};
        if (position > latest || !file.ReadAt(position, end64.bytes, kEnd64Size)) continue;
        if (Le32(end64.bytes) == kEnd64Signature) return end64;
    }
    return std::nullopt;
}

// A field of the zip64 record counts where the plain one is all ones (APPNOTE 4.4.1.4).
EndRecord Merged(const EndRecord& plain, const End64& end64) {
    EndRecord end = plain;
    end.directoryEnd = end64.position;
    if (plain.disk == kAllOnes16) end.disk = Le32(end64.bytes + 16);
    if (plain.count == kAllOnes16) {
        end.count = Le64(end64.bytes + 32);
        end.countIsWhole = true;
    }
    if (plain.size == kAllOnes32) end.size = Le64(end64.bytes + 40);
    if (plain.offset == kAllOnes32) end.offset = Le64(end64.bytes + 48);
    return end;
}

}  // namespace

EndRecordSearch::EndRecordSearch(const ArchiveFile& file) : file_(file) {
    const std::uint64_t size = std::min(file.Size(), kLongestTail);
    tail_.resize(static_cast<std::size_t>(size));
    tailPosition_ = file.Size() - size;
    if (file.ReadAt(tailPosition_, tail_.data(), tail_.size())) searchEnd_ = tail_.size();
}

std::optional<EndRecord> EndRecordSearch::Next() {
    if (withoutCompanion_) return std::exchange(withoutCompanion_, std::nullopt);
    while (searchEnd_ > 0) {
        const std::size_t found = tail_.rfind(kEndSignature, searchEnd_ - 1);
        searchEnd_ = found == std::string::npos ? 0 : found;
        if (found == std::string::npos) break;
        if (std::optional<EndRecord> end = RecordAt(found)) return end;
    }
    return std::nullopt;
}

std::optional<EndRecord> EndRecordSearch::RecordAt(std::size_t tailIndex) {
    if (tail_.size() - tailIndex < kEndSize) return std::nullopt;
    const std::uint64_t position = tailPosition_ + tailIndex;
    std::optional<EndRecord> plain =
        Plain(reinterpret_cast<const std::uint8_t*>(tail_.data()) + tailIndex, position);
    const std::optional<End64> end64 = FindEnd64(file_, position);
    std::optional<EndRecord> merged;
    if (end64) merged = Merged(*plain, *end64);
    if (!ShowsDirectory(file_, *plain)) plain.reset();
    if (!merged || !ShowsDirectory(file_, *merged)) return plain;
    withoutCompanion_ = plain;
    return merged;
}

}  // namespace vexpa_runtime::zip
