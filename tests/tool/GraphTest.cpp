#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunTool.h"
#include "tool/graph/GraphText.h"
#include "tool/graph/PackageGraph.h"

namespace {

using namespace vexpa_test;
using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

const std::string kTypes = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

// A document with pictures, links, a missing part and two parts that know each other.
PackageFile Illustrated() {
    PackageFile file = MinimalPackage();
    file.Default("png", "image/png");
    std::string relationships;
    for (int i = 0; i < 3; ++i) {
        const std::string number = std::to_string(i);
        file.Entry("media/" + number + ".png", "1234");
        relationships += RelationshipXml("i" + number, kTypes + "image", "/media/" + number + ".png");
        relationships += RelationshipXml("h" + number, kTypes + "hyperlink",
                                         "https://example.org/" + number, "External");
    }
    relationships += RelationshipXml("h9", kTypes + "hyperlink", "https://example.com/", "External");
    relationships += RelationshipXml("gone", kTypes + "image", "NULL");
    relationships += RelationshipXml("one", kTypes + "slideMaster", "/one.xml");
    file.Entry("one.xml", "<one/>");
    file.Entry("two.xml", "<two/>");
    file.Entry("_rels/one.xml.rels",
               RelationshipsXml(RelationshipXml("r", kTypes + "slideLayout", "two.xml")));
    file.Entry("_rels/two.xml.rels",
               RelationshipsXml(RelationshipXml("r", kTypes + "slideMaster", "one.xml")));
    file.Entry("word/_rels/document.xml.rels", RelationshipsXml(relationships));
    return file;
}

json Graph(PackageFile& file, const std::vector<std::string>& options = {}) {
    std::vector<std::string> arguments = {"graph", "--json", file.Write().Path()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return json::parse(RunTool(arguments).out);
}

std::vector<std::string> Kinds(const json& graph) {
    std::vector<std::string> kinds;
    for (const json& node : graph["nodes"]) kinds.push_back(node["kind"]);
    return kinds;
}

TEST(GraphCommand, FoldsLinksAndMediaAndEdgesToAndFro) {
    PackageFile file = Illustrated();
    const json graph = Graph(file);
    EXPECT_THAT(Kinds(graph),
                ElementsAre("package", "main", "missing", "external", "media", "part", "part"));
    EXPECT_EQ(graph["nodes"][3]["names"], (json{"https://example.org/0", "https://example.org/1",
                                                "https://example.org/2", "https://example.com/"}));
    EXPECT_EQ(graph["nodes"][4]["names"].size(), 3u);
    EXPECT_EQ(graph["nodes"][4]["size"], 12);
    ASSERT_THAT(graph["edges"], SizeIs(6));
    EXPECT_EQ(
        graph["edges"][5],
        (json{{"from", 5}, {"to", 6}, {"type", "slideLayout"}, {"ids", {"r"}}, {"mutual", true}}));
}

TEST(GraphCommand, InFullHasANodeForEverything) {
    PackageFile file = Illustrated();
    const json graph = Graph(file, {"--full"});
    EXPECT_THAT(graph["nodes"], SizeIs(12));
    EXPECT_THAT(graph["edges"], SizeIs(12));
}

TEST(GraphCommand, PartsWithOtherNeighboursAreNotAlike) {
    PackageFile file = MinimalPackage();
    file.Default("png", "image/png");
    for (const char* name : {"a.xml", "b.xml"}) {
        file.Relationship(name, kStyles, name);
        file.Entry(name, "");
    }
    const auto image = [](const char* id, const char* target) {
        return RelationshipXml(id, kTypes + "image", target);
    };
    file.Entry("_rels/a.xml.rels", RelationshipsXml(image("1", "1.png") + image("2", "2.png")));
    file.Entry("_rels/b.xml.rels", RelationshipsXml(image("2", "2.png") + image("3", "3.png")));
    for (const char* name : {"1.png", "2.png", "3.png"}) file.Entry(name, "");
    EXPECT_THAT(Graph(file)["nodes"], SizeIs(7));
}

TEST(GraphCommand, FiveAlikePartsAreFoldedAndFourAreNot) {
    for (const int count : {4, 5}) {
        PackageFile file = MinimalPackage();
        for (int i = 0; i < count; ++i) {
            const std::string name = "p" + std::to_string(i) + ".xml";
            file.Relationship(name, kStyles, name);
            file.Entry(name, "");
        }
        EXPECT_THAT(Graph(file)["nodes"], SizeIs(count == 4 ? 6 : 3));
    }
}

TEST(GraphCommand, BeginsAtAPartAndGoesSoFar) {
    PackageFile file = Illustrated();
    EXPECT_THAT(Kinds(Graph(file, {"--from", "one.xml"})), ElementsAre("part", "part"));
    EXPECT_THAT(Kinds(Graph(file, {"--depth", "1"})), ElementsAre("package", "main"));
    EXPECT_THAT(Graph(file, {"--depth", "0"})["edges"], SizeIs(0));
}

TEST(GraphCommand, WritesGraphvizWithTheMissingInRed) {
    PackageFile file = Illustrated();
    const std::string path = file.Write().Path();
    const std::string dot = RunTool({"graph", path}).out;
    EXPECT_THAT(dot, StartsWith("digraph \"" + path + "\" {\n"));
    EXPECT_THAT(dot, HasSubstr("<b>word/NULL</b>&#160;&#160;<font point-size=\"9\">image</font>"
                               "<br align=\"left\"/><font point-size=\"9\">missing</font>"));
    EXPECT_THAT(dot, HasSubstr("<b>4 hyperlinks</b><br align=\"left\"/><font "
                               "point-size=\"9\">example.org x3</font>"));
    EXPECT_THAT(dot, HasSubstr("n1 -> n4 [tooltip=\"image x3: i0, i1, i2\""));
    EXPECT_THAT(dot, HasSubstr("n5 -> n6 [tooltip=\"slideLayout: r\", dir=both"));
    EXPECT_EQ(RunTool({"graph", "--dot", path}).out, dot);
}

TEST(GraphCommand, LabelsTheEdgesOfAPartThatSeveralTypesLeadTo) {
    PackageFile file = MinimalPackage();
    file.Entry("word/_rels/document.xml.rels",
               RelationshipsXml(RelationshipXml("a", kTypes + "styles", "one.xml") +
                                RelationshipXml("b", kTypes + "theme", "one.xml") +
                                RelationshipXml("c", kTypes + "theme", "one.xml")));
    file.Entry("word/one.xml", "<one/>");
    const std::string dot = RunTool({"graph", "--full", file.Write().Path()}).out;
    EXPECT_THAT(dot, HasSubstr("<b>one.xml</b><br"));
    EXPECT_THAT(dot, HasSubstr("n1 -> n2 [label=\"styles\", tooltip=\"styles: a\""));
    EXPECT_THAT(dot, HasSubstr("n1 -> n2 [label=\"theme\", tooltip=\"theme: c\""));
}

TEST(GraphCommand, WritesMermaid) {
    PackageFile file = Illustrated();
    const std::string text = RunTool({"graph", "--mermaid", file.Write().Path()}).out;
    EXPECT_THAT(text, StartsWith("flowchart LR\n"));
    EXPECT_THAT(text, HasSubstr("n2[\"word/NULL<br/>missing\"]:::missing\n"));
    EXPECT_THAT(text, HasSubstr("n1 -.->|\"image\"| n2\n"));
    EXPECT_THAT(text, HasSubstr("n5 <-->|\"slideLayout\"| n6\n"));
}

// What Graphviz and Mermaid take for their own: quotes, escapes, entities, tags.
PackageFile Hostile() {
    PackageFile file = MinimalPackage();
    const std::string name = "a&quot;]\\N&amp;lt;b&gt;`#|;&#x202E;.xml";
    file.Relationship("&quot;\\G", "x/&quot;&lt;i>E&amp;", name);
    file.Relationship("rId9", kOfficeDocument, "word/document.xml");
    return file;
}

TEST(GraphCommand, NamesAreNoMarkup) {
    PackageFile file = Hostile();
    const std::string path = file.Write().Path();
    const std::string dot = RunTool({"graph", path}).out;
    EXPECT_THAT(dot, HasSubstr("<b>a\"]\\N&amp;lt;b&gt;`#|;\\u202e.xml</b>"));
    EXPECT_THAT(dot, HasSubstr("<font point-size=\"9\">\"&lt;i&gt;E&amp;</font>"));
    EXPECT_THAT(dot, HasSubstr("tooltip=\"\\\"<i>E&amp;: \\\"\\\\G\""));
    const std::string mermaid = RunTool({"graph", "--mermaid", path}).out;
    EXPECT_THAT(mermaid, HasSubstr("[\"a#34;]#92;N#38;lt#59;b#62;#96;#35;#124;#59;#92;u202e.xml<br/>"));
}

class GraphPicture : public testing::Test {
protected:
    // Graphviz keeps what it has read until the process ends.
    static ToolRun Draw(const std::vector<std::string>& arguments) {
        ToolSetting setting;
        setting.environment.push_back("ASAN_OPTIONS=detect_leaks=0");
        return RunTool(arguments, setting);
    }
};

TEST_F(GraphPicture, IsAnSvgDocument) {
    PackageFile file = Illustrated();
    const ToolRun run = Draw({"graph", "--svg", file.Write().Path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(run.out, StartsWith("<?xml"));
    EXPECT_THAT(run.out, HasSubstr("<svg "));
    EXPECT_THAT(run.out, HasSubstr(">4 hyperlinks</text>"));
    EXPECT_THAT(run.out, HasSubstr(">missing</text>"));
    EXPECT_THAT(run.out, testing::EndsWith("</svg>\n"));
}

std::size_t CountOf(const std::string& text, const std::string& piece) {
    std::size_t count = 0;
    for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1)) {
        ++count;
    }
    return count;
}

// How it is laid out is Graphviz's business.
TEST_F(GraphPicture, HasWhatTheGraphHas) {
    for (const char* sample : {"report.docx", "talk.pptx", "tides.xlsx", "ledger.xlsx"}) {
        SCOPED_TRACE(sample);
        const std::string path = std::string(VEXPA_SOURCE_DIR "/samples/") + sample;
        const auto graph = nlohmann::json::parse(RunTool({"graph", "--json", path}).out);
        const std::string picture = Draw({"graph", "--svg", path}).out;
        EXPECT_EQ(CountOf(picture, "class=\"node\""), graph["nodes"].size());
        EXPECT_EQ(CountOf(picture, "class=\"edge\""), graph["edges"].size());
        for (const auto& node : graph["nodes"]) {
            if (node["kind"] != "part" || node["names"].size() != 1) continue;
            const std::string name = node["names"][0];
            EXPECT_THAT(picture, HasSubstr(name.substr(name.rfind('/') + 1) + "</text>"));
        }
    }
}

// The main part of a Strict document is the main part, and its objects and links are what they are.
TEST(GraphCommand, KnowsTheTypesOfStrictDocuments) {
    const std::string strict = "http://purl.oclc.org/ooxml/officeDocument/relationships/";
    PackageFile file;
    file.Relationship("rId1", strict + "officeDocument", "word/document.xml");
    file.Entry("word/document.xml", "<a/>");
    file.Entry("word/object.bin", "x");
    file.Entry("word/_rels/document.xml.rels",
               RelationshipsXml(RelationshipXml("a", strict + "oleObject", "object.bin") +
                                RelationshipXml("b", strict + "hyperlink", "http://x/", "External")));
    const auto graph = nlohmann::json::parse(RunTool({"graph", "--json", file.Write().Path()}).out);
    std::vector<std::string> kinds;
    for (const auto& node : graph["nodes"]) kinds.push_back(node["kind"]);
    EXPECT_THAT(kinds, testing::ElementsAre("package", "main", "embedded", "external"));
}

TEST_F(GraphPicture, OfHostileNamesIsADocumentAllTheSame) {
    PackageFile file = Hostile();
    const ToolRun run = Draw({"graph", "--svg", file.Write().Path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(run.out, Not(HasSubstr("<i>")));
    EXPECT_THAT(run.out, testing::EndsWith("</svg>\n"));
}

TEST_F(GraphPicture, OfVeryManyNodesIsRefused) {
    PackageFile file = MinimalPackage();
    for (int i = 0; i < 1001; ++i) {
        const std::string number = std::to_string(i);
        file.Relationship("r" + number, "type" + number, "gone" + number);
    }
    file.Relationship("z", kOfficeDocument, "word/document.xml");
    const std::string path = file.Write().Path();
    const ToolRun run = Draw({"graph", "--svg", path});
    EXPECT_EQ(run.status, 5);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "vexpa: " + path +
                           ": 1003 nodes and 1002 edges are too many for a picture "
                           "(see --from, --depth)\n");
    EXPECT_EQ(RunTool({"graph", path}).status, 0);
}

TEST(GraphCommand, TakesOneFormAtATime) {
    EXPECT_EQ(RunTool({"graph", "--svg", "--json", "a"}).status, 2);
    EXPECT_EQ(RunTool({"graph", "--dot", "--mermaid", "a"}).status, 2);
}

}  // namespace
