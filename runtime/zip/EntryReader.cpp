#include "runtime/zip/EntryReader.h"

#include <libdeflate.h>
#include <sys/mman.h>

#include <algorithm>
#include <cstdint>
#include <new>
#include <span>
#include <utility>

#include "runtime/zip/EntryFormat.h"
#include "runtime/zip/Inflate.h"
#include "runtime/zip/LittleEndian.h"
#include "runtime/zip/ScratchBuffer.h"

namespace vexpa_runtime::zip {

namespace {

// Name and extra data of a local header seldom need more. Some writers put half a kilobyte
// of room to grow into the extra data of the entries that every reader reads first.
constexpr std::uint64_t kLikelyHeaderSize = 1024;

constexpr std::size_t kHugePage = 2UL * 1024 * 1024;

// Check sums are taken of stored data while it is still in the processor's cache.
constexpr std::size_t kPiece = 128UL * 1024;

using Block = std::unique_ptr<char, FreeMemory>;

// From malloc, as the receiver calls free. A large block is aligned to huge pages, and asks for them:
// one fault for 2 MiB costs less than one for each 4 KiB. The alignment takes up to 4 MiB of addresses
// more, but no memory.
void* AllocateBytes(std::size_t size) {
    if (size < kHugePage) return std::malloc(size == 0 ? 1 : size);
    void* bytes = nullptr;
    if (posix_memalign(&bytes, kHugePage, size) != 0) return nullptr;
    madvise(bytes, size, MADV_HUGEPAGE);
    return bytes;
}

Block Allocate(std::uint64_t size) {
    Block block(static_cast<char*>(AllocateBytes(static_cast<std::size_t>(size))));
    if (block == nullptr) throw std::bad_alloc();
    return block;
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

std::optional<EntryBytes> Checked(Block block, const Entry& entry, std::uint32_t crc, bool& isDamaged) {
    const auto size = static_cast<std::size_t>(entry.size);
    isDamaged = crc != entry.crc;
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
    std::uint32_t crc = 0;
    for (std::size_t done = 0; done < entry.size; done += kPiece) {
        const auto size = static_cast<std::size_t>(std::min<std::uint64_t>(kPiece, entry.size - done));
        if (!file.ReadAt(dataPosition + done, block.get() + done, size)) return std::nullopt;
        crc = libdeflate_crc32(crc, block.get() + done, size);
    }
    return Checked(std::move(block), entry, crc, isDamaged);
}

std::optional<EntryBytes> InflateEntry(std::span<const std::uint8_t> compressed, const Entry& entry,
                                       bool& isDamaged) {
    Block block = Allocate(entry.size);
    // Some writers give an empty entry the method but no data at all.
    const bool nothing = compressed.empty() && entry.size == 0;
    const auto size = static_cast<std::size_t>(entry.size);
    isDamaged = !nothing && !Inflate(compressed, block.get(), size);
    if (isDamaged) return std::nullopt;
    const std::uint32_t crc = libdeflate_crc32(0, block.get(), size);
    return Checked(std::move(block), entry, crc, isDamaged);
}

// Bytes of the file: where they lie in memory already, or else read into a buffer.
class FileBytes {
public:
    bool Take(const ArchiveFile& file, std::uint64_t position, std::size_t size) {
        bytes_ = {file.View(position, size), size};
        if (bytes_.data() != nullptr) return true;
        buffer_.emplace(size);
        bytes_ = buffer_->Bytes();
        return file.ReadAt(position, buffer_->Bytes().data(), size);
    }
    std::span<const std::uint8_t> Get() const noexcept { return bytes_; }

private:
    std::optional<ScratchBuffer> buffer_;
    std::span<const std::uint8_t> bytes_;
};

// Header and data come with one read where the header is no longer than most.
std::optional<EntryBytes> ReadDeflated(const ArchiveFile& file, const Entry& entry, bool& isDamaged) {
    const auto compressedSize = static_cast<std::size_t>(entry.compressedSize);
    FileBytes bytes;
    if (!bytes.Take(file, entry.headerPosition, static_cast<std::size_t>(LikelySize(file, entry)))) {
        return std::nullopt;
    }
    if (bytes.Get().size() < kLocalHeaderSize) return std::nullopt;
    const std::size_t headerSize = LocalHeaderSize(bytes.Get().data());
    if (headerSize == 0) return std::nullopt;
    const std::uint64_t dataPosition = entry.headerPosition + headerSize;
    if (!LiesInFile(file, dataPosition, compressedSize)) return std::nullopt;

    if (headerSize + compressedSize <= bytes.Get().size()) {
        return InflateEntry(bytes.Get().subspan(headerSize, compressedSize), entry, isDamaged);
    }
    if (!bytes.Take(file, dataPosition, compressedSize)) return std::nullopt;
    return InflateEntry(bytes.Get(), entry, isDamaged);
}

}  // namespace

bool IsPlausible(const ArchiveFile& file, const Entry& entry) noexcept {
    if (entry.encrypted || entry.onOtherDisk || entry.overlaps) return false;
    if (entry.headerPosition > file.Size() || entry.compressedSize > file.Size()) return false;
    if (entry.method == kStored) return entry.size == entry.compressedSize;
    return entry.method == kDeflated && MayInflateTo(entry.size, entry.compressedSize);
}

std::uint64_t LikelySize(const ArchiveFile& file, const Entry& entry) noexcept {
    return std::min(kLikelyHeaderSize + entry.compressedSize, file.Size() - entry.headerPosition);
}

bool IsInMemory(const ArchiveFile& file, const Entry& entry) noexcept {
    if (!IsPlausible(file, entry)) return false;
    const std::uint64_t size = LikelySize(file, entry);
    const std::uint8_t* bytes = file.View(entry.headerPosition, static_cast<std::size_t>(size));
    if (bytes == nullptr || size < kLocalHeaderSize) return false;
    const std::size_t headerSize = LocalHeaderSize(bytes);
    return headerSize != 0 && headerSize + entry.compressedSize <= size;
}

std::optional<EntryBytes> ReadEntry(const ArchiveFile& file, const Entry& entry, bool* isDamaged) {
    bool ignored = false;
    bool& damaged = isDamaged == nullptr ? ignored : *isDamaged;
    damaged = false;
    if (!IsPlausible(file, entry)) return std::nullopt;
    return entry.method == kStored ? ReadStored(file, entry, damaged)
                                   : ReadDeflated(file, entry, damaged);
}

}  // namespace vexpa_runtime::zip
