// rels and parts: the commands that print a table.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using testing::ElementsAre;

PackageFile TwoPartPackage() {
    PackageFile file = MinimalPackage();
    file.Entry("word/styles.xml", "<styles/>");
    file.Entry("word/_rels/document.xml.rels",
               RelationshipsXml(RelationshipXml("rId2", kStyles, "styles.xml") +
                                RelationshipXml("rId1", "urn:x", "https://example.org/", "External") +
                                RelationshipXml("rId10", kStyles, "../gone.xml")));
    return file;
}

TEST(RelsCommand, ListsTheRelationshipsOfThePackage) {
    PackageFile file = TwoPartPackage();
    const ToolRun run = RunTool({"rels", file.Write().Path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(
        Lines(run.out),
        ElementsAre("Id    Type                Mode      Target             Resolved           Part",
                    "rId1  officeDocument [9]  internal  word/document.xml  word/document.xml  yes"));
}

TEST(RelsCommand, ListsTheRelationshipsOfAPartAsTheLibraryResolvesThem) {
    PackageFile file = TwoPartPackage();
    const std::string path = file.Write().Path();
    const ToolRun run = RunTool({"rels", path, "word/document.xml"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(
        Lines(run.out),
        ElementsAre("Id     Type         Mode      Target                Resolved              Part",
                    "rId1   urn:x [-]    external  https://example.org/  https://example.org/  -",
                    "rId10  styles [11]  internal  ../gone.xml           gone.xml              no",
                    "rId2   styles [11]  internal  styles.xml            word/styles.xml       yes"));
    EXPECT_EQ(RunTool({"rels", path, "/word/document.xml"}).out, run.out);
}

TEST(RelsCommand, APartWithoutRelationshipsHasTheHeadingOnly) {
    PackageFile file = TwoPartPackage();
    const ToolRun run = RunTool({"rels", file.Write().Path(), "word/styles.xml"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "Id  Type  Mode  Target  Resolved  Part\n");
}

TEST(RelsCommand, WhatADocumentLeftOutShowsAsTwoQuotes) {
    PackageFile file;
    file.Relationship("", "", "", "External");
    file.Relationship("r", kStyles, "a.xml");
    file.Entry("a.xml", "");
    EXPECT_THAT(Lines(RunTool({"rels", file.Write().Path()}).out),
                ElementsAre("Id  Type         Mode      Target  Resolved  Part",
                            "\"\"  \"\" [-]       external  \"\"      \"\"        -",
                            "r   styles [11]  internal  a.xml   a.xml     yes"));
}

TEST(PartsCommand, ListsEachPartOnceBreadthFirst) {
    PackageFile file = TwoPartPackage();
    file.Relationship("rId2", kStyles, "/z.bin");
    file.Relationship("rId3", kStyles, "word/document.xml");
    file.Entry("z.bin", std::string(100, 'z'));
    file.Entry("unreached.xml", "");
    const ToolRun run = RunTool({"parts", file.Write().Path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(
        Lines(run.out),
        ElementsAre("Part               Size  Content type", "word/document.xml    11  application/xml",
                    "/z.bin              100  \"\"", "word/styles.xml       9  application/xml"));
}

TEST(PartsCommand, SaysWhichPartCannotBeRead) {
    PackageFile file = MinimalPackage();
    file.Relationship("rId2", kStyles, "a.xml");
    file.Entry("a.xml", "content").crc = 0;
    const ToolRun run = RunTool({"parts", file.Write().Path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(Lines(run.out).back(), "a.xml              unreadable  application/xml");
}

PackageFile ManyTyped() {
    PackageFile file = MinimalPackage();
    const std::string types = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
    const std::string thumbnail =
        "http://schemas.openxmlformats.org/package/2006/relationships/metadata/thumbnail";
    file.Entry(
        "word/_rels/document.xml.rels",
        RelationshipsXml(RelationshipXml("rId7", types + "header", "h7.xml") +
                         RelationshipXml("rId10", types + "HEADER", "h10.xml") +
                         RelationshipXml("rId2", types + "header", "h2.xml") +
                         RelationshipXml("t", thumbnail, "t.png") +
                         RelationshipXml("c", types + "custom-properties", "c.xml") +
                         RelationshipXml("u", "urn:x/header2", "u.xml") +
                         RelationshipXml("x", types + "image", "http://example.org/", "External")));
    return file;
}

// The Ids of the rows, and the mark after the one that is first.
std::vector<std::string> Found(const std::string& path, const std::vector<std::string>& options) {
    std::vector<std::string> arguments = {"rels", path, "main"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    std::vector<std::string> found;
    for (const std::string& line : Lines(RunTool(arguments).out)) {
        const std::string id = line.substr(0, line.find(' '));
        if (line.find("GetRelationshipByType") != std::string::npos || id == "Id") continue;
        found.push_back(id + (line.back() == '*' ? "*" : ""));
    }
    return found;
}

TEST(RelsCommand, FindsATypeByItsEndItsUriItsNumberOrItsName) {
    PackageFile file = ManyTyped();
    const std::string path = file.Write().Path();
    for (const char* type :
         {"header", "HEADER", "8", "RelTypeHeader",
          "http://schemas.openxmlformats.org/officeDocument/2006/relationships/Header"}) {
        SCOPED_TRACE(type);
        EXPECT_THAT(Found(path, {"--type", type}), ElementsAre("rId10", "rId2", "rId7*"));
    }
    EXPECT_THAT(Found(path, {"--type", "header2"}), ElementsAre("u"));
}

// A slip of the hand is not to look like an answer.
TEST(RelsCommand, ATypeThatThereIsNotEndsWithStatus4) {
    PackageFile file = ManyTyped();
    const std::string path = file.Write().Path();
    const auto rels = [&](std::vector<std::string> options) {
        options.insert(options.begin(), {"rels", path});
        const ToolRun run = RunTool(options);
        EXPECT_EQ(run.status, 4);
        EXPECT_EQ(run.out, "");
        return run.err;
    };
    EXPECT_EQ(rels({"--type", "99"}), "vexpa: " + path + ": no relationships of type 99\n");
    EXPECT_EQ(rels({"--all", "--type", "nothing"}),
              "vexpa: " + path + ": no relationships of type nothing\n");
    EXPECT_EQ(rels({"main", "--type", "nothing"}),
              "vexpa: " + path + ": main: no relationships of type nothing\n");
    EXPECT_EQ(rels({"main", "--external", "--type", "header"}),
              "vexpa: " + path + ": main: no external relationships of type header\n");
}

TEST(RelsCommand, ATypeThatThereIsNotIsAnErrorInJson) {
    PackageFile file = ManyTyped();
    const std::string path = file.Write().Path();
    const auto json = nlohmann::json::parse(RunTool({"rels", path, "--type", "nothing", "--json"}).out);
    EXPECT_EQ(json["opened"], true);
    EXPECT_EQ(json["status"], 4);
    EXPECT_EQ(json["error"], path + ": no relationships of type nothing");
    EXPECT_EQ(json["relationships"], nlohmann::json::array());
}

TEST(RelsCommand, OfSeveralFilesATypeThatNoneHasIsNoError) {
    PackageFile file = ManyTyped();
    const std::string path = file.Write().Path();
    const ToolRun run = RunTool({"rels", "--all", "--type", "nothing", path, path});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out + run.err, "");
}

// Both answer the same id; only a search tells them apart.
TEST(RelsCommand, AThumbnailIsNoCustomProperty) {
    PackageFile file = ManyTyped();
    const std::string path = file.Write().Path();
    EXPECT_THAT(Found(path, {"--type", "34"}), ElementsAre("t*"));
    EXPECT_THAT(Found(path, {"--type", "33"}), ElementsAre("c*"));
}

TEST(RelsCommand, ListsWhatLeadsOutOfThePackage) {
    PackageFile file = ManyTyped();
    EXPECT_THAT(Found(file.Write().Path(), {"--external"}), ElementsAre("x"));
}

TEST(RelsCommand, SaysWhatALookUpByTypeAnswers) {
    PackageFile file = MinimalPackage();
    file.Entry("word/_rels/document.xml.rels",
               RelationshipsXml(
                   RelationshipXml("a", "urn:x", "a.xml") + RelationshipXml("a", kStyles, "lost.xml") +
                   RelationshipXml("b", kStyles, "b.xml") + RelationshipXml("c", kStyles, "c.xml") +
                   RelationshipXml("d", "urn:x", "d.xml")));
    const std::string path = file.Write().Path();
    const auto last = [&](const char* type) {
        return Lines(RunTool({"rels", path, "main", "--type", type}).out).back();
    };
    EXPECT_EQ(last("styles"),
              "2 relationships; GetRelationshipByType answers one that has lost its Id to another");
    EXPECT_EQ(last("urn:x"), "2 relationships; the library has no number for the type to find one by");
    PackageFile typed = ManyTyped();
    EXPECT_EQ(Lines(RunTool({"rels", typed.Write().Path(), "main", "--type", "header"}).out).back(),
              "3 relationships; GetRelationshipByType answers the one marked *");
}

TEST(RelsCommand, OfAllSourcesNamesEach) {
    PackageFile file = TwoPartPackage();
    const std::vector<std::string> lines = Lines(RunTool({"rels", "--all", file.Write().Path()}).out);
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_THAT(lines[0], testing::StartsWith("Source             Id     Type"));
    EXPECT_THAT(lines[1], testing::StartsWith("/                  rId1   officeDocument [9]"));
    EXPECT_THAT(lines[2], testing::StartsWith("word/document.xml  rId1   urn:x [-]"));
}

TEST(RelsCommand, OfManyFilesListsThoseThatHaveWhatIsLookedFor) {
    PackageFile file = TwoPartPackage(), other = MinimalPackage();
    const std::string path = file.Write().Path(), without = other.Write().Path();
    const ToolRun run = RunTool({"rels", "--all", "--external", without, path, without});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, path + ":\n" + RunTool({"rels", "--all", "--external", path}).out);
}

}  // namespace
