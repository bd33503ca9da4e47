// tests/tool/RunOnTerminal.h - runs the built tool on a terminal.
#ifndef VEXPA_TESTS_TOOL_RUNONTERMINAL_H_
#define VEXPA_TESTS_TOOL_RUNONTERMINAL_H_

#include <string>
#include <vector>

namespace vexpa_test {

struct TerminalRun {
    int status = 0;      // the exit status; -n when signal n ended the tool
    std::string screen;  // all that came to the terminal, with "\n" for "\r\n"
};

struct TerminalSetting {
    std::vector<std::string> environment = {"LC_ALL=C.UTF-8", "TERM=xterm"};
    unsigned short columns = 80;
    std::string outputFile = {};      // where standard output goes instead of the terminal
    std::string interruptAfter = {};  // Ctrl-C is pressed once this is on the screen
};

// A pseudo-terminal is the tool's standard input, output and error.
TerminalRun RunOnTerminal(const std::vector<std::string>& arguments,
                          const TerminalSetting& setting = {});

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_TOOL_RUNONTERMINAL_H_
