#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <regex>
#include <sstream>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunTool.h"
#include "tool/run/FileList.h"

namespace {

using namespace vexpa_test;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string Quoted(const std::string& word) {
    std::string quoted = "'";
    for (const char c : word) quoted += c == '\'' ? "'\\''" : std::string(1, c);
    return quoted + "'";
}

std::string RunShell(const std::string& command) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string text;
    for (int c; (c = std::fgetc(pipe.get())) != EOF;) text += static_cast<char>(c);
    return text;
}

// What bash would offer for the last of these words.
std::vector<std::string> Complete(const std::vector<std::string>& words) {
    const ScratchFile script(RunTool({"completion", "bash"}).out, "completion.bash");
    std::string line = Quoted(VEXPA_TOOL);
    for (const std::string& word : words) line += " " + Quoted(word);
    const ScratchFile test(
        "source " + Quoted(script.Path()) + " || exit 1\n" + "COMP_WORDS=(" + line +
            ")\nCOMP_CWORD=" + std::to_string(words.size()) +
            "\n_vexpa\n[[ ${#COMPREPLY[@]} == 0 ]] || printf '%s\\n' \"${COMPREPLY[@]}\"\n",
        "test.bash");
    return Lines(RunShell("bash " + Quoted(test.Path()) + " 2>&1"));
}

// The names in the list of commands that --help prints.
std::vector<std::string> CommandsOfHelp() {
    std::vector<std::string> commands;
    bool isList = false;
    for (const std::string& line : Lines(RunTool({"--help"}).out)) {
        if (isList && line.empty()) break;
        if (isList) commands.push_back(line.substr(2, line.find(' ', 2) - 2));
        if (line == "Commands:") isList = true;
    }
    return commands;
}

TEST(BashCompletion, KnowsEveryCommand) {
    const std::vector<std::string> commands = CommandsOfHelp();
    EXPECT_GT(commands.size(), 10u);
    const std::vector<std::string> offered = Complete({""});
    for (const std::string& command : commands) EXPECT_THAT(offered, Contains(command));
    EXPECT_THAT(Complete({"tre"}), ElementsAre("tree"));
    EXPECT_THAT(Complete({"nothing"}), IsEmpty());
    EXPECT_THAT(Complete({"nothing", ""}), IsEmpty());
}

TEST(BashCompletion, KnowsTheOptionsOfEveryCommand) {
    for (const std::string& command : CommandsOfHelp()) {
        SCOPED_TRACE(command);
        const std::string help = RunTool({"help", command}).out;
        const std::vector<std::string> offered = Complete({command, "--"});
        EXPECT_THAT(offered, Contains("--help"));
        for (const std::string& option : offered) EXPECT_THAT(help, HasSubstr(option));
    }
    EXPECT_THAT(Complete({"tree", "--dep"}), ElementsAre("--depth"));
}

TEST(BashCompletion, KnowsWhatFollowsAnOption) {
    EXPECT_THAT(Complete({"ls", "--sort", ""}), ElementsAre("name", "size", "ratio", "offset"));
    EXPECT_THAT(Complete({"tree", "--color", "a"}), ElementsAre("auto", "always"));
    EXPECT_THAT(Complete({"completion", ""}), ElementsAre("bash", "zsh", "fish"));
    EXPECT_THAT(Complete({"help", "ty"}), ElementsAre("types"));
    EXPECT_THAT(Complete({"tree", "--depth", ""}), IsEmpty());
    EXPECT_THAT(Complete({"check", "--fail-on", ""}), ElementsAre("error", "warning"));
    EXPECT_THAT(Complete({"check", "--only", "VX40"}), Contains("VX402"));
    EXPECT_THAT(Complete({"check", "--ignore", "VX70"}), ElementsAre("VX701", "VX702"));
    EXPECT_THAT(Complete({"help", "VX70"}), ElementsAre("VX701", "VX702"));
    EXPECT_THAT(Complete({"rels", "--type", "hea"}), ElementsAre("header"));
}

TEST(BashCompletion, NamesTheFilesAndThePartsInThem) {
    PackageFile file = MinimalPackage();
    file.Entry("word/a b.xml", "");
    const ScratchFile named(ReadFile(file.Write().Path()), "a 'b'.docx");
    const std::string path = named.Path(), folder = path.substr(0, path.rfind('/') + 1);
    EXPECT_THAT(Complete({"tree", folder}), ElementsAre(path));
    EXPECT_THAT(Complete({"cat", path, "word/"}), ElementsAre("word/document.xml", "word/a\\ b.xml"));
    EXPECT_THAT(Complete({"cat", path, "/word/"}),
                ElementsAre("/word/document.xml", "/word/a\\ b.xml"));
    EXPECT_THAT(Complete({"cat", path, "/m"}), IsEmpty());
    EXPECT_THAT(Complete({"cat", path, "["}), ElementsAre("\\[Content_Types\\].xml"));
    EXPECT_THAT(Complete({"cat", "--hex", path, "m"}), ElementsAre("main"));
    EXPECT_THAT(Complete({"tree", path, "--from", "word/d"}), ElementsAre("word/document.xml"));
    EXPECT_THAT(Complete({"tree", "-j", "2", folder}), ElementsAre(path));
}

TEST(BashCompletion, CarriesNothingOutThatIsTyped) {
    const ScratchFile place("");
    const std::string made = place.Path() + ".made";
    Complete({"cat", "$(touch " + made + ")", ""});
    Complete({"cat", "a", "`touch " + made + "`"});
    EXPECT_EQ(std::fopen(made.c_str(), "r"), nullptr);
}

// The shells are not everywhere; where they are, they read what is written for them.
TEST(ZshAndFishCompletion, AreScriptsOfTheirShells) {
    for (const std::string shell : {"zsh", "fish"}) {
        SCOPED_TRACE(shell);
        const std::string text = RunTool({"completion", shell}).out;
        for (const std::string& command : CommandsOfHelp()) EXPECT_THAT(text, HasSubstr(command));
        const ScratchFile script(text, "script");
        const std::string check = "command -v " + shell + " >/dev/null || { echo fine; exit; }; " +
                                  shell + " -n " + Quoted(script.Path()) + " && echo fine";
        EXPECT_EQ(RunShell("{ " + check + "; } 2>&1"), "fine\n");
    }
}

TEST(Completion, ForAnotherShellIsWrongUsage) {
    EXPECT_EQ(RunTool({"completion", "tcsh"}).status, 2);
    EXPECT_EQ(RunTool({"completion"}).status, 2);
}

TEST(HelpCommand, PrintsTheHelpOfACommand) {
    const ToolRun run = RunTool({"help", "rels"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, RunTool({"rels", "--help"}).out);
    EXPECT_EQ(RunTool({"help"}).out, RunTool({"--help"}).out);
}

TEST(HelpCommand, OnWhatItDoesNotKnowEndsWithStatus4) {
    const ToolRun run = RunTool({"help", "nothing"});
    EXPECT_EQ(run.status, 4);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "vexpa: nothing: no such command or topic\n");
}

TEST(HelpCommand, FitsEightyColumns) {
    for (const std::string& command : CommandsOfHelp()) {
        for (const std::string& line : Lines(RunTool({"help", command}).out)) {
            EXPECT_LE(line.size(), 80u) << line;
        }
    }
}

TEST(HelpCommand, SaysWhatEachIsForWithACapital) {
    const std::regex entry(" {2,6}[^ ].*?[^ ] {2,}([^ ].*)");
    for (const std::string& command : CommandsOfHelp()) {
        std::size_t found = 0;
        for (const std::string& line : Lines(RunTool({"help", command}).out)) {
            std::smatch match;
            if (!std::regex_match(line, match, entry)) continue;
            ++found;
            EXPECT_THAT(match[1].str(), testing::MatchesRegex("[A-Z].*")) << command;
        }
        EXPECT_GT(found, 1u) << command;
    }
}

TEST(HelpCommand, SaysWhatStandsInBracketsBehindATypeWhereOneIsPrinted) {
    for (const char* command : {"diff", "rels", "tree"}) {
        SCOPED_TRACE(command);
        EXPECT_THAT(RunTool({"help", command}).out,
                    HasSubstr("\nIn brackets stands the library's number for a type, - for none.\n"));
    }
}

TEST(HelpCommand, ExplainsFindings) {
    EXPECT_THAT(RunTool({"help", "VX305"}).out, testing::StartsWith("VX305  "));
    EXPECT_THAT(Lines(RunTool({"help", "VX70"}).out), testing::SizeIs(2));
    EXPECT_THAT(RunTool({"help", "VX305", "--json"}).out, testing::StartsWith("{\n  \"findings\": ["));
    EXPECT_EQ(RunTool({"help", "VX999", "--json"}).status, 4);
}

// The page as a reader sees it: less the escapes of its language.
std::string ManPage() {
    std::string text;
    for (const char c : ReadFile(VEXPA_SOURCE_DIR "/docs/man/vexpa.1")) {
        if (c != '\\') text += c;
    }
    return text;
}

TEST(ManPage, NamesEveryCommandAndOption) {
    const std::string page = ManPage();
    for (const std::string& command : CommandsOfHelp()) {
        SCOPED_TRACE(command);
        EXPECT_THAT(page, testing::AnyOf(HasSubstr("\n.BI \"" + command + " "),
                                         HasSubstr("\n.BR \"" + command + " ")));
        for (const std::string& option : Complete({command, "-"})) EXPECT_THAT(page, HasSubstr(option));
    }
}

// With -r the extension decides, so the reader has to know them all.
TEST(ManPage, NamesTheExtensionsOfDocuments) {
    std::istringstream page(ManPage());
    std::vector<std::string> named;
    for (std::string word; page >> word && word != ".\"documents";) {
    }
    for (std::string word; page >> word && word != ".PP";) named.push_back(word);
    std::vector<std::string> all;
    for (const std::string_view extension : vexpa_tool::DocumentExtensions())
        all.emplace_back(extension);
    EXPECT_EQ(named, all);
    const std::string help = RunTool({"check", "--help"}).out;
    for (const std::string& extension : all) EXPECT_THAT(help, HasSubstr(" " + extension));
}

TEST(Version, MayBeJson) {
    EXPECT_EQ(RunTool({"--version", "--json"}).out, "{\n  \"vexpa\": \"" VEXPA_VERSION "\"\n}\n");
}

}  // namespace
