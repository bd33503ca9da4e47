#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/tool/RunTool.h"
#include "tests/tool/check/FindingRows.h"

namespace {

using namespace vexpa_test;
using nlohmann::json;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

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
                  "          hint   entry names are compared exactly: rename the entry, or fix the "
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

TEST(CheckCommand, SaysThatAFolderIsOneAndWhatToDo) {
    const ScratchFile sound(SoundPackage().Bytes(), "a.docx");
    const std::string folder = sound.Path().substr(0, sound.Path().rfind('/'));
    const ToolRun run = RunTool({"check", folder});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out,
                HasSubstr("error   VX001  is a folder; commands for several files search it with -r\n"
                          "          hint   add -r, or name a file in it\n"));
    EXPECT_EQ(RunTool({"check", "-r", folder}).out, "1 file: 1 opens, 0 do not\n");
}

TEST(CheckCommand, SaysThatPagesAreReferredToByName) {
    const ScratchFile pages(Spoiled([](SoundPackage& p) {
        p.relationships =
            Relation("rId1", "http://schemas.microsoft.com/xps/2005/06/fixedrepresentation",
                     "word/document.xml");
        p.Add("pages/1.png", "x");
    }));
    const ScratchFile other(Spoiled([](SoundPackage& p) { p.Add("pages/1.png", "x"); }));
    EXPECT_THAT(RunTool({"check", pages.Path()}).out,
                HasSubstr("no relationship leads to 1 entry: pages/1.png; in a fixed-layout document "
                          "the XML refers to pages by name\n"));
    EXPECT_THAT(RunTool({"check", other.Path()}).out,
                HasSubstr("no relationship leads to 1 entry: pages/1.png\n"));
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
            "3 files: 2 open, 1 does not\n"
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

}  // namespace
