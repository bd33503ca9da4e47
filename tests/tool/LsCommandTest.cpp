#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;

class LsCommand : public testing::Test {
protected:
    LsCommand() {
        zip_.Add("b.txt", std::string(1000, 'x'));
        ZipEntry& stored = zip_.Add("a\x1b.bin", "abc");
        stored.stored = true;
        stored.crc = 0x12345678;
        stored.flags = 0x0801;
        ZipEntry& unknown = zip_.Add("c", "abcdef");
        unknown.stored = true;
        unknown.method = 77;
        file_.Write(zip_.Bytes());
    }

    std::vector<std::string> Ls(const std::vector<std::string>& options) {
        std::vector<std::string> arguments = {"ls", file_.Path()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return Lines(RunTool(arguments).out);
    }

    std::vector<std::string> Names(const std::string& order) {
        std::vector<std::string> names;
        const json ls = json::parse(RunTool({"ls", "--json", "--sort", order, file_.Path()}).out);
        for (const json& entry : ls["entries"]) {
            names.push_back(entry["name"]);
        }
        return names;
    }

    ZipFile zip_;
    ScratchFile file_{""};
};

// The library lists it as U+FFFD, by which it is found, too.
TEST_F(LsCommand, ShowsANulInANameAsWhatItIs) {
    const struct {
        const char* shows;
        std::string name;
        std::uint16_t madeBy;
        const char* printed;
    } rows[] = {
        {"UTF-8", std::string("a\0\u00fc\0.bin", 9), 0x0314, "a\\x00\u00fc\\x00.bin"},
        {"a code page", std::string("a\0\x81.bin", 7), 0x0314, "a\\x00\u00fc.bin"},
        {"backslashes that are read as slashes", std::string("a\0\\b", 4), 0x0014, "a\\x00/b"},
        {"U+FFFD itself", "a\uFFFD.bin", 0x0314, "a\uFFFD.bin"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shows);
        ZipFile zip;
        zip.Add(row.name, "x").madeBy = row.madeBy;
        const ScratchFile file(zip.Bytes());
        EXPECT_THAT(Lines(RunTool({"ls", file.Path()}).out)[1],
                    testing::EndsWith(std::string("  ") + row.printed));
    }
    ZipFile zip;
    zip.Add(std::string("a\0b", 3), "x");
    const ScratchFile file(zip.Bytes());
    EXPECT_EQ(json::parse(RunTool({"ls", "--json", file.Path()}).out)["entries"][0]["name"],
              std::string("a\0b", 3));
}

TEST_F(LsCommand, ListsTheEntriesOfAnyArchive) {
    const ToolRun run = RunTool({"ls", file_.Path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    const std::vector<std::string> lines = Lines(run.out);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0], "Method     Packed  Size   Ratio  CRC       Flags  Name");
    EXPECT_THAT(lines[1],
                testing::MatchesRegex("deflate +[0-9]+  1000 +[0-9.]+:1  [0-9a-f]{8}  ---    b.txt"));
    EXPECT_EQ(lines[2], "stored          3     3   1.0:1  12345678  e-u    a\\x1b.bin");
    EXPECT_THAT(lines[3], HasSubstr("method 77"));
}

TEST_F(LsCommand, LongTellsAllThatTheDirectorySays) {
    const std::vector<std::string> lines = Ls({"-l"});
    EXPECT_THAT(lines[0], HasSubstr("Flags  Bits  Offset  Extra  Modified"));
    EXPECT_THAT(lines[2], HasSubstr("e-u    0801"));
}

TEST_F(LsCommand, SortsWhenAskedTo) {
    EXPECT_THAT(Names("name"), ElementsAre("a\x1b.bin", "b.txt", "c"));
    EXPECT_THAT(Names("size"), ElementsAre("b.txt", "c", "a\x1b.bin"));
    EXPECT_THAT(Names("ratio"), ElementsAre("b.txt", "a\x1b.bin", "c"));
    EXPECT_THAT(Names("offset"), ElementsAre("b.txt", "a\x1b.bin", "c"));
    EXPECT_EQ(RunTool({"ls", "--sort", "colour", file_.Path()}).status, 2);
}

TEST_F(LsCommand, NamesForOtherProgramsAreAsTheyAre) {
    const std::string names("b.txt\0a\x1b.bin\0c\0", 15);
    EXPECT_EQ(RunTool({"ls", "-0", file_.Path()}).out, names);
    EXPECT_EQ(RunTool({"ls", "-0", file_.Path(), file_.Path()}).out, names + names);
}

TEST_F(LsCommand, AsJsonSaysWhetherTheLibraryOpensIt) {
    const json ls = json::parse(RunTool({"ls", "--json", file_.Path()}).out);
    EXPECT_EQ(ls["opened"], false);
    EXPECT_EQ(ls["status"], 0);
    EXPECT_EQ(ls["directory"], true);
    EXPECT_EQ(ls["entries"][1]["flags"], 0x0801);
    EXPECT_EQ(ls["entries"][1]["encrypted"], true);
    EXPECT_EQ(ls["entries"][1]["crc"], "12345678");
    PackageFile package = MinimalPackage();
    EXPECT_EQ(json::parse(RunTool({"ls", "--json", package.Write().Path()}).out)["opened"], true);
}

TEST_F(LsCommand, AnArchiveWithoutADirectoryIsListedByItsLocalHeaders) {
    const std::string bytes = zip_.Bytes();
    file_.Write(bytes.substr(0, bytes.size() - 30));
    const ToolRun run = RunTool({"ls", file_.Path()});
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(Lines(run.out), testing::SizeIs(4));
    EXPECT_EQ(run.err,
              "vexpa: " + file_.Path() + ": no sound directory: these are the entries' own headers\n");
}

TEST_F(LsCommand, WhatIsNoArchiveEndsWithStatus3) {
    const ScratchFile file("no archive");
    const ToolRun run = RunTool({"ls", file.Path()});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err,
              "vexpa: " + file.Path() + ": does not open: VX010 not a zip: looks like plain text\n");
}

}  // namespace
