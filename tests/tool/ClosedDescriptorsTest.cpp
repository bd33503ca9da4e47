// The tool, started by somebody who has closed its input or output.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;

constexpr const char* kNoOutput = "vexpa: standard output: Bad file descriptor\n";
constexpr const char* kNoInput = "vexpa: standard input: Bad file descriptor\n";

class ClosedDescriptors : public testing::Test {
protected:
    PackageFile file_ = MinimalPackage();
    std::string path_ = file_.Write().Path();
};

// The copy of the package in memory must not take the place of the output.
TEST_F(ClosedDescriptors, OutputEndsWithStatus5) {
    EXPECT_EQ(RunTool({"parts", path_}, {.closed = {1}}).err, kNoOutput);
    const ToolRun run = RunTool({"check", "-"}, {.input = ReadFile(path_), .closed = {1}});
    EXPECT_EQ(run.status, 5);
    EXPECT_EQ(run.err, kNoOutput);
    EXPECT_EQ(RunTool({"--version"}, {.closed = {1}}).status, 5);
}

TEST_F(ClosedDescriptors, OutputIsNoMatterWhereNothingIsWritten) {
    EXPECT_EQ(RunTool({"check", "-q", path_}, {.closed = {1}}).status, 0);
    EXPECT_EQ(RunTool({"check", "-q", "-"}, {.input = ReadFile(path_), .closed = {1, 2}}).status, 0);
}

TEST_F(ClosedDescriptors, InputEndsWithStatus5) {
    for (const char* argument : {"-", "@-"}) {
        SCOPED_TRACE(argument);
        const ToolRun run = RunTool({"parts", argument}, {.closed = {0}});
        EXPECT_EQ(run.status, 5);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, kNoInput);
    }
}

TEST_F(ClosedDescriptors, InputCostsTheOtherFilesNothing) {
    for (const char* argument : {"-", "@-"}) {
        SCOPED_TRACE(argument);
        const ToolRun run = RunTool({"parts", argument, path_}, {.closed = {0}});
        EXPECT_EQ(run.status, 5);
        EXPECT_EQ(run.out, path_ + ":\n" + RunTool({"parts", path_}).out);
    }
}

TEST_F(ClosedDescriptors, InputThatNobodyReadsIsNoMatter) {
    EXPECT_EQ(RunTool({"parts", path_}, {.closed = {0}}).status, 0);
}

TEST_F(ClosedDescriptors, ErrorsAreLostAndTheStatusStays) {
    EXPECT_EQ(RunTool({"parts", "/no/such/file"}, {.closed = {2}}).status, 5);
}

// The other program writes into a pipe, which must not be the closed output.
TEST_F(ClosedDescriptors, DoNotDisturbAnotherProgram) {
    PackageFile other = MinimalPackage();
    other.Entry("more.xml", "<a/>");
    PackageFile changed = MinimalPackage();
    changed.Entry("more.xml", "<b/>");
    const std::string a = other.Write().Path(), b = changed.Write().Path();
    EXPECT_EQ(RunTool({"diff", "--xml", a, b}, {.closed = {0}}).out,
              RunTool({"diff", "--xml", a, b}).out);
    EXPECT_EQ(RunTool({"diff", "--xml", a, b}, {.closed = {0, 1}}).status, 5);
}

}  // namespace
