// What the vocabulary and the table of relationship types have.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/tool/JsonLines.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using nlohmann::json;
using testing::ElementsAre;
using testing::SizeIs;
using testing::StartsWith;

constexpr int kVal = 0x00010258;  // w:val, as tokens.tsv has it
const std::string kWordUri = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";

TEST(TokensOfAName, AreFoundByPrefixNamespaceOrNameAlone) {
    const std::string val = "0x00010258  w:val  " + kWordUri + "\n";
    EXPECT_EQ(RunTool({"tokens", "w:val"}).out, val);
    EXPECT_EQ(RunTool({"tokens", "{" + kWordUri + "}val"}).out, val);
    EXPECT_EQ(RunTool({"tokens", "0x00010258"}).out, val);
    EXPECT_EQ(RunTool({"tokens", "0X10258"}).out, val);
    EXPECT_THAT(
        Lines(RunTool({"tokens", "val"}).out),
        ElementsAre("0x00010258  w:val    " + kWordUri,
                    "0x00020091  p:val    http://schemas.openxmlformats.org/presentationml/2006/main",
                    "0x00040056  a:val    http://schemas.openxmlformats.org/drawingml/2006/main",
                    "0x0022002C  dgm:val  http://schemas.openxmlformats.org/drawingml/2006/diagram",
                    "0x002C003C  w14:val  http://schemas.microsoft.com/office/word/2010/wordml"));
}

TEST(TokensOfAName, MayBeInNoNamespace) {
    EXPECT_EQ(RunTool({"tokens", "{}Relationships"}).out, "0x00000002  pkg:Relationships  \"\"\n");
    EXPECT_EQ(RunTool({"tokens", "html:div"}).out, RunTool({"tokens", "{}div"}).out);
    EXPECT_EQ(RunTool({"tokens", "0x0"}).out, "0x00000000  pkg:__nullName  \"\"\n");
}

TEST(TokensOfAName, TheChartsTokenLeadsBackToAnotherName) {
    EXPECT_THAT(RunTool({"tokens", "c:chart"}).out, StartsWith("0x0007002D  c:chart "));
    EXPECT_THAT(RunTool({"tokens", "0x0007002D"}).out, StartsWith("0x0007002D  xdr:txBox "));
}

TEST(TokensOfAName, AsJsonAreOneObjectATokenEach) {
    const std::vector<json> lines = JsonLines(RunTool({"tokens", "--json", "val"}).out);
    ASSERT_THAT(lines, SizeIs(5));
    EXPECT_EQ(lines[0], (json{{"uri", kWordUri}, {"name", "val"}, {"token", kVal}}));
}

TEST(TokensOfAName, ThatIsNotInTheVocabularyEndWithStatus4) {
    for (const std::string name : {"w:nothing", "q:val", "{urn:my}val", "nothing", "w:Val",
                                   "0x00010000", "0xFFFFFFFF", "", "{", "{}", ":", "w:", "w:val:val"}) {
        SCOPED_TRACE(name);
        const ToolRun run = RunTool({"tokens", name});
        EXPECT_EQ(run.status, 4);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "vexpa: " + (name.empty() ? "\"\"" : name) + ": not in the vocabulary\n");
    }
}

TEST(TokensOfTheNamespaces, AreListedOncePerNamespaceInTheirOrder) {
    const std::vector<json> lines = JsonLines(RunTool({"tokens", "--namespaces", "--json"}).out);
    ASSERT_THAT(lines, SizeIs(41));
    EXPECT_EQ(lines[0], (json{{"prefixes", {"w"}}, {"ids", {1}}, {"uri", kWordUri}, {"names", 791}}));
    EXPECT_EQ(
        lines[1],
        (json{
            {"prefixes", {"pkg", "html", "nons"}}, {"ids", {0, 17, 19}}, {"uri", ""}, {"names", 21}}));
    int names = 0;
    for (const json& line : lines) names += line["names"].get<int>();
    EXPECT_EQ(names, 2'614);
}

TEST(TokensOfTheNamespaces, AreATableForPeople) {
    const std::vector<std::string> lines = Lines(RunTool({"tokens", "--namespaces"}).out);
    ASSERT_THAT(lines, SizeIs(42));
    EXPECT_EQ(lines[0], "Prefix           Id         Names  Namespace");
    EXPECT_EQ(lines[1], "w                1            791  " + kWordUri);
    EXPECT_EQ(lines[2], "pkg, html, nons  0, 17, 19     21  \"\"");
}

TEST(TokensOfAName, ThatShareATokenAreAllNamed) {
    EXPECT_THAT(Lines(RunTool({"tokens", "0x0007002D"}).out),
                ElementsAre(StartsWith("0x0007002D  xdr:txBox "), StartsWith("0x0007002D  c:chart ")));
}

TEST(TokensOfTheTypes, AreTheNumbersOfTheRelationshipTypes) {
    const std::vector<std::string> lines = Lines(RunTool({"tokens", "--types"}).out);
    ASSERT_THAT(lines, SizeIs(61));
    EXPECT_EQ(lines[0], "Id  Enumerator                    Type");
    EXPECT_EQ(lines[10],
              " 9  RelTypeOfficeDocument         http://schemas.openxmlformats.org/officedocument/2006/"
              "relationships/officedocument");
    const std::vector<json> objects = JsonLines(RunTool({"tokens", "--types", "--json"}).out);
    ASSERT_THAT(objects, SizeIs(60));
    EXPECT_EQ(objects[9]["name"], "RelTypeOfficeDocument");
    EXPECT_EQ(objects[9]["id"], 9);
}

}  // namespace
