#include "runtime/zip/EntryReader.h"

#include <libdeflate.h>

#include <algorithm>
#include <cstdint>
#include <new>
#include <span>
#include <utility>

#include "runtime/zip/Inflate.h"
#include "runtime/zip/LittleEndian.h"
#include "runtime/zip/ScratchBuffer.h"

namespace vexpa_runtime::zip {

namespace {

constexpr std::uint16_t kStored = 0;
constexpr std::uint16_t kDeflated = 8;

constexpr std::uint32_t kLocalHeaderSignature = 0x04034b50;
constexpr std::size_t kLocalHeaderSize = 30;  // APPNOTE 4.3.7

// Name and extra data of a local header seldom need more. Some writers put half a kilobyte
// of room to grow into the extra data of the entries that every reader reads first.
constexpr std::uint64_t kLikelyHeaderSize = 1024;

// Deflate turns two bits into 258 bytes at best, a ratio of 1032; small data gets some slack.
constexpr std::uint64_t kBestRatio = 1032;
constexpr std::uint64_t kRatioSlack = 64UL * 1024;

using Block = std::unique_ptr<char, FreeMemory>;

Block Allocate(std::uint64_t size) {
    Block block(static_cast<char*>(std::malloc(size == 0 ? 1 : size)));
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

// What can be said of an entry before anything is read or allocated for it.
bool IsPlausible(const ArchiveFile& file, const Entry& entry) {
    if (entry.encrypted || entry.onOtherDisk || entry.overlaps) return false;
    if (entry.headerPosition > file.Size() || entry.compressedSize > file.Size()) return false;
    if (entry.method == kStored) return entry.size == entry.compressedSize;
    if (entry.method != kDeflated) return false;
    // Divided, as the product with a claimed size could run over.
    return entry.size <= kRatioSlack ||
           (entry.size - kRatioSlack - 1) / kBestRatio < entry.compressedSize;
}

// The size of the local header, its name and its extra data, which need not be those of the
// directory; 0 when there is no local header.
std::size_t LocalHeaderSize(const std::uint8_t* header) {
    if (Le32(header) != kLocalHeaderSignature) return 0;
    return kLocalHeaderSize + Le16(header + 26) + Le16(header + 28);
}

bool LiesInFile(const ArchiveFile& file, std::uint64_t position, std::uint64_t size) {
    return position <= file.Size() && size <= file.Size() - position;
}

std::optional<EntryBytes> Checked(Block block, const Entry& entry, bool& isDamaged) {
    const auto size = static_cast<std::size_t>(entry.size);
    isDamaged = libdeflate_crc32(0, block.get(), size) != entry.crc;
    if (isDamaged) return std::nullopt;
    if (size == 0) block.reset();
    return EntryBytes{std::move(block), size};
}

std::optional<EntryBytes> ReadStored(const ArchiveFile& file, const Entry& entry, bool& isDamaged) {
    std::uint8_t header[kLocalHeaderSize];
    if (!file.ReadAt(entry.headerPosition, header, sizeof header)) return std::nullopt;
    const std::size_t headerSize = LocalHeaderSize(header);
    if (headerSize == 0) return std::nullopt;
    const std::uint64_t dataPosition = entry.headerPosition + headerSize;
    if (!LiesInFile(file, dataPosition, entry.size)) return std::nullopt;

    Block block = Allocate(entry.size);
    if (!file.ReadAt(dataPosition, block.get(), static_cast<std::size_t>(entry.size)))
        return std::nullopt;
    return Checked(std::move(block), entry, isDamaged);
}

std::optional<EntryBytes> InflateEntry(std::span<const std::uint8_t> compressed, const Entry& entry,
                                       bool& isDamaged) {
    Block block = Allocate(entry.size);
    // Some writers give an empty entry the method but no data at all.
    const bool nothing = compressed.empty() && entry.size == 0;
    isDamaged = !nothing && !Inflate(compressed, block.get(), static_cast<std::size_t>(entry.size));
    if (isDamaged) return std::nullopt;
    return Checked(std::move(block), entry, isDamaged);
}

// Header and data come with one read where the header is no longer than most.
std::optional<EntryBytes> ReadDeflated(const ArchiveFile& file, const Entry& entry,
                                       bool& isDamaged) {
    const auto compressedSize = static_cast<std::size_t>(entry.compressedSize);
    const ScratchBuffer buffer(static_cast<std::size_t>(
        std::min(kLikelyHeaderSize + entry.compressedSize, file.Size() - entry.headerPosition)));
    const std::span<std::uint8_t> bytes = buffer.Bytes();
    if (bytes.size() < kLocalHeaderSize) return std::nullopt;
    if (!file.ReadAt(entry.headerPosition, bytes.data(), bytes.size())) return std::nullopt;
    const std::size_t headerSize = LocalHeaderSize(bytes.data());
    if (headerSize == 0) return std::nullopt;
    const std::uint64_t dataPosition = entry.headerPosition + headerSize;
    if (!LiesInFile(file, dataPosition, compressedSize)) return std::nullopt;

    if (headerSize + compressedSize <= bytes.size()) {
        return InflateEntry(bytes.subspan(headerSize, compressedSize), entry, isDamaged);
    }
    if (!file.ReadAt(dataPosition, bytes.data(), compressedSize)) return std::nullopt;
    return InflateEntry(bytes.first(compressedSize), entry, isDamaged);
}

}  // namespace

std::optional<EntryBytes> ReadEntry(const ArchiveFile& file, const Entry& entry, bool* isDamaged) {
    bool ignored = false;
    bool& damaged = isDamaged == nullptr ? ignored : *isDamaged;
    damaged = false;
    if (!IsPlausible(file, entry)) return std::nullopt;
    return entry.method == kStored ? ReadStored(file, entry, damaged)
                                   : ReadDeflated(file, entry, damaged);
}

}  // namespace vexpa_runtime::zip
