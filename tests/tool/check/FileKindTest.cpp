#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tool/check/FileKind.h"

namespace {

using namespace vexpa_tool;
using testing::HasSubstr;

TEST(FileKind, IsSeenByTheFirstBytesAndHasAHintOfItsOwn) {
    struct Row {
        std::string bytes;
        const char* kind;
        const char* hint;
    };
    const Row rows[] = {
        {"%PDF-1.4", "a PDF document", "a program for that kind"},
        {"{\\rtf1", "an RTF document", "a program for that kind"},
        {"\x1F\x8B\x08", "a gzip file", "unpack it"},
        {"MZ", "a program", "do not run it"},
        {"\x09\x08\x10" + std::string(1, '\0'), "a legacy spreadsheet", "convert it"},
        {"version https://git-lfs.github.com/spec/v1", "a Git LFS pointer in place of the file",
         "git lfs pull"},
        {"  <!DOCTYPE HTML><p>", "a web page", "read it"},
        {"\xEF\xBB\xBF<html>", "a web page", "read it"},
        {"<?xml version='1.0'?><pkg:package xmlns:pkg='x'>", "a flat package: one XML file",
         "save it as a document of the usual kind"},
        {"<?xml version='1.0'?><a/>", "an XML document", "a program for that kind"},
        {"Dear all,\n", "plain text", "read it"},
        {std::string(100, '\0'), "nothing but zeros, as a disk that was not written leaves them",
         "obtain the file again"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.kind);
        const FileLook look = LookAtFile(row.bytes, "a.docx", row.bytes.size());
        EXPECT_STREQ(look.kind, row.kind);
        EXPECT_THAT(look.hint, HasSubstr(row.hint));
    }
}

TEST(FileKind, MayBeUnknown) {
    EXPECT_EQ(LookAtFile("\x01\x02\x03", "a.docx", 3).kind, nullptr);
}

TEST(FileKind, OfALockFileIsSeenByNameAndSize) {
    const std::string bytes("\x05user ", 6);
    const FileLook look = LookAtFile(bytes, "~$report.docx", 162);
    EXPECT_STREQ(look.kind, "the lock file that an editor keeps beside a document");
    EXPECT_THAT(look.hint, HasSubstr("without '~$'"));
    EXPECT_EQ(LookAtFile(bytes, "report.docx", 162).kind, nullptr);
    EXPECT_EQ(LookAtFile(bytes, "~$report.docx", 10'000).kind, nullptr);
}

}  // namespace
