#include "tool/check/ArchiveWriter.h"

#include <libdeflate.h>

namespace vexpa_tool {

namespace {

// APPNOTE 4.3.7, 4.3.12 and 4.3.16.
constexpr std::string_view kLocalHeader = "PK\3\4";
constexpr std::string_view kDirectoryHeader = "PK\1\2";
constexpr std::string_view kEndRecord = "PK\5\6";
constexpr std::uint64_t kMadeByUnix = 0x0314;
constexpr std::uint64_t kVersion = 20;
constexpr std::uint64_t kUtf8Flag = 0x0800;

void Put(std::string& out, std::uint64_t number, int bytes) {
    for (; bytes > 0; --bytes, number >>= 8) out.push_back(static_cast<char>(number & 0xFF));
}

// The fields that both headers have, from the version on.
void PutCommon(std::string& out, std::string_view name, std::size_t size, std::uint32_t crc) {
    Put(out, kVersion, 2);
    Put(out, kUtf8Flag, 2);
    Put(out, 0, 6);  // stored; no time
    Put(out, crc, 4);
    Put(out, size, 4);
    Put(out, size, 4);
    Put(out, name.size(), 2);
    Put(out, 0, 2);  // no extra data
}

}  // namespace

void ArchiveWriter::Add(std::string_view name, std::string_view content) {
    Add(name, content, libdeflate_crc32(0, content.data(), content.size()));
}

void ArchiveWriter::AddDamaged(std::string_view name) {
    constexpr std::uint32_t kWrongCrc = 1;
    Add(name, {}, kWrongCrc);
}

void ArchiveWriter::Add(std::string_view name, std::string_view content, std::uint32_t crc) {
    const std::size_t offset = body_.size();
    body_ += kLocalHeader;
    PutCommon(body_, name, content.size(), crc);
    body_.append(name).append(content);

    directory_ += kDirectoryHeader;
    Put(directory_, kMadeByUnix, 2);
    PutCommon(directory_, name, content.size(), crc);
    Put(directory_, 0, 10);  // no comment, one disk, no attributes
    Put(directory_, offset, 4);
    directory_ += name;
    ++count_;
}

std::string ArchiveWriter::Finish() {
    const std::size_t offset = body_.size();
    body_ += directory_;
    body_ += kEndRecord;
    Put(body_, 0, 4);       // one disk
    Put(body_, count_, 2);  // its low bits are enough where the size agrees
    Put(body_, count_, 2);
    Put(body_, directory_.size(), 4);
    Put(body_, offset, 4);
    Put(body_, 0, 2);
    return std::move(body_);
}

}  // namespace vexpa_tool
