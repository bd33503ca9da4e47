// tests/tool/RunTool.h - runs the built tool and catches what it says.
#ifndef VEXPA_TESTS_TOOL_RUNTOOL_H_
#define VEXPA_TESTS_TOOL_RUNTOOL_H_

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vexpa_test {

struct ToolRun {
    int status = 0;  // the exit status; -n when signal n ended the tool
    std::string out;
    std::string err;
};

// What surrounds the tool.
struct ToolSetting {
    std::vector<std::string> environment = {"LC_ALL=C.UTF-8"};  // all of it, save ToolEnvironment
    std::string workFolder = {};                                // where the tool is started
    std::string outputFile = {};     // where standard output goes instead of ToolRun::out
    std::string inputFile = {};      // what standard input is, when not what the tests have
    std::string input = {};          // what comes through a pipe as standard input
    bool hasPath = true;             // whether programs are found
    std::vector<int> closed = {};    // descriptors that the tool is started without
    bool hasClosedPipe = false;      // standard output is a pipe that nobody reads
    bool ignoresBrokenPipe = false;  // the tool inherits an ignored SIGPIPE
    std::uint64_t mostMemory = 0;    // bytes of address space; 0 for any
    std::function<void(int child)> onStart = {};  // what the test does meanwhile
};

ToolRun RunTool(const std::vector<std::string>& arguments, const ToolSetting& setting = {});

// With what programs need to start at all.
std::vector<std::string> ToolEnvironment(const std::vector<std::string>& environment);

// Pointers to the texts and a null, as exec wants them.
std::vector<char*> Pointers(const std::vector<std::string>& texts);

// Waits for a child; its exit status, or -n when signal n ended it.
int WaitFor(int child);

// The lines of a text that ends with a line feed.
std::vector<std::string> Lines(const std::string& text);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_TOOL_RUNTOOL_H_
