#include <libdeflate.h>

#include "tests/tool/check/FindingRows.h"

namespace vexpa_test {

namespace {

std::string UnicodePathField(const std::string& standsFor, const std::string& name) {
    const std::uint32_t crc = libdeflate_crc32(0, standsFor.data(), standsFor.size());
    std::string field("\x75\x70", 2);
    field.push_back(static_cast<char>(name.size() + 5));
    field.append("\0\1", 2);
    for (unsigned shift = 0; shift < 32; shift += 8) field.push_back(static_cast<char>(crc >> shift));
    return field + name;
}

// One more entry, to which nothing leads.
std::string With(const std::string& name, const std::function<void(ZipEntry&)>& change = nullptr) {
    return Spoiled([&](SoundPackage& p) {
        ZipEntry& entry = p.Add(name, "x");
        if (change) change(entry);
    });
}

}  // namespace

FindingRows EntryNameRows() {
    const std::uint16_t kFat = 0x0014;
    return {
        {"a backslash", With("a/b\\c.png"), "VX104 VX410"},
        {"a backslash that is read as a slash", With("a\\c.png", [&](ZipEntry& e) { e.madeBy = kFat; }),
         "VX104 VX410"},
        {"the same name twice", With("word/media/image1.png"), "VX105"},
        {"the same name in another case", With("Word/media/Image1.png"), "VX106 VX410"},
        {"a Unicode path",
         With("a.png", [](ZipEntry& e) { e.extra = UnicodePathField("a.png", "b.png"); }),
         "VX108 VX410"},
        {"a Unicode path of the same name",
         With("a.png", [](ZipEntry& e) { e.extra = UnicodePathField("a.png", "a.png"); }), "VX410"},
        {"a star", With("a*.png"), "VX110 VX410"},
        {"code page 437", With("a\x81.png"), "VX111 VX410"},
        {"UTF-8 is nothing", With("\u00fc.png"), "VX410"},
        {"a leading slash", With("/word/more.png"), "VX114 VX410"},
        {"a piece", With("a.png/[0].piece"), "VX410 VX503"},
        {"the last piece", With("a.png/[1].last.piece"), "VX410 VX503"},
        {"a folder is nothing", With("word/"), ""},
        {"two dots", With("../a.png"), "VX410 VX606"},
        {"one dot", With("word/./a.png"), "VX410 VX606"},
        {"an empty segment", With("word//a.png"), "VX410 VX606"},
        {"a drive letter", With("c:/a.png"), "VX410 VX606"},
        {"a control character", With("a\x1b.png"), "VX410 VX609"},
        {"a NUL", With(std::string("a\0b.png", 7)), "VX410 VX609"},
        {"a turn of the direction of writing", With("a\u202egnp.exe"), "VX410 VX609"},
        {"dots inside a segment are nothing", With("a..b/c...png"), "VX410"},
    };
}

}  // namespace vexpa_test
