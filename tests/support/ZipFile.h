// tests/support/ZipFile.h - builds zip archives in memory, sound ones and lying ones.
#ifndef VEXPA_TESTS_SUPPORT_ZIPFILE_H_
#define VEXPA_TESTS_SUPPORT_ZIPFILE_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexpa_test {

// One entry, with everything its headers say (APPNOTE 4.3.7, 4.3.12). A field that is not
// set tells the truth.
struct ZipEntry {
    std::string name;
    std::string content;
    bool stored = false;  // else deflated
    std::uint16_t flags = 0;
    std::uint16_t madeBy = 0x031E;  // Unix, 3.0
    bool dataDescriptor = false;
    bool descriptorSignature = true;
    bool zip64 = false;  // sizes and offset in the extra field

    std::optional<std::uint16_t> method;
    std::optional<std::uint32_t> crc;
    std::optional<std::uint64_t> compressedSize;
    std::optional<std::uint64_t> size;
    std::optional<std::uint64_t> localOffset;
    std::optional<std::string> localName;
    std::optional<std::uint16_t> localMethod;
    std::optional<std::uint32_t> localCrc;
    std::optional<std::uint64_t> localSize;
    std::optional<std::uint64_t> localCompressedSize;
    std::optional<std::string> rawData;  // in place of the compressed content
    std::string extra;                   // more extra fields in the directory
    std::string localExtra;              // and in the local header
    std::string comment;                 // in the directory
    std::uint16_t disk = 0;
    std::uint32_t attributes = 0;  // external: from Unix, the mode in the upper half
    bool directoryOnly = false;    // no local header, no data: localOffset says where those are
};

// An archive: entries in order, then the directory and its end record (APPNOTE 4.3.6).
struct ZipFile {
    std::vector<ZipEntry> entries;
    std::string prefix;  // bytes before the archive; offsets count from after it
    std::string suffix;  // bytes after it
    std::string gap;     // bytes between the directory and its end record
    std::string comment;
    bool zip64 = false;     // zip64 end record and locator
    bool plainToo = false;  // with them, the end record's own fields tell the truth as well
    std::string gap64;      // bytes between the zip64 end record and its locator
    std::optional<std::uint64_t> entryCount;
    std::optional<std::uint64_t> directorySize;
    std::optional<std::uint64_t> directoryOffset;
    // In the plain end record only, for the archive with two opinions.
    std::optional<std::uint16_t> plainCount;
    std::optional<std::uint32_t> plainSize;
    std::optional<std::uint32_t> plainOffset;
    std::optional<std::uint16_t> commentSize;
    std::optional<std::uint64_t> end64Position;  // in the locator
    std::uint16_t disk = 0;

    ZipEntry& Add(std::string name, std::string content);

    std::string Bytes() const;
};

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_SUPPORT_ZIPFILE_H_
