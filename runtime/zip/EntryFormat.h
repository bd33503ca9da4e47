// runtime/zip/EntryFormat.h - what the format says of an entry's own header, and of its data.
#ifndef VEXPA_RUNTIME_ZIP_ENTRYFORMAT_H_
#define VEXPA_RUNTIME_ZIP_ENTRYFORMAT_H_

#include <cstddef>
#include <cstdint>

namespace vexpa_runtime::zip {

// The header before the data, whose name and extra data need not be those of the directory.
constexpr std::uint32_t kLocalHeaderSignature = 0x04034b50;
constexpr std::size_t kLocalHeaderSize = 30;  // APPNOTE 4.3.7

// Methods (APPNOTE 4.4.5): those that are read.
constexpr std::uint16_t kStored = 0;
constexpr std::uint16_t kDeflated = 8;

// Deflate turns two bits into 258 bytes at best, a ratio of 1032; small data gets some slack.
constexpr std::uint64_t kBestRatio = 1032;
constexpr std::uint64_t kRatioSlack = 64UL * 1024;

// Whether so much deflated data can hold so many bytes.
constexpr bool MayInflateTo(std::uint64_t size, std::uint64_t compressedSize) noexcept {
    // Divided, as the product with a claimed size could run over.
    return size <= kRatioSlack || (size - kRatioSlack - 1) / kBestRatio < compressedSize;
}

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_ENTRYFORMAT_H_
