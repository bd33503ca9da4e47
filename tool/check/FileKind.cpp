#include "tool/check/FileKind.h"

#include <algorithm>
#include <string>

namespace vexpa_tool {

namespace {

using namespace std::string_view_literals;

struct Magic {
    std::string_view bytes;
    const char* kind;
};

constexpr Magic kMagics[] = {
    {"%PDF-"sv, "a PDF document"},
    {"{\\rtf"sv, "an RTF document"},
    {"\x1F\x8B"sv, "a gzip file"},
    {"BZh"sv, "a bzip2 file"},
    {"\xFD"
     "7zXZ\0"sv,
     "an xz file"},
    {"7z\xBC\xAF\x27\x1C"sv, "a 7z archive"},
    {"Rar!\x1A\x07"sv, "a RAR archive"},
    {"MSCF"sv, "a cabinet file"},
    {"\x89PNG"sv, "a PNG image"},
    {"\xFF\xD8\xFF"sv, "a JPEG image"},
    {"GIF8"sv, "a GIF image"},
    {"\x7F"
     "ELF"sv,
     "a program"},
    {"MZ"sv, "a program"},
    {"\xDB\xA5-\0"sv, "a legacy word processing document"},
    {"\x31\xBE\0\0"sv, "a legacy word processing document"},
    {"\x09\x08\x10\0"sv, "a legacy spreadsheet"},
    {"\x09\x04\x06\0"sv, "a legacy spreadsheet"},
    {"\x09\x02\x06\0"sv, "a legacy spreadsheet"},
    {"MIME-Version:"sv, "a mail message or web archive"},
    {"From: "sv, "a mail message or web archive"},
    {"version https://git-lfs"sv, "a Git LFS pointer in place of the file"},
};

constexpr std::string_view kCompoundFile = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

std::string Lower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return lower;
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    const std::size_t start = text.find_first_not_of(" \t\r\n");
    return text.substr(std::min(start, text.size()));
}

bool IsText(std::string_view bytes) {
    return std::none_of(bytes.begin(), bytes.end(), [](char c) {
        return (static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\r' && c != '\n' &&
                c != '\f') ||
               c == '\x7F';
    });
}

// The user's name behind its length, in a record of a fixed size.
bool IsOwnerFile(std::string_view fileName, std::uint64_t fileSize) {
    const bool isOwnerSize = fileSize == 162 || fileSize == 165;
    return isOwnerSize && (fileName.starts_with("~$") || fileName.starts_with("~_"));
}

}  // namespace

bool LooksLikeCompoundFile(std::string_view firstBytes) {
    return firstBytes.starts_with(kCompoundFile);
}

std::string LooksLike(std::string_view firstBytes, std::string_view fileName, std::uint64_t fileSize) {
    if (IsOwnerFile(fileName, fileSize)) return "the lock file that an editor keeps beside a document";
    for (const Magic& magic : kMagics) {
        if (firstBytes.starts_with(magic.bytes)) return magic.kind;
    }
    if (std::all_of(firstBytes.begin(), firstBytes.end(), [](char c) { return c == '\0'; })) {
        return "nothing but zeros, as a disk that was not written leaves them";
    }
    const std::string start = Lower(WithoutLeadingBlanks(firstBytes));
    if (start.starts_with("<!doctype html") || start.starts_with("<html")) return "a web page";
    if (start.find("<html") != std::string::npos) return "a web page";
    if (start.find("<pkg:package") != std::string::npos) return "a flat package: one XML file";
    if (start.starts_with("<?xml") || (start.starts_with("<") && IsText(start)))
        return "an XML document";
    if (!start.empty() && IsText(firstBytes)) return "plain text";
    return {};
}

}  // namespace vexpa_tool
