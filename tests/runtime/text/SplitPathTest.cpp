#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "vexpa/platform/Runtime.h"

namespace {

struct Split {
    const char* shows;
    const char16_t* path;
    const char16_t* directory;
    const char16_t* name;
    const char16_t* extension;
};

const Split kSplits[] = {
    {"a part name", u"/word/document.xml", u"/word/", u"document", u".xml"},
    {"a name in the root", u"/document.xml", u"/", u"document", u".xml"},
    {"a name alone", u"document.xml", u"", u"document", u".xml"},
    {"backslashes separate too", u"\\word\\document.xml", u"\\word\\", u"document", u".xml"},
    {"the last separator of either kind counts", u"a\\b/c\\d", u"a\\b/c\\", u"d", u""},
    {"a name without an extension", u"a/b", u"a/", u"b", u""},
    {"the extension begins at the last dot", u"a/b.tar.gz", u"a/", u"b.tar", u".gz"},
    {"a dot in the directory begins none", u"a.b/c", u"a.b/", u"c", u""},
    {"a leading dot begins the extension", u"_rels/.rels", u"_rels/", u"", u".rels"},
    {"a trailing dot is the extension", u"a.", u"", u"a", u"."},
    {"a directory alone", u"a/b/", u"a/b/", u"", u""},
    {"a drive letter is ordinary text", u"C:\\a\\b.xml", u"C:\\a\\", u"b", u".xml"},
    {"also before a name alone", u"C:b.xml", u"", u"C:b", u".xml"},
    {"the empty path", u"", u"", u"", u""},
};

TEST(SplitPath, TakesAPathApart) {
    for (const Split& row : kSplits) {
        SCOPED_TRACE(row.shows);
        char16_t drive[4] = u"???", directory[64] = u"?", name[64] = u"?", extension[64] = u"?";
        EXPECT_EQ(u_splitpath_s(row.path, drive, 4, directory, 64, name, 64, extension, 64), 0);
        EXPECT_EQ(std::u16string(drive), u"");
        EXPECT_EQ(std::u16string(directory), row.directory);
        EXPECT_EQ(std::u16string(name), row.name);
        EXPECT_EQ(std::u16string(extension), row.extension);
    }
}

TEST(SplitPath, PassesOverPartsNotAskedFor) {
    char16_t directory[8];
    EXPECT_EQ(
        u_splitpath_s(u"/word/a-name-of-any-length", nullptr, 0, directory, 8, nullptr, 0, nullptr, 0),
        0);
    EXPECT_EQ(std::u16string(directory), u"/word/");
}

TEST(SplitPath, FillsABufferToItsLastUnit) {
    char16_t directory[7];
    EXPECT_EQ(u_splitpath_s(u"/word/x", nullptr, 0, directory, 7, nullptr, 0, nullptr, 0), 0);
    EXPECT_EQ(std::u16string(directory), u"/word/");
}

TEST(SplitPath, EmptiesEveryBufferWhenOnePartDoesNotFit) {
    char16_t drive[2] = u"?", directory[6] = u"?", name[8] = u"?", extension[8] = u"?";
    EXPECT_EQ(u_splitpath_s(u"/word/x.y", drive, 2, directory, 6, name, 8, extension, 8), ERANGE);
    for (const char16_t* buffer : {drive, directory, name, extension}) EXPECT_EQ(*buffer, 0);
}

TEST(SplitPath, EmptiesEveryBufferForANullPath) {
    char16_t directory[8] = u"?", name[8] = u"?";
    EXPECT_EQ(u_splitpath_s(nullptr, nullptr, 0, directory, 8, name, 8, nullptr, 0), EINVAL);
    EXPECT_EQ(*directory, 0);
    EXPECT_EQ(*name, 0);
}

TEST(SplitPath, RefusesABufferWithoutASizeAndASizeWithoutABuffer) {
    char16_t directory[8] = u"?", name[8] = u"?";
    EXPECT_EQ(u_splitpath_s(u"a/b", nullptr, 0, directory, 0, name, 8, nullptr, 0), EINVAL);
    EXPECT_EQ(*directory, u'?');
    EXPECT_EQ(*name, 0);
    EXPECT_EQ(u_splitpath_s(u"a/b", nullptr, 3, nullptr, 0, name, 8, nullptr, 0), EINVAL);
}

}  // namespace
