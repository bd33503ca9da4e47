#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using nlohmann::json;
using testing::ElementsAre;

constexpr const char* kImage =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/image";

PackageFile Before() {
    PackageFile file;
    file.Default("xml", "application/xml");
    file.Default("png", "image/png");
    file.Relationship("rId1", kOfficeDocument, "document.xml");
    file.Entry("document.xml", "<document><a/><b/></document>");
    file.Entry("styles.xml", "<styles><s/></styles>");
    file.Entry("old.png", "old");
    file.Entry("_rels/document.xml.rels",
               RelationshipsXml(RelationshipXml("rId1", kStyles, "styles.xml") +
                                RelationshipXml("rId2", kImage, "old.png")));
    return file;
}

PackageFile After() {
    PackageFile file;
    file.Default("xml", "application/xml");
    file.Default("png", "image/png");
    file.Override("/styles.xml", "text/styles");
    file.Relationship("rId1", kOfficeDocument, "document.xml");
    file.Entry("document.xml", "<document><a/><c/></document>");
    file.Entry("styles.xml", "<styles>\n <s/>\n</styles>");
    file.Entry("new.png", "brand new");
    file.Entry("_rels/document.xml.rels",
               RelationshipsXml(RelationshipXml("rId1", kStyles, "/styles.xml") +
                                RelationshipXml("rId3", kImage, "new.png")));
    return file;
}

class DiffCommand : public testing::Test {
protected:
    ToolRun Diff(const std::vector<std::string>& options) {
        std::vector<std::string> arguments = {"diff", a_.Write().Path(), b_.Write().Path()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return RunTool(arguments);
    }

    PackageFile a_ = Before(), b_ = After();
};

TEST_F(DiffCommand, TellsWhatCameWentAndChanged) {
    const ToolRun run = Diff({});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(Lines(run.out),
                ElementsAre("~ document.xml  29 -> 29 bytes",               //
                            "+ new.png       9 bytes",                      //
                            "- old.png       3 bytes",                      //
                            "~ styles.xml    21 -> 24 bytes",               //
                            "- document.xml  rId2  image [19] -> old.png",  //
                            "+ document.xml  rId3  image [19] -> new.png",  //
                            "~ styles.xml  application/xml => text/styles"));
}

TEST_F(DiffCommand, QuietlyTellsByItsStatusOnly) {
    const ToolRun run = Diff({"-q"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out + run.err, "");
    const std::string path = a_.Write().Path();
    EXPECT_EQ(RunTool({"diff", "--quiet", path, path}).status, 0);
    EXPECT_EQ(Diff({"-q", "--json"}).status, 2);
}

TEST_F(DiffCommand, ShowsTheKindsAskedFor) {
    EXPECT_THAT(Lines(Diff({"--parts"}).out), testing::SizeIs(4));
    EXPECT_THAT(Lines(Diff({"--rels"}).out), testing::SizeIs(2));
    EXPECT_THAT(Lines(Diff({"--types"}).out), testing::SizeIs(1));
    EXPECT_THAT(Lines(Diff({"--types", "--rels"}).out), testing::SizeIs(3));
}

TEST_F(DiffCommand, ShowsHowXmlDiffersTagByTag) {
    EXPECT_THAT(Lines(Diff({"--parts", "--xml"}).out),
                ElementsAre("~ document.xml  29 -> 29 bytes", "    @@ -1,4 +1,4 @@", "     <document>",
                            "       <a/>", "    -  <b/>", "    +  <c/>", "     </document>",
                            "+ new.png       9 bytes", "- old.png       3 bytes",
                            "~ styles.xml    21 -> 24 bytes", "    only white space between tags"));
}

TEST_F(DiffCommand, OfAPackageAndItselfIsNothing) {
    const std::string path = a_.Write().Path();
    const ToolRun run = RunTool({"diff", path, path});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "");
}

TEST_F(DiffCommand, ARelationshipThatLeadsElsewhereHasChanged) {
    a_.Relationship("rId2", kStyles, "styles.xml");
    b_.Relationship("rId2", kImage, "http://example.org/", "External");
    // The last has to have a part, or the package does not open.
    a_.Relationship("rId3", kStyles, "styles.xml");
    b_.Relationship("rId3", kStyles, "styles.xml");
    EXPECT_EQ(Lines(Diff({"--rels"}).out).at(0),
              "~ /             rId2  styles [11] -> styles.xml => image [19] -> http://example.org/");
}

TEST_F(DiffCommand, AsJsonHasBothSides) {
    const ToolRun run = Diff({"--json", "--xml"});
    EXPECT_EQ(run.status, 1);
    const json diff = json::parse(run.out);
    EXPECT_EQ(diff["status"], 1);
    EXPECT_EQ(diff["opened"], true);
    EXPECT_EQ(diff["parts"][0]["change"], "changed");
    EXPECT_EQ(diff["parts"][0]["xml"],
              "@@ -1,4 +1,4 @@\n <document>\n   <a/>\n-  <b/>\n+  <c/>\n </document>\n");
    EXPECT_EQ(diff["parts"][1]["before"], nullptr);
    EXPECT_EQ(diff["parts"][1]["after"]["size"], 9);
    EXPECT_EQ(diff["parts"][3]["xml"], "");
    EXPECT_EQ(diff["relationships"][0]["change"], "went");
    EXPECT_EQ(diff["relationships"][0]["before"]["resolved_target"], "old.png");
    EXPECT_EQ(diff["types"][0],
              (json{{"name", "styles.xml"}, {"before", "application/xml"}, {"after", "text/styles"}}));
}

TEST_F(DiffCommand, APartThatCannotBeReadMayHaveChangedOrNot) {
    a_.Entry("broken.bin", "x").crc = 0;
    b_.Entry("broken.bin", "x").crc = 0;
    const ToolRun run = Diff({"--parts"});
    EXPECT_EQ(run.status, 5);
    EXPECT_EQ(Lines(run.out).at(0), "~ broken.bin    unreadable -> unreadable bytes");
}

TEST_F(DiffCommand, NeedsTwoPackages) {
    const ScratchFile file("no package");
    const std::string path = a_.Write().Path();
    EXPECT_EQ(RunTool({"diff", path, file.Path()}).status, 3);
    EXPECT_EQ(RunTool({"diff", file.Path(), path}).status, 3);
    EXPECT_EQ(RunTool({"diff", path}).status, 2);
    const json diff = json::parse(RunTool({"diff", "--json", path, file.Path()}).out);
    EXPECT_EQ(diff["opened"], false);
    EXPECT_EQ(diff["other"], file.Path());
    EXPECT_EQ(diff["parts"], json::array());
}

TEST_F(DiffCommand, LinesOfADocumentCannotDisturbATerminal) {
    a_.Entry("x.xml", "<x>\tone</x>");
    b_.Entry("x.xml", "<x>\ttwo\u202e\u009b</x>");
    EXPECT_THAT(Lines(Diff({"--parts", "--xml"}).out),
                testing::Contains("    +<x>\ttwo\\u202e\\x9b</x>"));
}

}  // namespace
