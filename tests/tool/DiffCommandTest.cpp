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
              "~ /             rId2  styles [11] -> styles.xml => "
              "image [19] -> http://example.org/ (external)");
}

// Two packages with one relationship that differs.
std::string DifferenceOf(const std::string& typeA, const std::string& modeA, const std::string& typeB,
                         const std::string& modeB) {
    PackageFile a = MinimalPackage(), b = MinimalPackage();
    for (PackageFile* file : {&a, &b}) file->Entry("x.xml", "<x/>");
    a.Entry("word/_rels/document.xml.rels",
            RelationshipsXml(RelationshipXml("rId1", typeA, "x.xml", modeA)));
    b.Entry("word/_rels/document.xml.rels",
            RelationshipsXml(RelationshipXml("rId1", typeB, "x.xml", modeB)));
    const ToolRun run = RunTool({"diff", "--rels", a.Write().Path(), b.Write().Path()});
    EXPECT_EQ(run.status, 1);
    return run.out;
}

TEST(DiffCommandSides, DifferWhereOnlyTheModeDoes) {
    const std::string type = "urn:x/image";
    EXPECT_EQ(
        DifferenceOf(type, "", type, "External"),
        "~ word/document.xml  rId1  image [-] -> word/x.xml => image [-] -> word/x.xml (external)\n");
}

TEST(DiffCommandSides, HaveTheWholeTypeWhereTheEndsAreEqual) {
    EXPECT_EQ(DifferenceOf("urn:x/image", "", "URN:x/image", ""),
              "~ word/document.xml  rId1  urn:x/image -> word/x.xml => URN:x/image -> word/x.xml\n");
}

// The Ids are the same; only where they stand in their stream is not.
class DiffCommandOrder : public testing::Test {
protected:
    static std::string Package(const std::vector<std::string>& headers) {
        PackageFile file = MinimalPackage();
        std::string relationships;
        for (const std::string& header : headers) {
            const std::string part = header + ".xml";
            file.Entry("word/" + part, "<a/>");
            relationships += RelationshipXml(header, kHeader, part);
        }
        file.Entry("word/_rels/document.xml.rels", RelationshipsXml(relationships));
        return ReadFile(file.Write().Path());
    }

    static constexpr const char* kHeader =
        "http://schemas.openxmlformats.org/officeDocument/2006/relationships/header";
    const ScratchFile before_{Package({"h1", "h2", "h3"})}, after_{Package({"h2", "h1", "h3"})};
};

TEST_F(DiffCommandOrder, IsToldWhereAnotherIsTheFirstOfItsType) {
    const ToolRun run = RunTool({"diff", "--rels", before_.Path(), after_.Path()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out,
              "~ word/document.xml  header [8]  first of its type: "
              "h1 -> word/h1.xml => h2 -> word/h2.xml\n");
    const json diff = json::parse(RunTool({"diff", "--json", before_.Path(), after_.Path()}).out);
    EXPECT_EQ(diff["firsts"],
              (json::array({{{"source", "word/document.xml"},
                             {"type", kHeader},
                             {"before", {{"id", "h1"}, {"resolved_target", "word/h1.xml"}}},
                             {"after", {{"id", "h2"}, {"resolved_target", "word/h2.xml"}}}}})));
}

TEST_F(DiffCommandOrder, IsToldBesideTheOneThatCame) {
    const ScratchFile more(Package({"h0", "h1", "h2", "h3"}));
    const ToolRun run = RunTool({"diff", "--rels", before_.Path(), more.Path()});
    EXPECT_THAT(run.out, testing::HasSubstr("  first of its type: h1 -> word/h1.xml => "
                                            "h0 -> word/h0.xml\n"));
    EXPECT_EQ(RunTool({"diff", "--rels", more.Path(), before_.Path()}).out,
              "- word/document.xml  h0  header [8] -> word/h0.xml\n");
}

TEST_F(DiffCommandOrder, IsNothingBehindTheFirst) {
    const ScratchFile other(Package({"h1", "h3", "h2"}));
    EXPECT_EQ(RunTool({"diff", before_.Path(), other.Path()}).out, "");
}

TEST_F(DiffCommandOrder, IsNotToldWhereTheFirstLeadsToTheSamePart) {
    PackageFile a = MinimalPackage(), b = MinimalPackage();
    for (PackageFile* file : {&a, &b}) file->Entry("word/h.xml", "<a/>");
    a.Entry("word/_rels/document.xml.rels", RelationshipsXml(RelationshipXml("r1", kHeader, "h.xml")));
    b.Entry("word/_rels/document.xml.rels", RelationshipsXml(RelationshipXml("r2", kHeader, "h.xml")));
    EXPECT_THAT(Lines(RunTool({"diff", "--rels", a.Write().Path(), b.Write().Path()}).out),
                testing::SizeIs(2));
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
    EXPECT_EQ(diff["other"], file.Path());
    EXPECT_EQ(diff["parts"], json::array());
}

TEST_F(DiffCommand, AsJsonTellsWhichOfTheTwoDoesNotOpen) {
    const ScratchFile file("no package");
    const std::string path = a_.Write().Path();
    const auto opened = [](const std::string& a, const std::string& b) {
        const json diff = json::parse(RunTool({"diff", "--json", a, b}).out);
        return std::pair(diff["opened"].get<bool>(), diff["other_opened"].get<bool>());
    };
    EXPECT_EQ(opened(path, path), std::pair(true, true));
    EXPECT_EQ(opened(path, file.Path()), std::pair(true, false));
    EXPECT_EQ(opened(file.Path(), path), std::pair(false, true));
    EXPECT_EQ(opened(file.Path(), file.Path()), std::pair(false, false));
}

// Programs are looked for in PATH, which has none.
TEST_F(DiffCommand, TellsOfXmlByAnotherProgram) {
    ToolSetting setting;
    setting.hasPath = false;
    const ToolRun run = RunTool({"diff", "--xml", a_.Write().Path(), b_.Write().Path()}, setting);
    EXPECT_EQ(run.status, 5);
    EXPECT_EQ(run.err, "vexpa: --xml needs the program diff, which cannot be run\n");
}

TEST_F(DiffCommand, LinesOfADocumentCannotDisturbATerminal) {
    a_.Entry("x.xml", "<x>\tone</x>");
    b_.Entry("x.xml", "<x>\ttwo\u202e\u009b</x>");
    EXPECT_THAT(Lines(Diff({"--parts", "--xml"}).out),
                testing::Contains("    +<x>\ttwo\\u202e\\x9b</x>"));
}

}  // namespace
