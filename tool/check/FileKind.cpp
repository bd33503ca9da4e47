#include "tool/check/FileKind.h"

#include <algorithm>
#include <string>

namespace vexpa_tool {

namespace {

using namespace std::string_view_literals;

constexpr const char* kElsewhere = "give it to a program for that kind of file";
constexpr const char* kUnpack = "unpack it; the document may be inside";
constexpr const char* kLegacy = "give it to an importer of the binary format, or convert it";
constexpr const char* kDownload =
    "read it: where a download fails, the message is often saved in place of the file";

struct Magic {
    std::string_view bytes;
    FileLook look;
};

constexpr Magic kMagics[] = {
    {"%PDF-"sv, {"a PDF document", kElsewhere}},
    {"{\\rtf"sv, {"an RTF document", kElsewhere}},
    {"\x1F\x8B"sv, {"a gzip file", kUnpack}},
    {"BZh"sv, {"a bzip2 file", kUnpack}},
    {"\xFD"
     "7zXZ\0"sv,
     {"an xz file", kUnpack}},
    {"7z\xBC\xAF\x27\x1C"sv, {"a 7z archive", kUnpack}},
    {"Rar!\x1A\x07"sv, {"a RAR archive", kUnpack}},
    {"MSCF"sv, {"a cabinet file", kUnpack}},
    {"\x89PNG"sv, {"a PNG image", kElsewhere}},
    {"\xFF\xD8\xFF"sv, {"a JPEG image", kElsewhere}},
    {"GIF8"sv, {"a GIF image", kElsewhere}},
    {"\x7F"
     "ELF"sv,
     {"a program", "do not run it for being called a document"}},
    {"MZ"sv, {"a program", "do not run it for being called a document"}},
    {"\xDB\xA5-\0"sv, {"a legacy word processing document", kLegacy}},
    {"\x31\xBE\0\0"sv, {"a legacy word processing document", kLegacy}},
    {"\x09\x08\x10\0"sv, {"a legacy spreadsheet", kLegacy}},
    {"\x09\x04\x06\0"sv, {"a legacy spreadsheet", kLegacy}},
    {"\x09\x02\x06\0"sv, {"a legacy spreadsheet", kLegacy}},
    {"MIME-Version:"sv, {"a mail message or web archive", kElsewhere}},
    {"From: "sv, {"a mail message or web archive", kElsewhere}},
    {"version https://git-lfs"sv,
     {"a Git LFS pointer in place of the file", "fetch the file itself with 'git lfs pull'"}},
};

constexpr FileLook kLockFile = {"the lock file that an editor keeps beside a document",
                                "leave it to the editor; the document has the name without '~$'"};
constexpr FileLook kZeros = {"nothing but zeros, as a disk that was not written leaves them",
                             "obtain the file again"};
constexpr FileLook kWebPage = {"a web page", kDownload};
constexpr FileLook kFlatPackage = {"a flat package: one XML file",
                                   "open it in an editor and save it as a document of the usual kind"};
constexpr FileLook kXml = {"an XML document", kElsewhere};
constexpr FileLook kPlainText = {"plain text", kDownload};

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

FileLook LookAtFile(std::string_view firstBytes, std::string_view fileName, std::uint64_t fileSize) {
    if (IsOwnerFile(fileName, fileSize)) return kLockFile;
    for (const Magic& magic : kMagics) {
        if (firstBytes.starts_with(magic.bytes)) return magic.look;
    }
    if (std::all_of(firstBytes.begin(), firstBytes.end(), [](char c) { return c == '\0'; }))
        return kZeros;
    const std::string start = Lower(WithoutLeadingBlanks(firstBytes));
    const bool isWebPage =
        start.starts_with("<!doctype html") || start.find("<html") != std::string::npos;
    if (isWebPage) return kWebPage;
    if (start.find("<pkg:package") != std::string::npos) return kFlatPackage;
    if (start.starts_with("<?xml") || (start.starts_with("<") && IsText(start))) return kXml;
    return !start.empty() && IsText(firstBytes) ? kPlainText : FileLook();
}

}  // namespace vexpa_tool
