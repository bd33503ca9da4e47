#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

TEST(CommandLine, WithoutArgumentsExplainsItselfOnStderr) {
    const ToolRun run = RunTool({});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr("Usage: vexpa"));
}

TEST(CommandLine, HelpNamesEveryCommandOnStdout) {
    const ToolRun run = RunTool({"--help"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    for (const char* command : {"cat", "dump", "parts", "rels", "tokens", "tree"}) {
        EXPECT_THAT(run.out, HasSubstr(std::string("\n  ") + command + " "));
    }
}

TEST(CommandLine, HelpOfACommandNamesItsArguments) {
    const ToolRun run = RunTool({"rels", "--help"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, HasSubstr("Usage: vexpa rels [OPTIONS] FILE [PART]"));
}

TEST(CommandLine, PrintsItsVersion) {
    const ToolRun run = RunTool({"--version"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "vexpa " VEXPA_VERSION "\n");
}

TEST(CommandLine, WrongUsageEndsWithStatus2AndOneLine) {
    const std::vector<std::vector<std::string>> wrong = {
        {"nonsense"},
        {"--nonsense"},
        {"tree"},
        {"cat", "a", "b", "c"},
        {"tree", "--color", "sometimes", "a"},
        {"tree", "--nonsense", "a"},
        {"cat", "a"},
        {"rels", "a", "b", "c"},
        {"nonsense\n\x1b[2J"},
    };
    for (const auto& arguments : wrong) {
        SCOPED_TRACE(arguments.back());
        const ToolRun run = RunTool(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(Lines(run.err), SizeIs(1));
        EXPECT_THAT(run.err, StartsWith("vexpa: "));
    }
}

TEST(CommandLine, AFileMayBeCalledLikeACommand) {
    const ToolRun run = RunTool({"tree", "dump"});
    EXPECT_EQ(run.status, 5);
    EXPECT_EQ(run.err, "vexpa: dump: cannot be read: No such file or directory\n");
}

TEST(CommandLine, AFullDiskIsNoticedByEveryCommand) {
    PackageFile file = MinimalPackage();
    const std::string path = file.Write().Path();
    const std::vector<std::vector<std::string>> commands = {
        {"tree", path}, {"rels", path}, {"parts", path}, {"dump", path}, {"--help"}, {"--version"},
    };
    for (const auto& arguments : commands) {
        SCOPED_TRACE(arguments.front());
        const ToolRun run = RunTool(arguments, {.outputFile = "/dev/full"});
        EXPECT_EQ(run.status, 5);
        EXPECT_EQ(run.err, "vexpa: standard output: No space left on device\n");
    }
}

// File and part names outside ASCII, under the locale of a desktop and under none.
TEST(CommandLine, NamesOutsideAsciiWorkUnderAnyLocale) {
    PackageFile file;
    file.Default("xml", "application/xml");
    file.Relationship("r", kStyles, "gr\u00fc\u00df/\u65e5\u672c.xml");
    file.Entry("gr\u00fc\u00df/\u65e5\u672c.xml", "content");
    const ScratchFile named(ReadFile(file.Write().Path()), "d\u00fcrr \u65e5.docx");

    const std::vector<std::vector<std::string>> locales = {
        {"LC_ALL=C.UTF-8"}, {}, {"LC_ALL=C"}, {"LC_ALL=POSIX"}, {"LC_ALL=no_SUCH.UTF-8"}};
    for (const auto& locale : locales) {
        SCOPED_TRACE(locale.empty() ? "none" : locale.front());
        const ToolSetting setting{.environment = locale};
        const ToolRun cat = RunTool({"cat", named.Path(), "/gr\u00fc\u00df/\u65e5\u672c.xml"}, setting);
        EXPECT_EQ(cat.out, "content");
        EXPECT_EQ(cat.err, "");
        const ToolRun tree = RunTool({"tree", named.Path()}, setting);
        EXPECT_EQ(tree.out, named.Path() +
                                "\n`- r  styles [11]  gr\u00fc\u00df/\u65e5\u672c.xml       7 B  "
                                "application/xml\n");
    }
}

}  // namespace
