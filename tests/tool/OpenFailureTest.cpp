#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/opc/PackageFile.h"
#include "tests/support/ScratchFile.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;

const std::string kCompoundFile("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 and so on");

struct Refused {
    const char* shows;
    std::string content;
    std::string reason;
};

std::string Archive(const std::vector<std::pair<std::string, std::string>>& entries) {
    ZipFile zip;
    for (const auto& [name, content] : entries) zip.Add(name, content);
    return zip.Bytes();
}

std::string DamagedEntry(const std::string& damaged) {
    ZipFile zip;
    zip.Add("[Content_Types].xml", "<Types/>");
    zip.Add("_rels/.rels", "<Relationships/>");
    for (ZipEntry& entry : zip.entries) {
        if (entry.name == damaged) entry.crc = 0;
    }
    return zip.Bytes();
}

TEST(OpenFailure, EveryCommandSaysWhyAndEndsWithStatus3) {
    const ScratchFile file("");
    for (const std::string command : {"tree", "rels", "parts", "dump"}) {
        const ToolRun run = RunTool({command, file.Path()});
        EXPECT_EQ(run.status, 3);
        EXPECT_EQ(run.err, "vexpa: " + file.Path() + ": does not open: empty file\n");
    }
    EXPECT_EQ(RunTool({"cat", file.Path(), "part"}).status, 3);
}

TEST(OpenFailure, TellsWhatCanBeSeenOfTheReason) {
    const std::string types = "[Content_Types].xml", rels = "_rels/.rels";
    const Refused rows[] = {
        {"text", "plain text", "not a zip archive, or a damaged one"},
        {"an archive cut short", Archive({{types, "<Types/>"}}).substr(0, 60),
         "not a zip archive, or a damaged one"},
        {"a compound file", kCompoundFile,
         "not a zip archive: a compound file, as a password-protected or a legacy document is"},
        {"an archive without entries", Archive({}), "no package: no entry [Content_Types].xml"},
        {"another archive", Archive({{"a", "b"}}), "no package: no entry [Content_Types].xml"},
        {"no relationships", Archive({{types, "<Types/>"}}), "no package: no entry _rels/.rels"},
        {"damaged types", DamagedEntry(types), "no package: [Content_Types].xml cannot be extracted"},
        {"damaged relationships", DamagedEntry(rels), "no package: _rels/.rels cannot be extracted"},
        {"malformed types", Archive({{types, "<Types>"}, {rels, "<R/>"}}),
         "no package: [Content_Types].xml is not well-formed XML"},
        {"empty relationships", Archive({{types, "<Types/>"}, {rels, ""}}),
         "no package: _rels/.rels is not well-formed XML"},
        {"the last relationship leads nowhere",
         Archive({{types, "<Types/>"},
                  {"a.xml", ""},
                  {rels,
                   "<R><Relationship Target='a.xml'/><Relationship Target='b&#10;.xml'/>"
                   "<Relationship/></R>"}}),
         "no package: the last relationship has no part: b\\x0a.xml"},
    };
    for (const Refused& row : rows) {
        SCOPED_TRACE(row.shows);
        const ScratchFile file(row.content);
        const ToolRun run = RunTool({"tree", file.Path()});
        EXPECT_EQ(run.status, 3);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "vexpa: " + file.Path() + ": does not open: " + row.reason + "\n");
    }
}

TEST(OpenFailure, AFolderOrPipeIsNoFile) {
    const ScratchFile place("");
    const std::string folder = place.Path().substr(0, place.Path().rfind('/'));
    EXPECT_EQ(RunTool({"tree", folder}).err,
              "vexpa: " + folder + ": does not open: not a regular file\n");
    const std::string pipe = folder + "/pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(RunTool({"tree", pipe}).err, "vexpa: " + pipe + ": does not open: not a regular file\n");
}

TEST(OpenFailure, ANameOutsideTheLocaleIsNamedAsTheReason) {
    const ScratchFile file(ReadFile(MinimalPackage().Write().Path()), "\xFF.docx");
    const ToolRun run = RunTool({"tree", file.Path()});
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.err, testing::EndsWith("/\uFFFD.docx: does not open: the file name is not text in "
                                           "the encoding of the locale\n"));
}

TEST(OpenFailure, NamesOnStderrAreEscaped) {
    const ToolRun run = RunTool({"tree", "\x1b[2J\n\u202e.docx"});
    EXPECT_EQ(run.err,
              "vexpa: \\x1b[2J\\x0a\\u202e.docx: does not open: cannot be read: No such file or "
              "directory\n");
}

}  // namespace
