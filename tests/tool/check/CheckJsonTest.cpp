// What the check tells programs, and what it makes of names that want to be more than names.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <nlohmann/json.hpp>

#include "tests/tool/RunTool.h"
#include "tests/tool/check/FindingRows.h"

namespace {

using namespace vexpa_test;
using nlohmann::json;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

std::vector<std::string> Keys(const std::string& text) {
    std::vector<std::string> keys;
    const auto parsed = nlohmann::ordered_json::parse(text);
    for (const auto& [key, value] : parsed.items()) keys.push_back(key);
    return keys;
}

TEST(CheckCommand, JsonHasTheSameShapeForNothingAndForMuch) {
    const ScratchFile sound(SoundPackage().Bytes()), refused(Refused()), text("text");
    for (const std::string& path :
         {sound.Path(), refused.Path(), text.Path(), std::string("/nowhere")}) {
        SCOPED_TRACE(path);
        EXPECT_THAT(Keys(RunTool({"check", "--json", path}).out),
                    ElementsAre("package", "opened", "status", "error", "stopped_at", "counts",
                                "omitted", "findings"));
    }
}

TEST(CheckCommand, JsonTellsAllOfAFinding) {
    const ScratchFile file(Refused());
    const json report = json::parse(RunTool({"check", "--json", file.Path()}).out);
    EXPECT_EQ(report["opened"], false);
    EXPECT_EQ(report["status"], 1);
    EXPECT_EQ(report["stopped_at"], "package relationships");
    const json expected = {
        {"id", "VX301"},
        {"severity", "error"},
        {"step", "package relationships"},
        {"stops_opening", true},
        {"entry", "_rels/.rels"},
        {"relationship", "rId2"},
        {"target", "Word/Document.xml"},
        {"offset", nullptr},
        {"line", 1},
        {"column", 228},
        {"cause", "the last relationship rId2 (theme) has no part: Word/Document.xml"},
        {"hint", "add the part, remove the relationship, or move it before another one"},
        {"items", json::array()},
        {"items_omitted", 0}};
    EXPECT_EQ(report["findings"][0], expected);
}

TEST(CheckCommand, JsonOfSeveralFilesIsALineForEach) {
    const ScratchFile sound(SoundPackage().Bytes()), refused(Refused());
    const ToolRun run = RunTool({"check", "--json", sound.Path(), refused.Path()});
    const std::vector<std::string> lines = Lines(run.out);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(json::parse(lines[0])["opened"], true);
    EXPECT_EQ(json::parse(lines[1])["opened"], false);
    EXPECT_EQ(run.err, "");
}

// Everything that a package can name itself.
std::string Hostile() {
    const std::string evil = "\x1b[2J\u202e\nforged: error";
    const std::string inXml = "\u202e&#10;\u009b2Jforged: error";
    return Spoiled([&](SoundPackage& p) {
        p.Add(evil, "x").localName = "\x1b[31m" + evil.substr(5);
        p.Add("[Content_Types].xml/" + evil + "/../[0].piece", "x");
        p.types += "<Override PartName='/" + inXml + "' ContentType='" + inXml + "'/>";
        p.types += "<Default Extension='." + inXml + "' ContentType='x'/>";
        p.relationships += Relation(inXml, inXml, inXml);
        p.partRelationships +=
            Relation(inXml, OfficeType("attachedTemplate"), "http://" + inXml, "TargetMode='External'");
        p.partRelationships += Relation("b" + inXml, inXml, inXml + "%41#" + inXml);
        p.document = "<a:" + std::string("b xmlns:a='") + inXml + "'><unclosed></a:b>";
    });
}

TEST(CheckCommand, NamesFromThePackageAreEscaped) {
    const ScratchFile file(Hostile()), sound(SoundPackage().Bytes());
    const std::vector<std::vector<std::string>> runs = {
        {"check", "--deep", "--all", file.Path()},
        {"check", "--deep", "--all", file.Path(), sound.Path()},
        {"check", "--deep", "--json", file.Path()},
        {"info", file.Path()},
        {"info", "--json", file.Path()},
        {"tree", file.Path()},
    };
    for (const std::vector<std::string>& arguments : runs) {
        const ToolRun run = RunTool(arguments);
        const std::string all = run.out + run.err;
        EXPECT_GT(all.size(), 100u);
        EXPECT_TRUE(std::none_of(all.begin(), all.end(), [](char c) {
            return std::iscntrl(static_cast<unsigned char>(c)) != 0 && c != '\n';
        }));
        EXPECT_EQ(all.find("\u202e"), std::string::npos);
        EXPECT_EQ(all.find("\u009b"), std::string::npos);
        for (const std::string& line : Lines(run.out)) EXPECT_THAT(line, Not(StartsWith("forged")));
    }
}

}  // namespace
