#include "tests/support/ZipFile.h"

#include <libdeflate.h>

#include <memory>

namespace vexpa_test {

namespace {

constexpr std::uint32_t kLocalHeader = 0x04034b50;
constexpr std::uint32_t kDirectoryHeader = 0x02014b50;
constexpr std::uint32_t kDescriptor = 0x08074b50;
constexpr std::uint32_t kEnd = 0x06054b50;
constexpr std::uint32_t kEnd64 = 0x06064b50;
constexpr std::uint32_t kEnd64Locator = 0x07064b50;
constexpr std::uint16_t kDescriptorFlag = 0x0008;

void Put(std::string& out, std::uint64_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
}

std::uint64_t Clip(std::uint64_t value, bool to64) {
    return to64 ? 0xFFFFFFFF : value;
}

struct FreeCompressor {
    void operator()(libdeflate_compressor* compressor) const { libdeflate_free_compressor(compressor); }
};

std::string Deflate(std::string_view content) {
    // Making one costs more than compressing what tests and fuzz targets put in.
    thread_local const std::unique_ptr<libdeflate_compressor, FreeCompressor> compressor(
        libdeflate_alloc_compressor(6));
    std::string out(libdeflate_deflate_compress_bound(compressor.get(), content.size()), '\0');
    out.resize(libdeflate_deflate_compress(compressor.get(), content.data(), content.size(), out.data(),
                                           out.size()));
    return out;
}

struct Header {
    std::uint16_t method;
    std::uint32_t crc;
    std::uint64_t compressedSize;
    std::uint64_t size;
    std::uint64_t offset;
    std::uint16_t flags;
};

std::string Zip64Extra(const Header& header, bool withOffset) {
    std::string extra;
    Put(extra, 0x0001, 2);
    Put(extra, withOffset ? 24 : 16, 2);
    Put(extra, header.size, 8);
    Put(extra, header.compressedSize, 8);
    if (withOffset) Put(extra, header.offset, 8);
    return extra;
}

void PutLocal(std::string& out, const ZipEntry& entry, const Header& header) {
    const std::string name = entry.localName.value_or(entry.name);
    const bool later = entry.dataDescriptor;
    const std::uint64_t compressedSize =
        entry.localCompressedSize.value_or(later ? 0 : Clip(header.compressedSize, entry.zip64));
    const std::uint64_t size = entry.localSize.value_or(later ? 0 : Clip(header.size, entry.zip64));
    const std::string extra =
        (entry.zip64 && !later ? Zip64Extra(header, false) : std::string()) + entry.localExtra;
    Put(out, kLocalHeader, 4);
    Put(out, entry.zip64 ? 45 : 20, 2);
    Put(out, header.flags, 2);
    Put(out, entry.localMethod.value_or(header.method), 2);
    Put(out, 0, 2);       // time
    Put(out, 0x0021, 2);  // date: 1980-01-01
    Put(out, entry.localCrc.value_or(later ? 0 : header.crc), 4);
    Put(out, compressedSize, 4);
    Put(out, size, 4);
    Put(out, name.size(), 2);
    Put(out, extra.size(), 2);
    out += name + extra;
}

void PutDescriptor(std::string& out, const ZipEntry& entry, const Header& header) {
    if (entry.descriptorSignature) Put(out, kDescriptor, 4);
    Put(out, header.crc, 4);
    Put(out, header.compressedSize, entry.zip64 ? 8 : 4);
    Put(out, header.size, entry.zip64 ? 8 : 4);
}

void PutDirectoryHeader(std::string& out, const ZipEntry& entry, const Header& header) {
    const std::string extra = (entry.zip64 ? Zip64Extra(header, true) : std::string()) + entry.extra;
    Put(out, kDirectoryHeader, 4);
    Put(out, entry.madeBy, 2);
    Put(out, entry.zip64 ? 45 : 20, 2);
    Put(out, header.flags, 2);
    Put(out, header.method, 2);
    Put(out, 0, 2);
    Put(out, 0x0021, 2);
    Put(out, header.crc, 4);
    Put(out, Clip(header.compressedSize, entry.zip64), 4);
    Put(out, Clip(header.size, entry.zip64), 4);
    Put(out, entry.name.size(), 2);
    Put(out, extra.size(), 2);
    Put(out, entry.comment.size(), 2);
    Put(out, entry.disk, 2);
    Put(out, 0, 2);  // internal attributes
    Put(out, entry.attributes, 4);
    Put(out, Clip(header.offset, entry.zip64), 4);
    out += entry.name + extra + entry.comment;
}

}  // namespace

ZipEntry& ZipFile::Add(std::string name, std::string content) {
    ZipEntry entry;
    entry.name = std::move(name);
    entry.content = std::move(content);
    entries.push_back(std::move(entry));
    return entries.back();
}

std::string ZipFile::Bytes() const {
    std::string body;
    std::string directory;
    for (const ZipEntry& entry : entries) {
        const std::string data =
            entry.rawData.value_or(entry.stored ? entry.content : Deflate(entry.content));
        Header header{};
        header.method = entry.method.value_or(entry.stored ? std::uint16_t{0} : std::uint16_t{8});
        header.crc =
            entry.crc.value_or(libdeflate_crc32(0, entry.content.data(), entry.content.size()));
        header.compressedSize = entry.compressedSize.value_or(data.size());
        header.size = entry.size.value_or(entry.content.size());
        header.offset = entry.localOffset.value_or(body.size());
        header.flags = entry.flags;
        if (entry.dataDescriptor)
            header.flags = static_cast<std::uint16_t>(header.flags | kDescriptorFlag);

        if (!entry.directoryOnly) {
            PutLocal(body, entry, header);
            body += data;
            if (entry.dataDescriptor) PutDescriptor(body, entry, header);
        }
        PutDirectoryHeader(directory, entry, header);
    }

    const std::uint64_t count = entryCount.value_or(entries.size());
    const std::uint64_t size = directorySize.value_or(directory.size());
    const std::uint64_t offset = directoryOffset.value_or(body.size());
    const bool only64 = zip64 && !plainToo;
    std::string end = gap;
    if (zip64) {
        const std::uint64_t end64At = body.size() + directory.size() + gap.size();
        Put(end, kEnd64, 4);
        Put(end, 44, 8);  // size of what follows
        Put(end, 45, 2);
        Put(end, 45, 2);
        Put(end, disk, 4);
        Put(end, disk, 4);
        Put(end, count, 8);
        Put(end, count, 8);
        Put(end, size, 8);
        Put(end, offset, 8);
        end += gap64;
        Put(end, kEnd64Locator, 4);
        Put(end, disk, 4);
        Put(end, end64Position.value_or(end64At), 8);
        Put(end, 1, 4);
    }
    Put(end, kEnd, 4);
    Put(end, disk, 2);
    Put(end, disk, 2);
    for (int i = 0; i < 2; ++i) Put(end, plainCount.value_or(only64 ? 0xFFFF : count), 2);
    Put(end, plainSize.value_or(Clip(size, only64)), 4);
    Put(end, plainOffset.value_or(Clip(offset, only64)), 4);
    Put(end, commentSize.value_or(comment.size()), 2);
    return prefix + body + directory + end + comment + suffix;
}

}  // namespace vexpa_test
