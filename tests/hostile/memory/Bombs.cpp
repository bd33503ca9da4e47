#include "tests/hostile/memory/Bombs.h"

#include <libdeflate.h>

#include <cstdint>
#include <string_view>

#include "tests/opc/PackageFile.h"
#include "tests/support/ZipFile.h"

namespace vexpa_test {

namespace {

constexpr std::size_t kLocalHeaderSize = 30;

std::string PartName(std::size_t i) {
    return "p" + std::to_string(100'000 + i);
}

// A package related to so many parts, without them.
ZipFile RelatedTo(std::size_t parts) {
    std::string relationships;
    for (std::size_t i = 0; i < parts; ++i)
        relationships += RelationshipXml(PartName(i), "urn:part", PartName(i));
    ZipFile zip;
    zip.Add("[Content_Types].xml", "<Types/>");
    zip.Add("_rels/.rels", RelationshipsXml(relationships));
    return zip;
}

std::size_t DirectoryPosition(const ZipFile& zip) {
    return zip.Bytes().find("PK\x01\x02");
}

std::uint32_t Crc(std::string_view bytes) {
    return libdeflate_crc32(0, bytes.data(), bytes.size());
}

// Zeros, as an archive would hold them.
std::string DeflatedZeros(std::size_t size) {
    ZipFile zip;
    zip.Add("", std::string(size, '\0'));
    return zip.Bytes().substr(kLocalHeaderSize, DirectoryPosition(zip) - kLocalHeaderSize);
}

std::string LittleEndian16(std::size_t value) {
    return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8)};
}

// The five bytes in front of a stored block that is not the last one (RFC 1951, 3.2.4).
std::string StoredBlockHeader(std::size_t size) {
    return std::string(1, '\0') + LittleEndian16(size) + LittleEndian16(0xFFFF ^ size);
}

// The last bytes of an archive before its directory, in which all parts lie.
std::string TailOf(const ZipFile& zip, std::size_t from) {
    return zip.Bytes().substr(from, DirectoryPosition(zip) - from);
}

}  // namespace

Bomb OverlapBomb(std::size_t parts, std::size_t partSize) {
    ZipFile zip = RelatedTo(parts);
    const std::string block = DeflatedZeros(partSize);
    const std::uint32_t crc = Crc(std::string(partSize, '\0'));
    const std::size_t position = DirectoryPosition(zip);
    for (std::size_t i = 0; i < parts; ++i) {
        ZipEntry& entry = zip.Add(PartName(i), "");
        entry.directoryOnly = i != 0;
        entry.rawData = block;
        entry.localOffset = position;
        entry.size = partSize;
        entry.crc = crc;
    }
    return {zip.Bytes(), parts, partSize, block.size()};
}

Bomb QuotedOverlapBomb(std::size_t parts, std::size_t partSize) {
    ZipFile zip = RelatedTo(parts);
    const std::string kernel = DeflatedZeros(partSize);
    const std::size_t headerSize = kLocalHeaderSize + PartName(0).size();
    const std::string blockHeader = StoredBlockHeader(headerSize);
    const std::size_t first = zip.entries.size();
    for (std::size_t i = 0; i < parts; ++i) {
        const std::size_t behind = parts - 1 - i;
        ZipEntry& entry = zip.Add(PartName(i), "");
        entry.rawData = behind == 0 ? kernel : blockHeader;
        entry.compressedSize = behind * (blockHeader.size() + headerSize) + kernel.size();
        entry.size = behind * headerSize + partSize;
        entry.crc = 0;
    }
    // The local headers do not ask for the checksums, so they stay as they are while those of the
    // directory are found, from the last part to the first.
    for (ZipEntry& entry : zip.entries) entry.localCrc = 0;
    ZipFile front = zip;
    front.entries.resize(first);
    const std::string tail = TailOf(zip, DirectoryPosition(front));
    std::string content(partSize, '\0');
    for (std::size_t i = parts; i > 0; --i) {
        zip.entries[first + i - 1].crc = Crc(content);
        content.insert(0, tail, (i - 1) * (blockHeader.size() + headerSize), headerSize);
    }
    return {zip.Bytes(), parts, partSize + (parts - 1) * headerSize,
            kernel.size() + (parts - 1) * (blockHeader.size() + headerSize)};
}

Bomb ExtraFieldBomb(std::size_t parts, std::size_t partSize) {
    ZipFile zip = RelatedTo(parts);
    const std::string kernel = DeflatedZeros(partSize);
    const std::size_t headerSize = kLocalHeaderSize + PartName(0).size();
    const std::uint32_t crc = Crc(std::string(partSize, '\0'));
    const std::size_t position = DirectoryPosition(zip);
    for (std::size_t i = 0; i < parts; ++i) {
        ZipEntry& entry = zip.Add(PartName(i), "");
        entry.rawData = i + 1 == parts ? kernel : "";
        entry.compressedSize = kernel.size();
        entry.size = partSize;
        entry.crc = crc;
    }
    std::string bytes = zip.Bytes();
    for (std::size_t i = 0; i < parts; ++i) {
        constexpr std::size_t kExtraSizeAt = 28;
        bytes.replace(position + i * headerSize + kExtraSizeAt, 2,
                      LittleEndian16((parts - 1 - i) * headerSize));
    }
    return {bytes, parts, partSize, kernel.size()};
}

Bomb LargePart(std::size_t partSize) {
    ZipFile zip = RelatedTo(1);
    zip.Add(PartName(0), std::string(partSize, '\0'));
    return {zip.Bytes(), 1, partSize, DeflatedZeros(partSize).size()};
}

}  // namespace vexpa_test
