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
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// A warning, information and nothing worse.
std::string Dangling() {
    return Spoiled([](SoundPackage& p) {
        p.partRelationships += Relation("rId2", OfficeType("theme"), "gone.xml");
        p.partRelationships += Relation("rId3", "urn:x", "media/image1.png");
    });
}

std::string Refused() {
    return Spoiled([](SoundPackage& p) {
        p.relationships += Relation("rId2", OfficeType("theme"), "Word/Document.xml");
    });
}

TEST(CheckCommand, AnswersFirstAndGivesTheReasonSecond) {
    const ScratchFile file(Refused());
    const ToolRun run = RunTool({"check", file.Path()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out,
              file.Path() +
                  ": does not open\n"
                  "\n"
                  "  opening stopped at the package relationships (the last one decides)\n"
                  "  error   VX301  _rels/.rels:1:228: the last relationship rId2 (theme) has no part: "
                  "Word/Document.xml\n"
                  "          hint   add the part, remove the relationship, or move it before another "
                  "one\n"
                  "  error   VX305  _rels/.rels: an entry differs from the target only in letter case: "
                  "word/document.xml\n"
                  "          hint   entry names are compared exactly: rename the entry, or mend the "
                  "target\n"
                  "\n"
                  "2 findings: 2 errors, 0 warnings, 0 info\n");
}

TEST(CheckCommand, OfASoundPackageFindsNothing) {
    const ScratchFile file(SoundPackage().Bytes());
    const ToolRun run = RunTool({"check", "--deep", file.Path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, file.Path() + ": opens\n\nno findings\n");
}

TEST(CheckCommand, EndsWithStatus1FromTheGivenSeverityOn) {
    const ScratchFile warning(Dangling()), error(Refused()), sound(SoundPackage().Bytes());
    EXPECT_EQ(RunTool({"check", warning.Path()}).status, 0);
    EXPECT_EQ(RunTool({"check", "--fail-on", "warning", warning.Path()}).status, 1);
    EXPECT_EQ(RunTool({"check", "--fail-on", "error", warning.Path()}).status, 0);
    EXPECT_EQ(RunTool({"check", error.Path()}).status, 1);
    EXPECT_EQ(RunTool({"check", "--fail-on", "warning", sound.Path()}).status, 0);
    EXPECT_EQ(RunTool({"check", sound.Path(), error.Path()}).status, 1);
    EXPECT_EQ(RunTool({"check", "/nowhere/at all"}).status, 1);
}

TEST(CheckCommand, LooksAtWhatIsSelectedOnly) {
    const ScratchFile file(Dangling());
    EXPECT_THAT(RunTool({"check", "--only", "VX401", file.Path()}).out,
                AllOf(HasSubstr("VX401"), Not(HasSubstr("VX405")),
                      EndsWith("1 finding: 0 errors, 1 warning, 0 info\n")));
    EXPECT_THAT(RunTool({"check", "--only=VX4,VX6", file.Path()}).out, HasSubstr("2 findings: "));
    EXPECT_THAT(RunTool({"check", "--ignore", "VX4xx", file.Path()}).out, EndsWith("no findings\n"));
    EXPECT_EQ(RunTool({"check", "--fail-on", "warning", "--ignore", "VX401", file.Path()}).status, 0);
}

TEST(CheckCommand, FailsOnARefusedPackageWhateverIsSelected) {
    const ScratchFile file(Refused());
    const ToolRun run = RunTool({"check", "--ignore", "VX3", file.Path()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, file.Path() + ": does not open\n\nno findings\n");
}

TEST(CheckCommand, QuietlyTellsByItsStatusOnly) {
    const ScratchFile sound(SoundPackage().Bytes()), warning(Dangling()), refused(Refused());
    const struct {
        std::vector<std::string> arguments;
        int status;
    } rows[] = {
        {{sound.Path()}, 0},
        {{refused.Path()}, 1},
        {{warning.Path()}, 0},
        {{"--fail-on", "warning", warning.Path()}, 1},
        {{sound.Path(), refused.Path()}, 1},
    };
    for (const auto& row : rows) {
        std::vector<std::string> arguments = {"check", "-q"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const ToolRun run = RunTool(arguments);
        EXPECT_EQ(run.status, row.status) << row.arguments.front();
        EXPECT_EQ(run.out + run.err, "");
    }
    EXPECT_EQ(RunTool({"check", "-q", "--json", sound.Path()}).status, 2);
}

TEST(CheckCommand, LooksAtNoMoreEntriesThanItMay) {
    const ScratchFile sound(SoundPackage().Bytes());
    EXPECT_THAT(RunTool({"check", "--max-entries", "4", sound.Path()}).out,
                HasSubstr("VX608  the archive has 5 entries; only the first 4 were looked at\n"));
    EXPECT_THAT(RunTool({"check", "--max-entries", "5", sound.Path()}).out, Not(HasSubstr("VX608")));
}

TEST(CheckCommand, WrongOptionsEndWithStatus2) {
    const ScratchFile file(SoundPackage().Bytes());
    for (const std::vector<std::string>& options :
         std::vector<std::vector<std::string>>{{"--only", "VX999"},
                                               {"--ignore", "nonsense"},
                                               {"--fail-on", "info"},
                                               {"--max-part-size", "x"}}) {
        SCOPED_TRACE(options.front());
        std::vector<std::string> arguments = {"check", file.Path()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        EXPECT_EQ(RunTool(arguments).status, 2);
    }
}

TEST(CheckCommand, OfSeveralFilesWritesALineForEachFindingAndASummary) {
    const ScratchFile sound(SoundPackage().Bytes()), dangling(Dangling()), refused(Refused());
    const ToolRun run = RunTool({"check", sound.Path(), dangling.Path(), refused.Path()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(
        run.out,
        dangling.Path() +
            ": warning VX401 word/document.xml: rId2 (theme) has no part: word/gone.xml\n" +
            refused.Path() +
            ": error VX301 does not open: _rels/.rels:1:228: the last relationship rId2 (theme) has "
            "no part: Word/Document.xml\n" +
            refused.Path() +
            ": error VX305 _rels/.rels: an entry differs from the target only in letter case: "
            "word/document.xml\n"
            "3 files: 2 open, 1 do not\n"
            "  error    1  VX301  the last package relationship has no part\n"
            "  error    1  VX305  the target exists under another letter case\n"
            "  warning  1  VX401  internal target without a part\n");
}

TEST(CheckCommand, OfSeveralFilesTellsInformationOnRequest) {
    const ScratchFile sound(SoundPackage().Bytes()), dangling(Dangling());
    EXPECT_THAT(RunTool({"check", sound.Path(), dangling.Path()}).out, Not(HasSubstr("VX405")));
    EXPECT_THAT(RunTool({"check", "--all", sound.Path(), dangling.Path()}).out,
                HasSubstr(": info VX405 "));
}

TEST(CheckCommand, ShowsTheFirstFindingsOfAKindAndCountsTheRest) {
    const ScratchFile file(Spoiled([](SoundPackage& p) {
        for (int i = 0; i < 1200; ++i) {
            p.partRelationships += Relation("x" + std::to_string(i), OfficeType("theme"), "gone.xml");
        }
    }));
    const ToolRun brief = RunTool({"check", file.Path()});
    EXPECT_THAT(brief.out, HasSubstr("\n                 and 1,195 more\n"));
    EXPECT_THAT(brief.out, HasSubstr(" 1,200 warnings, "));
    const ToolRun all = RunTool({"check", "--all", file.Path()});
    EXPECT_THAT(all.out, HasSubstr("\n                 and 200 more\n"));
    EXPECT_GT(Lines(all.out).size(), 1000u);

    const json report = json::parse(RunTool({"check", "--json", file.Path()}).out);
    EXPECT_EQ(report["counts"]["warning"], 1200);
    EXPECT_EQ(report["omitted"], 200);
}

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
        {"hint", "add the part, remove the relationship, or move it before another one"}};
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

TEST(CheckCommand, SaysTheSameUnderEveryLocaleAndWithThreads) {
    const ScratchFile dangling(Dangling()), refused(Refused());
    const std::vector<std::string> arguments = {"check", "--deep", "--all", dangling.Path(),
                                                refused.Path()};
    const std::string first = RunTool(arguments).out;
    for (const char* locale : {"LC_ALL=C", "LC_ALL=C.UTF-8", "LC_ALL=de_DE.UTF-8"}) {
        EXPECT_EQ(RunTool(arguments, {.environment = {locale}}).out, first);
    }
    std::vector<std::string> threads = arguments;
    threads.insert(threads.end(), {"-j", "2"});
    EXPECT_EQ(RunTool(threads).out, first);
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
