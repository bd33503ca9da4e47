#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <thread>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunOnTerminal.h"
#include "tests/tool/RunTool.h"
#include "tool/ExitStatus.h"
#include "tool/run/Interrupt.h"
#include "tool/run/StandardInput.h"

namespace {

using namespace vexpa_test;

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

// As the system tells it, for there is nothing of the tool's own to go by.
void WaitUntilItHandlesInterrupts(int process) {
    const std::string path = "/proc/" + std::to_string(process) + "/status";
    for (;;) {
        const std::string status = ReadFile(path);
        const std::size_t at = status.find("SigCgt:");
        if (at == std::string::npos || status.find("zombie") != std::string::npos) return;
        const unsigned long long caught = std::stoull(status.substr(at + 7), nullptr, 16);
        if ((caught >> (SIGINT - 1) & 1) != 0) return;
        std::this_thread::yield();
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

// The tool waits for input that does not come.
TEST(Interrupt, WhileStandardInputIsReadEndsWithStatus130) {
    for (const char* argument : {"-", "@-"}) {
        SCOPED_TRACE(argument);
        const ScratchFile place("");
        const std::string pipe = place.Path() + ".pipe";
        ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
        std::ofstream writer;
        const ToolRun run = RunTool({"parts", argument}, {.inputFile = pipe, .onStart = [&](int child) {
                                                              writer.open(pipe);
                                                              WaitUntilItHandlesInterrupts(child);
                                                              kill(child, SIGINT);
                                                          }});
        EXPECT_EQ(run.status, 130);
        EXPECT_EQ(run.out + run.err, "");
    }
}

// Ctrl-C stops all of a pipeline, so the input may end before the tool looks.
TEST(InterruptDeathTest, ThatEndsTheInputIsNoEndOfIt) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto readEmptyInput = [] {
        int ends[2];
        if (pipe(ends) != 0 || dup2(ends[0], STDIN_FILENO) < 0) _exit(1);
        close(ends[1]);
        vexpa_tool::NoteInterrupts();
        raise(SIGINT);
        try {
            vexpa_tool::StandardInput();
        } catch (const vexpa_tool::FatalError& error) {
            _exit(error.Status());
        }
        _exit(0);
    };
    EXPECT_EXIT(readEmptyInput(), testing::ExitedWithCode(130), "");
}

}  // namespace
