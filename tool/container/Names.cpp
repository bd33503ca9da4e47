#include "tool/container/Names.h"

#include <cstdio>

namespace vexpa_tool {

namespace {

struct Name {
    std::uint16_t number;
    const char* text;
};

constexpr Name kMethods[] = {
    {0, "stored"},    {1, "shrunk"},   {2, "reduced-1"}, {3, "reduced-2"}, {4, "reduced-3"},
    {5, "reduced-4"}, {6, "imploded"}, {8, "deflate"},   {9, "deflate64"}, {10, "dcl-implode"},
    {12, "bzip2"},    {14, "lzma"},    {16, "cmpsc"},    {18, "terse"},    {19, "lz77"},
    {20, "zstd-old"}, {93, "zstd"},    {94, "mp3"},      {95, "xz"},       {96, "jpeg"},
    {97, "wavpack"},  {98, "ppmd"},    {99, "aes"},
};

constexpr Name kHosts[] = {
    {0, "FAT"},   {1, "Amiga"}, {2, "OpenVMS"},   {3, "Unix"},     {4, "VM/CMS"},
    {5, "Atari"}, {6, "HPFS"},  {7, "Macintosh"}, {8, "Z-System"}, {9, "CP/M"},
    {10, "NTFS"}, {11, "NTFS"}, {12, "VSE"},      {13, "Acorn"},   {14, "VFAT"},
    {15, "MVS"},  {16, "BeOS"}, {17, "Tandem"},   {18, "OS/400"},  {19, "Darwin"},
};

constexpr Name kExtraFields[] = {
    {0x0001, "zip64"},
    {0x000A, "NTFS times"},
    {0x000D, "Unix"},
    {0x0017, "strong encryption"},
    {0x5455, "times"},
    {0x5855, "Unix times"},
    {0x6375, "Unicode comment"},
    {0x7075, "Unicode path"},
    {0x7855, "Unix ids"},
    {0x7875, "Unix ids"},
    {0x9901, "AES"},
    {0xA220, "growth hint"},
    {0xCAFE, "jar"},
    {0xD935, "alignment"},
};

template <std::size_t Count>
const char* Find(const Name (&names)[Count], std::uint16_t number) {
    for (const Name& name : names) {
        if (name.number == number) return name.text;
    }
    return nullptr;
}

}  // namespace

std::string MethodName(std::uint16_t method) {
    const char* name = Find(kMethods, method);
    return name != nullptr ? name : "method " + std::to_string(method);
}

std::string HostName(std::uint8_t host) {
    const char* name = Find(kHosts, host);
    return name != nullptr ? name : "host " + std::to_string(host);
}

std::string ExtraFieldName(std::uint16_t id) {
    if (const char* name = Find(kExtraFields, id)) return name;
    char text[8];
    std::snprintf(text, sizeof text, "0x%04X", id);
    return text;
}

std::string DosTimeText(std::uint16_t date, std::uint16_t time) {
    char text[40];
    std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u:%02u", 1980U + (date >> 9U),
                  (date >> 5U) & 0xFU, date & 0x1FU, static_cast<unsigned>(time) >> 11U,
                  (time >> 5U) & 0x3FU, (time & 0x1FU) * 2U);
    return text;
}

}  // namespace vexpa_tool
