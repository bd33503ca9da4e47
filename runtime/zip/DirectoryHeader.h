// runtime/zip/DirectoryHeader.h - one header of an archive's central directory, as it lies there.
#ifndef VEXPA_RUNTIME_ZIP_DIRECTORYHEADER_H_
#define VEXPA_RUNTIME_ZIP_DIRECTORYHEADER_H_

#include <cstddef>
#include <cstdint>

#include "runtime/zip/LittleEndian.h"

namespace vexpa_runtime::zip {

constexpr std::uint32_t kDirectoryHeaderSignature = 0x02014b50;
constexpr std::size_t kDirectoryHeaderSize = 46;  // APPNOTE 4.3.12
constexpr std::uint16_t kEncryptedFlag = 0x0001;

// The header's fixed fields. Name and extra data follow, the comment after them.
struct DirectoryHeader {
    const std::uint8_t* bytes;

    std::uint16_t MadeBy() const { return Le16(bytes + 4); }
    std::uint8_t Host() const { return bytes[5]; }
    std::uint16_t NeededVersion() const { return Le16(bytes + 6); }
    std::uint16_t Flags() const { return Le16(bytes + 8); }
    std::uint16_t Method() const { return Le16(bytes + 10); }
    std::uint16_t Time() const { return Le16(bytes + 12); }
    std::uint16_t Date() const { return Le16(bytes + 14); }
    std::uint32_t Crc() const { return Le32(bytes + 16); }
    std::uint32_t CompressedSize() const { return Le32(bytes + 20); }
    std::uint32_t Size() const { return Le32(bytes + 24); }
    std::size_t NameSize() const { return Le16(bytes + 28); }
    std::size_t ExtraSize() const { return Le16(bytes + 30); }
    std::size_t CommentSize() const { return Le16(bytes + 32); }
    std::uint16_t Disk() const { return Le16(bytes + 34); }
    std::uint32_t ExternalAttributes() const { return Le32(bytes + 38); }
    std::uint32_t Offset() const { return Le32(bytes + 42); }

    const std::uint8_t* Name() const { return bytes + kDirectoryHeaderSize; }
    const std::uint8_t* Extra() const { return Name() + NameSize(); }
    std::size_t SizeWithoutComment() const { return kDirectoryHeaderSize + NameSize() + ExtraSize(); }
};

struct WideFields {
    std::uint64_t size;
    std::uint64_t compressedSize;
    std::uint64_t offset;
    std::uint32_t disk;
};

// Sizes, offset and disk, the zip64 field worked in.
WideFields ReadWideFields(const DirectoryHeader& header);

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_DIRECTORYHEADER_H_
