#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <nlohmann/json.hpp>

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
        EXPECT_EQ(run.err, "vexpa: " + file.Path() + ": does not open: VX013 empty file\n");
    }
    EXPECT_EQ(RunTool({"cat", file.Path(), "part"}).status, 3);
}

TEST(OpenFailure, TellsWhatCanBeSeenOfTheReason) {
    const std::string types = "[Content_Types].xml", rels = "_rels/.rels";
    const Refused rows[] = {
        {"text", "plain text", "VX010 not a zip: looks like plain text"},
        {"an archive cut short", Archive({{types, "<Types/>"}}).substr(0, 60),
         "VX101 no end record: the file ends inside the entry [Content_Types].xml, the last of 1 "
         "entry found"},
        {"a compound file", kCompoundFile, "VX015 not a zip: compound file that is damaged"},
        {"an archive without entries", Archive({}),
         "VX201 no [Content_Types].xml: the archive has no entries"},
        {"another archive", Archive({{"a", "b"}}),
         "VX201 a zip archive, but no package: neither [Content_Types].xml nor _rels/.rels is in it"},
        {"no relationships", Archive({{types, "<Types/>"}}), "VX300 no entry _rels/.rels"},
        {"damaged types", DamagedEntry(types),
         "VX207 [Content_Types].xml: cannot be extracted: its data has another CRC than the directory "
         "says"},
        {"damaged relationships", DamagedEntry(rels),
         "VX300 _rels/.rels: cannot be extracted: its data has another CRC than the directory says"},
        {"malformed types", Archive({{types, "<Types>"}, {rels, "<R/>"}}),
         "VX202 [Content_Types].xml:1:8: is not well-formed: no element found"},
        {"empty relationships", Archive({{types, "<Types/>"}, {rels, ""}}),
         "VX300 _rels/.rels: is empty"},
        {"the last relationship leads nowhere",
         Archive({{types, "<Types/>"},
                  {"a.xml", ""},
                  {rels,
                   "<R><Relationship Target='a.xml'/><Relationship Target='b&#10;.xml'/>"
                   "<Relationship/></R>"}}),
         "VX301 _rels/.rels:1:34: the last relationship \"\" (\"\") has no part: b\\x0a.xml"},
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

// Nothing is known of it, not even whether it is a package.
TEST(OpenFailure, AFileThatCannotBeReadEndsEveryCommandWithStatus5) {
    const ScratchFile file(ReadFile(MinimalPackage().Write().Path()));
    const std::vector<std::vector<std::string>> commands = {
        {"cat", "/no/such", "main"},
        {"diff", "/no/such", file.Path()},
        {"diff", file.Path(), "/no/such"},
        {"dump", "/no/such"},
        {"graph", "/no/such"},
        {"ls", "/no/such"},
        {"parts", "/no/such"},
        {"rels", "/no/such"},
        {"storage", "/no/such", "main"},
        {"tokens", "/no/such", "main"},
        {"tree", "/no/such"},
        {"types", "/no/such"},
    };
    for (const auto& command : commands) {
        SCOPED_TRACE(command.front());
        const ToolRun run = RunTool(command);
        EXPECT_EQ(run.status, 5);
        EXPECT_EQ(run.err, "vexpa: /no/such: cannot be read: No such file or directory\n");
    }
}

TEST(OpenFailure, AFileThatCannotBeReadIsNotOpenedInJson) {
    for (const std::string command : {"dump", "info", "ls", "parts", "rels", "tree", "types"}) {
        SCOPED_TRACE(command);
        const auto json = nlohmann::json::parse(RunTool({command, "--json", "/no/such"}).out);
        EXPECT_EQ(json["opened"], false);
        EXPECT_EQ(json["status"], 5);
        EXPECT_EQ(json["error"], "/no/such: cannot be read: No such file or directory");
    }
}

TEST(OpenFailure, AFolderOrPipeIsNoFile) {
    const ScratchFile place("");
    const std::string folder = place.Path().substr(0, place.Path().rfind('/'));
    EXPECT_EQ(RunTool({"tree", folder}).err,
              "vexpa: " + folder + ": is a folder; commands for several files search it with -r\n");
    const std::string pipe = folder + "/pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(RunTool({"tree", pipe}).err, "vexpa: " + pipe + ": not a regular file\n");
}

TEST(OpenFailure, ANameOutsideTheLocaleIsNamedAsTheReason) {
    const ScratchFile file(ReadFile(MinimalPackage().Write().Path()), "\xFF.docx");
    const ToolRun run = RunTool({"tree", file.Path()});
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.err,
                testing::EndsWith("/\\xff.docx: does not open: VX002 the file name is not text in "
                                  "the encoding of the locale\n"));
}

TEST(OpenFailure, NamesOnStderrAreEscaped) {
    const ToolRun run = RunTool({"tree", "\x1b[2J\n\u202e.docx"});
    EXPECT_EQ(run.err, "vexpa: \\x1b[2J\\x0a\\u202e.docx: cannot be read: No such file or directory\n");
}

}  // namespace
