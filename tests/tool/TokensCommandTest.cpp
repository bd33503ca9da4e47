#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/opc/PackageFile.h"
#include "tests/tool/JsonLines.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

const std::string kWordUri = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";

// Tokens as tokens.tsv has them: w:p, w:r, w:val.
constexpr int kP = 0x000100E6, kR = 0x000100C3, kVal = 0x00010258;

constexpr const char* kParagraph =
    "<w:p xmlns:w='http://schemas.openxmlformats.org/wordprocessingml/2006/main'"
    " xmlns:my='urn:my' my:val='0' w:val='a&quot;\u00e4' val='b' w:none='c'>"
    "<w:r/><my:r val='d'/><r xmlns='' Id='rId1'/></w:p>";

// Runs the tool on a package whose part a.xml has this content.
ToolRun Tokens(const std::string& content, std::vector<std::string> options = {}) {
    PackageFile file = MinimalPackage();
    file.Entry("a.xml", content);
    std::vector<std::string> arguments = {"tokens", file.Write().Path(), "a.xml"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return RunTool(arguments);
}

TEST(TokensOfAPart, ShowNamesWithTokenAndNamespaceInDocumentOrder) {
    const ToolRun run = Tokens(kParagraph);
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(Lines(run.out),
                ElementsAre("0x000100E6  w:p                                       " + kWordUri,
                            "-             @val                                    urn:my",
                            "0x00010258    @w:val                                  " + kWordUri,
                            "0x00010258    @val                                    \"\"",
                            "-             @w:none                                 " + kWordUri,
                            "0x000100C3    w:r                                     " + kWordUri,
                            "-             r                                       urn:my",
                            "-               @val                                  \"\"",
                            "-             r                                       \"\"",
                            "0x00000001      @Id                                   \"\""));
}

TEST(TokensOfAPart, EndWithTheTotalsOnStderr) {
    EXPECT_EQ(Tokens(kParagraph).err,
              "elements: 4, attributes: 6, with a token: 5, unknown namespaces: 1, unknown names: 2\n");
}

TEST(TokensOfAPart, CountAnUnknownNameOnce) {
    EXPECT_EQ(
        Tokens("<a xmlns='urn:my'><b/><c xmlns='urn:other' d=''/><x xmlns=''/><x xmlns=''/></a>").err,
        "elements: 5, attributes: 1, with a token: 0, unknown namespaces: 2, unknown names: 1\n");
}

TEST(TokensOfAPart, AsJsonAreOneObjectAnElement) {
    const ToolRun run = Tokens(kParagraph, {"--json"});
    EXPECT_EQ(run.status, 0);
    const auto attribute = [](const std::string& uri, const char* name, int token, const char* value) {
        return json{{"uri", uri}, {"name", name}, {"token", token}, {"value", value}};
    };
    const json p = {{"depth", 0},
                    {"uri", kWordUri},
                    {"name", "p"},
                    {"token", kP},
                    {"attributes",
                     {attribute("urn:my", "val", 0, "0"), attribute(kWordUri, "val", kVal, "a\"\u00e4"),
                      attribute("", "val", kVal, "b"), attribute(kWordUri, "none", 0, "c")}}};
    const json r = {
        {"depth", 1}, {"uri", kWordUri}, {"name", "r"}, {"token", kR}, {"attributes", json::array()}};
    const json myR = {{"depth", 1},
                      {"uri", "urn:my"},
                      {"name", "r"},
                      {"token", 0},
                      {"attributes", json::array({attribute("", "val", 0, "d")})}};
    const json plainR = {{"depth", 1},
                         {"uri", ""},
                         {"name", "r"},
                         {"token", 0},
                         {"attributes", json::array({attribute("", "Id", 1, "rId1")})}};
    EXPECT_THAT(JsonLines(run.out), ElementsAre(p, r, myR, plainR));
    EXPECT_THAT(run.err, StartsWith("elements: 4, "));
}

TEST(TokensOfAPart, AsJsonHaveTheirKeysInAFixedOrder) {
    EXPECT_EQ(Tokens("<a b='c'/>", {"--json"}).out,
              "{\"depth\":0,\"uri\":\"\",\"name\":\"a\",\"token\":0,\"attributes\":"
              "[{\"uri\":\"\",\"name\":\"b\",\"token\":0,\"value\":\"c\"}]}\n");
}

TEST(TokensOfAPart, AreReadFromUtf16) {
    const std::u16string text =
        u"\uFEFF" + Utf16("<?xml version='1.0' encoding='UTF-16'?><\u00e4 b='\U0001F600'/>");
    std::string bytes;
    for (const char16_t unit : text) {
        bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    }
    const std::vector<json> lines = JsonLines(Tokens(bytes, {"--json"}).out);
    ASSERT_THAT(lines, SizeIs(1));
    EXPECT_EQ(lines[0]["name"], "\u00e4");
    EXPECT_EQ(lines[0]["attributes"][0]["value"], "\U0001F600");
}

TEST(TokensOfAPart, KeepAttributeValuesAsTheyAre) {
    const std::vector<json> lines =
        JsonLines(Tokens("<a b='\uFEFFx&#10;&#x9;\u202E'/>", {"--json"}).out);
    ASSERT_THAT(lines, SizeIs(1));
    EXPECT_EQ(lines[0]["attributes"][0]["value"], "\uFEFFx\n\t\u202E");
}

TEST(TokensOfAPart, OfMalformedXmlEndWithStatus5AndOneLine) {
    const struct {
        const char* shows;
        std::string content;
        const char* complaint;
    } kRows[] = {
        {"tags that cross", "<a>\n<b></a>", "line 2: mismatched tag"},
        {"nothing", "", "line 1: no element found"},
        {"a cut tag", "<a", "line 1: unclosed token"},
        {"a prefix that nobody declared", "<a><x:b/></a>", "line 1: unbound prefix"},
        {"an encoding that parts may not have", "<?xml version='1.0' encoding='EBCDIC'?><a/>",
         "line 1: unknown encoding"},
        {"a document type", "<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>",
         "line 1: a document type declaration"},
        {"an error far behind", "<a>" + std::string(200'000, '\n') + "</b>",
         "line 200001: mismatched tag"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.shows);
        const ToolRun run = Tokens(row.content);
        EXPECT_EQ(run.status, 5);
        EXPECT_THAT(Lines(run.err), SizeIs(1));
        EXPECT_THAT(run.err, StartsWith("vexpa: /"));
        EXPECT_THAT(run.err, HasSubstr(std::string(": a.xml: ") + row.complaint + "\n"));
    }
}

TEST(TokensOfAPart, OfADamagedOrMissingPartEndAsInCat) {
    PackageFile file = MinimalPackage();
    file.Entry("broken.xml", "<a/>").crc = 0;
    const std::string path = file.Write().Path();
    const ToolRun broken = RunTool({"tokens", path, "broken.xml"});
    EXPECT_EQ(broken.status, 5);
    EXPECT_EQ(broken.err,
              "vexpa: " + path + ": broken.xml: cannot be extracted: damaged or encrypted\n");
    const ToolRun missing = RunTool({"tokens", path, "missing.xml"});
    EXPECT_EQ(missing.status, 4);
    EXPECT_EQ(missing.err, "vexpa: " + path + ": missing.xml: no such part\n");
    EXPECT_EQ(RunTool({"tokens", path + ".gone", "a.xml"}).status, 5);
}

TEST(TokensOfAPart, OfADeepDocumentNeedLittleMemoryAndStack) {
    std::string xml;
    for (int i = 0; i < 100'000; ++i) xml += "<a>";
    for (int i = 0; i < 100'000; ++i) xml += "</a>";
    const ToolRun run = Tokens(xml, {"--json"});
    EXPECT_EQ(run.status, 0);
    const std::vector<std::string> lines = Lines(run.out);
    ASSERT_THAT(lines, SizeIs(100'000));
    EXPECT_THAT(lines.back(), StartsWith("{\"depth\":99999,"));
}

TEST(TokensOfAPart, NamesCannotDisturbATerminal) {
    const ToolRun run = Tokens("<a xmlns='urn:\u202E\u2028'/>");
    EXPECT_THAT(run.out, HasSubstr("urn:\\u202e\\u2028\n"));
}

TEST(TokensCommand, WrongUsageEndsWithStatus2) {
    const std::vector<std::vector<std::string>> wrong = {
        {"tokens"},
        {"tokens", "--json"},
        {"tokens", "--namespaces", "w:val"},
        {"tokens", "--types", "w:val"},
        {"tokens", "--types", "--namespaces"},
        {"tokens", "0x"},
        {"tokens", "0x123456789"},
        {"tokens", "0xG"},
        {"tokens", "a", "b", "c"},
    };
    for (const auto& arguments : wrong) {
        SCOPED_TRACE(arguments.back());
        const ToolRun run = RunTool(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(Lines(run.err), SizeIs(1));
    }
}

// Forgetting the part makes the file a name to be looked up.
TEST(TokensCommand, WantsAPartOfAFile) {
    PackageFile file = MinimalPackage();
    const std::string path = file.Write().Path();
    const ToolRun run = RunTool({"tokens", path});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "vexpa: " + path + ": is a file; name a PART of it, too (see vexpa tokens --help)\n");
    EXPECT_EQ(RunTool({"tokens", path + ".gone"}).status, 4);
}

TEST(TokensOfAPart, DoNotCountWhatBelongsToXmlItselfAsUnknown) {
    EXPECT_EQ(Tokens("<a xml:space='preserve'/>").err,
              "elements: 1, attributes: 1, with a token: 0, unknown namespaces: 0, unknown names: 1\n");
    EXPECT_EQ(Tokens("<a xml:space='preserve'/>", {"--annotate"}).err,
              "elements: 1, attributes: 1, with a token: 0, unknown namespaces: 0, unknown names: 1\n"
              "unknown name: {}a\n");
}

TEST(TokensCommand, AFullDiskIsNoticed) {
    PackageFile file = MinimalPackage();
    const std::string path = file.Write().Path();
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"tokens", path, "word/document.xml"}, {"tokens", "val"}, {"tokens", "--namespaces"}}) {
        const ToolRun run = RunTool(arguments, {.outputFile = "/dev/full"});
        EXPECT_EQ(run.status, 5);
        EXPECT_EQ(run.err, "vexpa: standard output: No space left on device\n");
    }
}

TEST(AnnotatedTokens, StandAfterTheNamesInTheDocument) {
    const ToolRun run = Tokens(kParagraph, {"--annotate"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(
        run.out,
        "<w:p{1:230} xmlns:w='http://schemas.openxmlformats.org/wordprocessingml/2006/main'"
        " xmlns:my='urn:my' my:val{-}='0' w:val{1:600}='a&quot;\u00e4' val{1:600}='b' w:none{-}='c'>\n"
        "  <w:r{1:195}/>\n  <my:r{-} val{-}='d'/>\n"
        "  <r{-} xmlns='' Id{0:1}='rId1'/>\n</w:p>\n");
    EXPECT_EQ(run.err,
              "elements: 4, attributes: 6, with a token: 5, unknown namespaces: 1, unknown names: 2\n"
              "unknown namespace: urn:my\n"
              "unknown name: {}r\n"
              "unknown name: {" +
                  kWordUri + "}none\n");
}

TEST(AnnotatedTokens, LeaveEveryOtherByteAsItIs) {
    EXPECT_EQ(
        Tokens(
            "<a  b = \"x='y'>\"\n c='\"/>' ><?z <q w='1'>?><!--<x y='1'>--><![CDATA[<t u='1'>]]></a >",
            {"--annotate"})
            .out,
        "<a{-}  b{-} = \"x='y'>\"\n c{-}='\"/>' ><?z <q w='1'>?><!--<x y='1'>--><![CDATA[<t "
        "u='1'>]]></a >\n");
}

TEST(AnnotatedTokens, NeedAPartThatIsXml) {
    EXPECT_EQ(Tokens("<a>", {"--annotate"}).status, 5);
    EXPECT_EQ(RunTool({"tokens", "--annotate", "w:val"}).status, 2);
}

}  // namespace
