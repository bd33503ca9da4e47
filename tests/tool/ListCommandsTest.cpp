// rels and parts: the commands that print a table.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

}  // namespace
