// tests/tool/RunTool.h - runs the built tool and catches what it says.
#ifndef VEXPA_TESTS_TOOL_RUNTOOL_H_
#define VEXPA_TESTS_TOOL_RUNTOOL_H_

#include <cstdint>
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
    std::vector<std::string> environment = {"LC_ALL=C.UTF-8"};  // all of it, save LD_LIBRARY_PATH
    std::string outputFile = {};     // where standard output goes instead of ToolRun::out
    bool hasClosedPipe = false;      // standard output is a pipe that nobody reads
    bool ignoresBrokenPipe = false;  // the tool inherits an ignored SIGPIPE
    std::uint64_t mostMemory = 0;    // bytes of address space; 0 for any
};

ToolRun RunTool(const std::vector<std::string>& arguments, const ToolSetting& setting = {});

// The lines of a text that ends with a line feed.
std::vector<std::string> Lines(const std::string& text);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_TOOL_RUNTOOL_H_
