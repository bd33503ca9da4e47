// Commands over several files: order, status, form.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <nlohmann/json.hpp>

#include "tests/opc/PackageFile.h"
#include "tests/support/Sanitizers.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

class SeveralFiles : public testing::Test {
protected:
    SeveralFiles() : path_(file_.Write().Path()), notPackage_("no package") {}

    PackageFile file_ = MinimalPackage();
    std::string path_;
    ScratchFile notPackage_;
};

TEST_F(SeveralFiles, StandBelowTheirNamesWithBlankLinesBetween) {
    const std::string one = RunTool({"parts", path_}).out;
    EXPECT_EQ(RunTool({"parts", path_, path_}).out, path_ + ":\n" + one + "\n" + path_ + ":\n" + one);
    const std::string tree = RunTool({"tree", path_}).out;
    EXPECT_EQ(RunTool({"tree", path_, path_}).out, tree + "\n" + tree);
}

TEST_F(SeveralFiles, OneThatFailsCostsNothingButItself) {
    const ToolRun run = RunTool({"parts", notPackage_.Path(), path_, "/no/such/file", path_});
    EXPECT_EQ(run.status, 5);
    EXPECT_EQ(run.out, RunTool({"parts", path_, path_}).out);
    EXPECT_THAT(Lines(run.err),
                ElementsAre("vexpa: " + notPackage_.Path() +
                                ": does not open: VX010 not a zip: looks like plain text",
                            "vexpa: /no/such/file: cannot be read: No such file or directory"));
}

TEST_F(SeveralFiles, EndWithTheWorstStatus) {
    EXPECT_EQ(RunTool({"parts", path_, path_}).status, 0);
    EXPECT_EQ(RunTool({"rels", "--part", "nothing.xml", path_, notPackage_.Path(), path_}).status, 4);
    EXPECT_EQ(RunTool({"rels", "--part", "main", path_, notPackage_.Path(), path_}).status, 3);
    EXPECT_EQ(RunTool({"parts", path_, "@/no/such/list"}).status, 5);
}

TEST_F(SeveralFiles, AsJsonAreALineEachAlsoThoseThatFail) {
    const ToolRun run = RunTool({"parts", "--json", path_, notPackage_.Path()});
    EXPECT_EQ(run.status, 3);
    const std::vector<std::string> lines = Lines(run.out);
    ASSERT_THAT(lines, SizeIs(2));
    const json good = json::parse(lines[0]), bad = json::parse(lines[1]);
    EXPECT_EQ(good["package"], path_);
    EXPECT_EQ(good["opened"], true);
    EXPECT_EQ(good["status"], 0);
    EXPECT_TRUE(good["error"].is_null());
    EXPECT_THAT(good["parts"], SizeIs(1));
    EXPECT_EQ(bad["opened"], false);
    EXPECT_EQ(bad["status"], 3);
    EXPECT_EQ(bad["error"],
              notPackage_.Path() + ": does not open: VX010 not a zip: looks like plain text");
    EXPECT_EQ(bad["parts"], json::array());
}

// However little there is of it, the form of an answer depends on the question alone.
TEST_F(SeveralFiles, AsJsonHaveTheSameKeysInTheSameOrder) {
    for (const std::string command : {"dump", "ls", "parts", "tree", "types", "rels"}) {
        SCOPED_TRACE(command);
        const auto keys = [&](const std::string& file) {
            std::vector<std::string> names;
            const auto run = RunTool({command, "--json", file});
            const auto object = nlohmann::ordered_json::parse(run.out);
            for (const auto& item : object.items()) names.push_back(item.key());
            return names;
        };
        EXPECT_EQ(keys(path_), keys(notPackage_.Path()));
        EXPECT_EQ(keys(path_)[0], "package");
    }
}

TEST_F(SeveralFiles, OfAFolderAreSeveralHoweverManyThereAre) {
    const std::string folder = path_.substr(0, path_.rfind('/'));
    EXPECT_EQ(RunTool({"parts", "-r", "--json", folder}).out, "");
    const ScratchFile named(ReadFile(path_), "a.docx");
    const std::string place = named.Path().substr(0, named.Path().rfind('/'));
    const ToolRun run = RunTool({"parts", "-r", "--json", place});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(Lines(run.out), SizeIs(1));
    EXPECT_THAT(run.out, HasSubstr("{\"package\":\"" + named.Path() + "\","));
}

// Files of all sizes, some of which fail: the first ones take longest.
TEST_F(SeveralFiles, ComeInTheirOrderHoweverManyThreadsWork) {
    PackageFile large = MinimalPackage();
    for (int i = 0; i < 600; ++i) {
        const std::string name = "p" + std::to_string(i) + ".xml";
        large.Relationship(name, kStyles, name);
        large.Entry(name, "<a/>").stored = true;
    }
    const std::string largePath = large.Write().Path();
    std::string names = largePath + "\n" + largePath + "\n";
    for (int i = 0; i < 150; ++i) {
        names += path_ + "\n";
        if (i % 7 == 0) names += notPackage_.Path() + "\n";
        if (i % 50 == 0) names += largePath + "\n";
    }
    const ScratchFile list(names, "list");
    for (const char* form : {"--json", "--ascii"}) {
        const ToolRun one = RunTool({"parts", form, "-j", "1", "@" + list.Path()});
        EXPECT_EQ(one.status, 3);
        for (const char* jobs : {"2", "5", "0"}) {
            SCOPED_TRACE(jobs);
            const ToolRun many = RunTool({"parts", form, "-j", jobs, "@" + list.Path()});
            EXPECT_EQ(many.status, 3);
            EXPECT_EQ(many.out, one.out);
            EXPECT_EQ(many.err, one.err);
        }
    }
}

// Sanitizers need terabytes of address space for themselves.
#if !VEXPA_SANITIZER_ALLOCATES
TEST_F(SeveralFiles, AreReadByTheThreadsThatThereAre) {
    std::vector<std::string> arguments = {"parts", "--json", "-j", "256"};
    for (int i = 0; i < 300; ++i) arguments.push_back(path_);
    // There is room for the stacks of some fifty. How many processors there are decides whether what
    // is left is enough for all of the files.
    const ToolRun run = RunTool(arguments, {.mostMemory = 420 << 20});
    EXPECT_TRUE(run.status == 0 || run.status == 5) << run.status;
    EXPECT_THAT(run.err, testing::Not(HasSubstr("terminate")));
    EXPECT_THAT(run.out, testing::StartsWith("{\"package\":\"" + path_));
}
#endif

TEST_F(SeveralFiles, AFullDiskOrAClosedPipeEndsAllThreads) {
    std::vector<std::string> arguments = {"parts", "-j", "4"};
    for (int i = 0; i < 100; ++i) arguments.push_back(path_);
    const ToolRun full = RunTool(arguments, {.outputFile = "/dev/full"});
    EXPECT_EQ(full.status, 5);
    EXPECT_EQ(full.err, "vexpa: standard output: No space left on device\n");
    const ToolRun closed = RunTool(arguments, {.hasClosedPipe = true});
    EXPECT_EQ(closed.status, -SIGPIPE);
    EXPECT_EQ(closed.err, "");
}

TEST_F(SeveralFiles, AreOnlyTakenByCommandsForSeveral) {
    EXPECT_EQ(RunTool({"rels", path_, "main", path_}).status, 2);
    EXPECT_EQ(RunTool({"graph", path_, path_}).status, 2);
}

TEST(StandardInput, IsAPackageFromAPipe) {
    PackageFile file = MinimalPackage();
    const std::string path = file.Write().Path();
    const ToolRun run = RunTool({"tree", "-"}, {.input = ReadFile(path)});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    std::string expected = RunTool({"tree", path}).out;
    expected.replace(0, path.size(), "-");
    EXPECT_EQ(run.out, expected);
}

TEST(StandardInput, IsReadAsItIsWhenItIsAFile) {
    PackageFile file = MinimalPackage();
    const std::string path = file.Write().Path();
    EXPECT_EQ(RunTool({"cat", "-", "main"}, {.inputFile = path}).out, "<document/>");
}

TEST(StandardInput, MayBeNamedTwice) {
    PackageFile file = MinimalPackage();
    const std::string bytes = ReadFile(file.Write().Path());
    const ToolRun run = RunTool({"diff", "-", "-"}, {.input = bytes});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(Lines(RunTool({"parts", "--json", "-", "-"}, {.input = bytes}).out), SizeIs(2));
}

TEST(StandardInput, ThatIsNoPackageDoesNotOpen) {
    const ToolRun run = RunTool({"tree", "-"}, {.input = "no package"});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.err, "vexpa: -: does not open: VX010 not a zip: looks like plain text\n");
    EXPECT_EQ(RunTool({"tree", "-"}, {.inputFile = "/dev/null"}).err,
              "vexpa: -: does not open: VX013 empty file\n");
}

TEST(StandardInput, ThatCannotBeReadEndsWithStatus5) {
    const ToolRun run = RunTool({"tree", "-"}, {.inputFile = "/"});
    EXPECT_EQ(run.status, 5);
    EXPECT_EQ(run.err, "vexpa: standard input: Is a directory\n");
}

TEST(StandardInput, ThatCannotBeReadCostsTheOtherFilesNothing) {
    PackageFile file = MinimalPackage();
    const std::string path = file.Write().Path();
    const ToolRun run = RunTool({"parts", "-", path}, {.inputFile = "/"});
    EXPECT_EQ(run.status, 5);
    EXPECT_EQ(run.out, path + ":\n" + RunTool({"parts", path}).out);
}

TEST(StandardInput, MayBeTheListOfFiles) {
    PackageFile file = MinimalPackage();
    const std::string path = file.Write().Path();
    EXPECT_EQ(RunTool({"parts", "@-"}, {.input = path + "\n" + path + "\n"}).out,
              RunTool({"parts", path, path}).out);
}

}  // namespace
