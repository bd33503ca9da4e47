#include <gtest/gtest.h>

#include "tool/check/FileKind.h"

namespace {

using namespace vexpa_tool;

TEST(FileKind, IsSeenByTheFirstBytes) {
    struct Row {
        std::string bytes;
        const char* kind;
    };
    const Row rows[] = {
        {"%PDF-1.4", "a PDF document"},
        {"{\\rtf1", "an RTF document"},
        {"\x1F\x8B\x08", "a gzip file"},
        {"  <!DOCTYPE HTML><p>", "a web page"},
        {"\xEF\xBB\xBF<html>", "a web page"},
        {"<?xml version='1.0'?><pkg:package xmlns:pkg='x'>", "a flat package: one XML file"},
        {"<?xml version='1.0'?><a/>", "an XML document"},
        {"Dear all,\n", "plain text"},
        {std::string(100, '\0'), "nothing but zeros, as a disk that was not written leaves them"},
        {"\x01\x02\x03", ""},
    };
    for (const Row& row : rows) EXPECT_EQ(LooksLike(row.bytes, "a.docx", row.bytes.size()), row.kind);
}

TEST(FileKind, OfALockFileIsSeenByNameAndSize) {
    const std::string bytes("\x05user ", 6);
    EXPECT_EQ(LooksLike(bytes, "~$report.docx", 162),
              "the lock file that an editor keeps beside a document");
    EXPECT_EQ(LooksLike(bytes, "report.docx", 162), "");
    EXPECT_EQ(LooksLike(bytes, "~$report.docx", 10'000), "");
}

}  // namespace
