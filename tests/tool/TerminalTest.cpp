// What the tool does differently on a terminal.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunOnTerminal.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kEscape = "\x1b[";

class Terminal : public testing::Test {
protected:
    Terminal() {
        file_.Relationship("rId2", kStyles, "gone.xml");
        file_.Relationship("rId3", kStyles, "word/document.xml");
        path_ = file_.Write().Path();
    }

    bool HasColour(const std::vector<std::string>& environment, std::vector<std::string> options = {}) {
        options.insert(options.begin(), {"tree", path_});
        const TerminalRun run = RunOnTerminal(options, {.environment = environment});
        EXPECT_EQ(run.status, 0);
        EXPECT_THAT(run.screen, HasSubstr("gone.xml"));
        return run.screen.find(kEscape) != std::string::npos;
    }

    PackageFile file_ = MinimalPackage();
    std::string path_;
};

TEST_F(Terminal, HasColourUnlessTheEnvironmentOrAnOptionForbidsIt) {
    EXPECT_TRUE(HasColour({"TERM=xterm"}));
    EXPECT_TRUE(HasColour({"TERM=xterm", "NO_COLOR="}));
    EXPECT_FALSE(HasColour({"TERM=xterm", "NO_COLOR=1"}));
    EXPECT_FALSE(HasColour({"TERM=dumb"}));
    EXPECT_TRUE(HasColour({"TERM=dumb", "CLICOLOR_FORCE=1"}));
    EXPECT_FALSE(HasColour({"TERM=xterm"}, {"--color", "never"}));
    EXPECT_TRUE(HasColour({"TERM=dumb", "NO_COLOR=1"}, {"--color", "always"}));
}

TEST_F(Terminal, ElsewhereThereIsColourOnlyWhenAskedFor) {
    const auto hasColour = [&](std::vector<std::string> environment, const char* when) {
        const ToolRun run =
            RunTool({"tree", "--color", when, path_}, {.environment = std::move(environment)});
        return run.out.find(kEscape) != std::string::npos;
    };
    EXPECT_FALSE(hasColour({"TERM=xterm"}, "auto"));
    EXPECT_TRUE(hasColour({"TERM=xterm"}, "always"));
    EXPECT_TRUE(hasColour({"TERM=xterm", "CLICOLOR_FORCE=1"}, "auto"));
    EXPECT_FALSE(hasColour({"TERM=xterm", "CLICOLOR_FORCE=0"}, "auto"));
    EXPECT_FALSE(hasColour({"NO_COLOR=1", "CLICOLOR_FORCE=1"}, "auto"));
    EXPECT_FALSE(hasColour({"CLICOLOR_FORCE=1"}, "never"));
}

std::string WithoutColours(std::string text) {
    for (std::size_t at; (at = text.find('\x1b')) != std::string::npos;) {
        text.erase(at, text.find('m', at) + 1 - at);
    }
    return text;
}

// The words stay what they are: less the colours, the output is the plain one.
TEST_F(Terminal, ColourOnlyRepeatsWhatWordsSay) {
    PackageFile other = MinimalPackage();
    other.Entry("more.xml", "");
    const std::string otherPath = other.Write().Path();
    const ScratchFile text("plain text");
    const std::vector<std::vector<std::string>> commands = {
        {"tree", path_},
        {"rels", path_},
        {"parts", path_},
        {"types", path_},
        {"ls", path_},
        {"info", path_},
        {"info", text.Path()},
        {"check", path_},
        {"check", text.Path()},
        {"check", path_, text.Path()},
        {"diff", path_, otherPath},
    };
    for (std::vector<std::string> command : commands) {
        SCOPED_TRACE(command.front() + " " + command.back());
        const std::string plain = RunTool(command).out;
        command.insert(command.begin() + 1, {"--color", "always"});
        const std::string coloured = RunTool(command).out;
        EXPECT_NE(coloured, plain);
        EXPECT_EQ(WithoutColours(coloured), plain);
    }
}

TEST_F(Terminal, JsonHasNoColour) {
    EXPECT_THAT(RunOnTerminal({"tree", "--json", path_}).screen, Not(HasSubstr(kEscape)));
}

TEST_F(Terminal, BranchesAreDrawnWhereItsEncodingHasTheCharacters) {
    const std::vector<std::string> plain = {"tree", "--color", "never", path_};
    EXPECT_THAT(RunOnTerminal(plain).screen, HasSubstr("\n\u251c\u2500 rId1"));
    EXPECT_THAT(RunOnTerminal(plain).screen, HasSubstr("\n\u2514\u2500 rId3"));
    EXPECT_THAT(RunOnTerminal(plain, {.environment = {"LC_ALL=C"}}).screen, HasSubstr("\n|- rId1"));
    EXPECT_THAT(RunOnTerminal({"tree", "--ascii", "--color", "never", path_}).screen,
                HasSubstr("\n|- rId1"));
    EXPECT_THAT(RunTool(plain).out, HasSubstr("\n|- rId1"));
}

TEST_F(Terminal, OneThatHasAsciiOnlyGetsNamesEscaped) {
    PackageFile file;
    file.Relationship("r", kStyles, "gr\u00fc\u00df.xml");
    file.Entry("gr\u00fc\u00df.xml", "");
    const std::string path = file.Write().Path();
    EXPECT_THAT(RunOnTerminal({"tree", path}, {.environment = {"LC_ALL=C"}}).screen,
                HasSubstr("gr\\xfc\\xdf.xml"));
    EXPECT_THAT(RunTool({"tree", "--ascii", path}).out, HasSubstr("gr\\xfc\\xdf.xml"));
    EXPECT_THAT(RunOnTerminal({"tree", path}).screen, HasSubstr("gr\u00fc\u00df.xml"));
}

TEST_F(Terminal, ProgressIsALineThatGoesAgain) {
    const ScratchFile out("");
    const TerminalRun run =
        RunOnTerminal({"parts", "--progress", "always", path_, path_}, {.outputFile = out.Path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.screen, HasSubstr("1/2  50 %"));
    EXPECT_THAT(run.screen, HasSubstr("2/2  100 %"));
    EXPECT_THAT(run.screen, EndsWith("\r\x1b[K"));
    EXPECT_THAT(run.screen, Not(HasSubstr("\n")));
    EXPECT_THAT(ReadFile(out.Path()), HasSubstr("word/document.xml"));
}

TEST_F(Terminal, ProgressFitsTheWidth) {
    const ScratchFile out("");
    const TerminalRun run = RunOnTerminal({"parts", "--progress", "always", path_, path_},
                                          {.columns = 9, .outputFile = out.Path()});
    EXPECT_EQ(run.screen, "1/2  50 \r\x1b[K2/2  100\r\x1b[K");
}

TEST_F(Terminal, ProgressMakesRoomForResults) {
    const TerminalRun run =
        RunOnTerminal({"parts", "--progress", "always", "--color", "never", path_, path_, path_});
    EXPECT_EQ(run.status, 0);
    std::size_t at = run.screen.find("1/3");
    ASSERT_NE(at, std::string::npos);
    at = run.screen.find("\r\x1b[K", at);
    ASSERT_NE(at, std::string::npos);
    EXPECT_EQ(run.screen.find(path_ + ":\n", at), at + 5);
}

TEST_F(Terminal, ProgressDoesNotShowWhereNobodyLooks) {
    const ToolRun run = RunTool({"parts", path_, path_});
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(RunOnTerminal({"parts", "--progress", "never", path_, path_}).screen.find("2/2"),
              std::string::npos);
}

TEST_F(Terminal, ProgressOnOneThatOnlyKnowsLinesIsWholeLines) {
    const TerminalRun run =
        RunOnTerminal({"parts", "--progress", "always", path_, path_}, {.environment = {"TERM=dumb"}});
    EXPECT_THAT(run.screen, Not(HasSubstr("\x1b")));
    EXPECT_THAT(run.screen, Not(HasSubstr("\r")));
    EXPECT_THAT(run.screen, HasSubstr("\n2/2  100 %"));
}

TEST_F(Terminal, ProgressInALogIsWholeLines) {
    const ToolRun run = RunTool({"parts", "--progress", "always", path_, path_});
    EXPECT_THAT(run.err, testing::StartsWith("2/2  100 %"));
    EXPECT_THAT(Lines(run.err), testing::SizeIs(1));
}

}  // namespace
