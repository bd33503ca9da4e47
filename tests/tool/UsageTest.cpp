// What is said of a command line that cannot be understood, and what is made of one that can.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using testing::HasSubstr;
using testing::StartsWith;

TEST(Usage, WhatIsWrongIsSaidOfOptionsFirst) {
    const struct {
        const char* shows;
        std::vector<std::string> arguments;
        const char* error;
    } rows[] = {
        {"no command", {"--json"}, "a command is required (see vexpa --help)"},
        {"an unknown command", {"trees", "a"}, "no such command or option: trees (see vexpa --help)"},
        {"an unknown option and no file",
         {"check", "--bogus"},
         "no such option: --bogus (see vexpa check --help)"},
        {"an unknown short option",
         {"check", "-x.docx"},
         "no such option: -x.docx (see vexpa check --help)"},
        {"no file", {"check"}, "FILE is required (see vexpa check --help)"},
        {"no part", {"cat", "a"}, "PART is required (see vexpa cat --help)"},
        {"a word too many", {"cat", "a", "b", "c"}, "one word too many: c (see vexpa cat --help)"},
        {"an option without its value",
         {"check", "a", "--fail-on"},
         "--fail-on: needs a value (see vexpa check --help)"},
        {"an option with another word than it knows",
         {"check", "a", "--fail-on", "foo"},
         "--fail-on: must be error or warning, not foo (see vexpa check --help)"},
        {"an option that wants a number",
         {"tree", "a", "--depth", "x"},
         "--depth: must be a whole number, not x (see vexpa tree --help)"},
        {"a number of nothing",
         {"tree", "a", "--depth", ""},
         "--depth: must be a whole number, not \"\" (see vexpa tree --help)"},
        {"a number that is too large",
         {"check", "a", "-j", "4294967296"},
         "--jobs: must be at most 4294967295, not 4294967296 (see vexpa check --help)"},
        {"a size that is too large",
         {"check", "a", "--max-part-size", "99999999999G"},
         "--max-part-size: must be a number, with or without K, M or G (512M), not 99999999999G (see "
         "vexpa check --help)"},
        {"an option that wants a size",
         {"check", "a", "--max-part-size", "5Q"},
         "--max-part-size: must be a number, with or without K, M or G (512M), not 5Q (see vexpa check "
         "--help)"},
        {"a word in its place that is none of those known",
         {"completion", "tcsh"},
         "SHELL: must be bash, zsh or fish, not tcsh (see vexpa completion --help)"},
        {"a flag with a value",
         {"check", "a", "--deep=3"},
         "--deep: takes no value (see vexpa check --help)"},
        {"a flag with a value before the command",
         {"--json=3", "check", "a"},
         "--json: takes no value (see vexpa --help)"},
        {"an option of a command before it",
         {"--ascii", "tree", "a"},
         "options stand behind the command: vexpa tree --ascii (see vexpa tree --help)"},
        {"an option that the program has, too",
         {"--json", "check", "a"},
         "options stand behind the command: vexpa check --json (see vexpa check --help)"},
        {"an option of another command",
         {"--deep", "tree", "a"},
         "no such option: --deep (see vexpa tree --help)"},
        {"help on a command as JSON",
         {"help", "cat", "--json"},
         "--json: findings are what there is as JSON: vexpa help VX --json (see vexpa help --help)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shows);
        const ToolRun run = RunTool(row.arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, std::string("vexpa: ") + row.error + "\n");
    }
}

class FileLikeAnOption : public testing::Test {
protected:
    FileLikeAnOption() : named_(ReadFile(file_.Write().Path()), "-x.docx") {
        folder_ = named_.Path().substr(0, named_.Path().rfind('/'));
    }

    ToolRun Run(const std::vector<std::string>& arguments) {
        return RunTool(arguments, {.workFolder = folder_});
    }

    PackageFile file_ = MinimalPackage();
    ScratchFile named_;
    std::string folder_;
};

TEST_F(FileLikeAnOption, IsToldHowToBeNamed) {
    EXPECT_EQ(Run({"parts", "-x.docx"}).err,
              "vexpa: no such option: -x.docx; the file of that name is ./-x.docx "
              "(see vexpa parts --help)\n");
}

TEST_F(FileLikeAnOption, MayStandBehindTwoHyphens) {
    const ToolRun run = Run({"parts", "--", "-x.docx"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, RunTool({"parts", named_.Path()}).out);
    EXPECT_EQ(Run({"cat", "--", "-x.docx", "main"}).out, "<document/>");
}

// Wrappers append to what they were given.
TEST(Usage, OfARepeatedOptionTheLastCounts) {
    PackageFile file = MinimalPackage();
    const std::string path = file.Write().Path();
    const auto output = [&](std::vector<std::string> arguments) {
        arguments.push_back(path);
        const ToolRun run = RunTool(arguments);
        EXPECT_EQ(run.err, "");
        return run.out;
    };
    EXPECT_EQ(output({"ls", "--sort", "size", "--sort", "name"}), output({"ls", "--sort", "name"}));
    EXPECT_EQ(output({"tree", "--color", "always", "--color", "never"}),
              output({"tree", "--color", "never"}));
    EXPECT_EQ(output({"tree", "--depth", "9", "--depth=0"}), output({"tree", "--depth", "0"}));
    EXPECT_EQ(output({"tree", "-j", "2", "-j1", "--json", "--json"}), output({"tree", "--json"}));
    EXPECT_EQ(RunTool({"check", "--fail-on", "warning", "--fail-on", "error", path}).status, 0);
    EXPECT_EQ(RunTool({"check", "--max-entries", "1", "--max-entries", "9", path}).out,
              output({"check"}));
}

TEST(Usage, WhatIsAListIsAllTaken) {
    PackageFile file = MinimalPackage();
    file.Override("/gone.xml", "text/xml");
    file.Entry("more.xml", "");
    const std::string path = file.Write().Path();
    EXPECT_THAT(RunTool({"check", "--only", "VX2", "--only", "VX4", path}).out,
                AllOf(HasSubstr("VX204"), HasSubstr("VX410")));
    EXPECT_THAT(RunTool({"check", "--ignore", "VX2", "--ignore=VX4", path}).out,
                testing::EndsWith("no findings\n"));
}

TEST(Usage, NumbersAreDigits) {
    const std::vector<std::vector<std::string>> wrong = {
        {"-j", ""},
        {"-j", "-1"},
        {"-j", "two"},
        {"-j", "99999999999999999999"},
        {"--max-entries", ""},
        {"--max-entries", "-1"},
        {"--max-entries", "1.5"},
    };
    for (const auto& options : wrong) {
        SCOPED_TRACE(options[0] + " " + options[1]);
        const ToolRun run = RunTool({"check", "a", options[0], options[1]});
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
    }
    EXPECT_EQ(RunTool({"tree", "a", "--depth", "-1"}).status, 2);
    EXPECT_EQ(RunTool({"graph", "a", "--depth", ""}).status, 2);
}

TEST(Usage, SizesAreBytesWithAUnitOrWithout) {
    PackageFile file = MinimalPackage();
    const std::string path = file.Write().Path();
    for (const char* size : {"", "-1", "x", "1.5G", "5X", "99999999999G"}) {
        SCOPED_TRACE(size);
        const ToolRun run = RunTool({"check", "--max-part-size", size, path});
        EXPECT_EQ(run.status, 2);
        EXPECT_THAT(run.err, StartsWith("vexpa: --max-part-size: "));
    }
    const auto looksAt = [&](const char* size) {
        const ToolRun run = RunTool({"check", "--deep", "--max-part-size", size, path});
        return run.out.find("VX504") == std::string::npos;
    };
    EXPECT_FALSE(looksAt("9"));
    EXPECT_TRUE(looksAt("1000"));
    EXPECT_TRUE(looksAt("1k"));
    EXPECT_TRUE(looksAt("2 MiB"));
}

}  // namespace
