#include <gtest/gtest.h>

#include "runtime/zip/EntryName.h"

namespace {

using namespace std::string_view_literals;

std::string Decoded(std::string_view bytes, int host) {
    std::string name = "before/";  // what stands before must not take part
    vexpa_runtime::zip::AppendEntryName(name, bytes, static_cast<std::uint8_t>(host));
    return name.substr(7);
}

TEST(EntryName, IsUtf8WhenValidAndCodePage437Otherwise) {
    EXPECT_EQ(Decoded("M\xC3\xBCller", 3), "M\xC3\xBCller");
    EXPECT_EQ(Decoded("M\x81ller", 3), "M\xC3\xBCller");
    EXPECT_EQ(Decoded("\xE0\xE1\xFF", 3), "\xCE\xB1\xC3\x9F\xC2\xA0");
}

TEST(EntryName, TurnsBackslashesOfHostsThatWriteThem) {
    struct Row {
        const char* what;
        int host;
        std::string_view bytes;
        std::string_view name;
    };
    const Row rows[] = {
        {"FAT", 0, "xl\\_rels\\a.rels", "xl/_rels/a.rels"},
        {"NTFS", 10, "xl\\a", "xl/a"},
        {"NTFS as Info-ZIP numbers it", 11, "xl\\a", "xl/a"},
        {"VFAT", 14, "xl\\a", "xl/a"},
        {"Unix may have a backslash in a name", 3, "xl\\a", "xl\\a"},
        {"a name with a slash is written right", 0, "xl/a\\b", "xl/a\\b"},
        {"a code page name too", 0, "\x81\\a", "\xC3\xBC/a"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(Decoded(row.bytes, row.host), row.name);
    }
}

TEST(EntryName, WithANulStandsForNoOther) {
    EXPECT_EQ(Decoded("a\0b\0"sv, 3),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD");
}

}  // namespace
