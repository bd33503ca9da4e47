#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <csignal>
#include <fstream>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunOnTerminal.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using testing::HasSubstr;

// Far more files than are read before the key is pressed.
std::string ListOf(const std::string& path) {
    std::string list;
    for (int i = 0; i < 30'000; ++i) list += path + "\n";
    return list;
}

TEST(Interrupt, WhatIsFinishedIsPrintedWholeAndTheStatusIs130) {
    PackageFile file = MinimalPackage();
    const std::string path = file.Write().Path();
    const ScratchFile list(ListOf(path));
    const std::string one = RunTool({"parts", "--json", path, path}).out;
    const std::string line = one.substr(0, one.find('\n') + 1);
    for (const char* jobs : {"1", "3"}) {
        SCOPED_TRACE(jobs);
        const TerminalRun run =
            RunOnTerminal({"parts", "--json", "--progress", "never", "-j", jobs, "@" + list.Path()},
                          {.interruptAfter = "\n"});
        EXPECT_EQ(run.status, 130);
        ASSERT_EQ(run.screen.size() % line.size(), 0u);
        for (std::size_t at = 0; at < run.screen.size(); at += line.size()) {
            ASSERT_EQ(run.screen.substr(at, line.size()), line);
        }
    }
}

// Opening the pipe waits for the tool, which by then knows what an interrupt is.
TEST(Interrupt, WorkThatDoesNotAskIsCutOff) {
    const ScratchFile place("");
    const std::string pipe = place.Path() + ".pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::ofstream writer;
    const ToolRun run = RunTool({"parts", "@" + pipe}, {.onStart = [&](int child) {
                                    writer.open(pipe);
                                    kill(child, SIGINT);
                                }});
    EXPECT_EQ(run.status, 130);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "");
}

}  // namespace
