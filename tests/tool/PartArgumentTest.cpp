// The ways to name a part.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;

class PartArgument : public testing::Test {
protected:
    PartArgument() {
        file_.Entry("word/styles.xml", "word styles");
        file_.Entry("glossary/styles.xml", "glossary styles");
        file_.Entry(
            "word/_rels/document.xml.rels",
            RelationshipsXml(RelationshipXml("rId4", kStyles, "styles.xml") +
                             RelationshipXml("out", kStyles, "https://example.org/", "External") +
                             RelationshipXml("gone", kStyles, "gone.xml")));
        file_.Entry("word/_rels/styles.xml.rels",
                    RelationshipsXml(RelationshipXml("up", kStyles, "../glossary/styles.xml") +
                                     RelationshipXml("one", "urn:x/one", "../main") +
                                     RelationshipXml("t1", "urn:x/two", "../main") +
                                     RelationshipXml("t2", "urn:x/two", "../main")));
        file_.Entry("other/a@b.xml", "at");
        file_.Entry("other/bell\x07.xml", "bell");
        file_.Entry(std::string("other/nul\0.xml", 14), "nul");
        file_.Entry("other/rId1@main", "not by way of a relationship");
        file_.Entry("folder/", "");
        file_.Entry("main", "an entry of that name");
        path_ = file_.Write().Path();
    }

    ToolRun Cat(const std::string& part) { return RunTool({"cat", path_, part}); }

    PackageFile file_ = MinimalPackage();
    std::string path_;
};

TEST_F(PartArgument, LeadsToAPart) {
    const struct {
        const char* shows;
        const char* argument;
        const char* content;
    } rows[] = {
        {"a name", "word/styles.xml", "word styles"},
        {"with a slash", "/word/styles.xml", "word styles"},
        {"the end of one name", "document.xml", "<document/>"},
        {"the end with a folder", "glossary/styles.xml", "glossary styles"},
        {"a relationship of a part", "rId4@word/document.xml", "word styles"},
        {"of the end of a name", "rId4@document.xml", "word styles"},
        {"a relationship of the package", "rId1@/", "<document/>"},
        {"from relationship to relationship", "up@rId4@rId1@/", "glossary styles"},
        {"the first of a type", "styles@document.xml", "word styles"},
        {"a type by its number", "9@/", "<document/>"},
        {"from type to Id", "up@styles@officeDocument@/", "glossary styles"},
        {"the only one of a type without a number", "one@word/styles.xml", "an entry of that name"},
        {"a name with an at sign", "other/a@b.xml", "at"},
        {"the end of one", "a@b.xml", "at"},
        {"the end of one before a relationship", "rId1@main", "not by way of a relationship"},
        {"a name as it is printed", "other/bell\\x07.xml", "bell"},
        {"a name with a NUL as it is printed", "other/nul\\x00.xml", "nul"},
        {"a name before a word with a meaning", "main", "an entry of that name"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shows);
        const ToolRun run = Cat(row.argument);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.out, row.content);
        EXPECT_EQ(run.err, "");
    }
}

TEST_F(PartArgument, ThatLeadsToNoneSaysWhyWithStatus4) {
    const struct {
        const char* shows;
        std::string argument;
        const char* reason;
    } rows[] = {
        {"no such name", "nothing.xml", "no such part"},
        {"the end of two", "styles.xml", "is ambiguous: word/styles.xml, glossary/styles.xml"},
        {"an end within a word", "ument.xml", "no such part"},
        {"the end of a folder", "folder", "no such part"},
        {"no such relationship", "rId9@document.xml", "no relationship rId9 of word/document.xml"},
        {"no such relationship of the package", "rId9@/", "no relationship rId9 of the package"},
        {"several of a type without a number", "two@word/styles.xml",
         "2 relationships have the type two, which has no number to find one by"},
        {"an empty Id", "@document.xml", "no relationship  of word/document.xml"},
        {"an external one", "out@document.xml",
         "relationship out of word/document.xml leads to no part: https://example.org/"},
        {"one that leads nowhere", "gone@document.xml",
         "relationship gone of word/document.xml leads to no part: gone.xml"},
        {"a relationship of no part", "rId1@nothing.xml", "no such part"},
        {"nothing", "", "no such part"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shows);
        const ToolRun run = Cat(row.argument);
        EXPECT_EQ(run.status, 4);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "vexpa: " + path_ + ": " + (row.argument.empty() ? "\"\"" : row.argument) +
                               ": " + row.reason + "\n");
    }
}

TEST(PartArgumentMain, IsThePartOfTheOfficeDocument) {
    PackageFile file = MinimalPackage();
    EXPECT_EQ(RunTool({"cat", file.Write().Path(), "main"}).out, "<document/>");
}

TEST(PartArgumentMain, MayNotBeThere) {
    PackageFile file;
    file.Relationship("r", kStyles, "a.xml");
    file.Entry("a.xml", "");
    const std::string path = file.Write().Path();
    const ToolRun run = RunTool({"cat", path, "main"});
    EXPECT_EQ(run.status, 4);
    EXPECT_EQ(run.err, "vexpa: " + path +
                           ": main: no such part: the package has no relationship to a main part\n");
}

TEST(PartArgumentMain, MayLeadNowhere) {
    PackageFile file;
    file.Relationship("r1", kOfficeDocument, "gone.xml");
    file.Relationship("r2", kStyles, "a.xml");
    file.Entry("a.xml", "");
    const std::string path = file.Write().Path();
    EXPECT_EQ(
        RunTool({"cat", path, "main"}).err,
        "vexpa: " + path + ": main: no such part: the officeDocument relationship leads to none\n");
}

// Where the library finds no officeDocument relationship, `info` shows what stands in its place.
TEST(PartArgumentMain, IsThePartThatInfoShows) {
    for (const char* type : {"http://purl.oclc.org/ooxml/officeDocument/relationships/officeDocument",
                             "http://schemas.microsoft.com/visio/2010/relationships/document",
                             "http://schemas.microsoft.com/xps/2005/06/fixedrepresentation",
                             "http://schemas.microsoft.com/3dmanufacturing/2013/01/3dmodel"}) {
        SCOPED_TRACE(type);
        PackageFile file;
        file.Relationship("r1", kStyles, "other.xml");
        file.Relationship("r2", type, "x/begin.xml");
        file.Entry("other.xml", "other");
        file.Entry("x/begin.xml", "the beginning");
        const std::string path = file.Write().Path();
        EXPECT_EQ(RunTool({"cat", path, "main"}).out, "the beginning");
        const auto info = nlohmann::json::parse(RunTool({"info", "--json", path}).out);
        EXPECT_EQ(info["main_part"], "x/begin.xml");
    }
}

// 5,000 names that all end alike are not all listed.
TEST(PartArgumentTail, OfVeryManyNamesIsAShortMessage) {
    PackageFile file = MinimalPackage();
    for (int i = 0; i < 5000; ++i) file.Entry(std::to_string(i) + "/a.xml", "").stored = true;
    const std::string path = file.Write().Path();
    EXPECT_EQ(RunTool({"cat", path, "a.xml"}).err,
              "vexpa: " + path +
                  ": a.xml: is ambiguous: 0/a.xml, 1/a.xml, 2/a.xml, 3/a.xml, "
                  "4/a.xml, 5/a.xml, 6/a.xml, 7/a.xml and 4992 more\n");
}

}  // namespace
