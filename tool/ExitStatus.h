// tool/ExitStatus.h - how the tool ends, and the error that makes it end so.
#ifndef VEXPA_TOOL_EXITSTATUS_H_
#define VEXPA_TOOL_EXITSTATUS_H_

#include <stdexcept>
#include <string>

namespace vexpa_tool {

// Scripts rely on the numbers. 1 is kept for findings, so that a check can report them.
enum ExitStatus : int {
    kDone = 0,
    kWrongUsage = 2,
    kNotOpened = 3,
    kNoSuchPart = 4,
    kReadOrWriteError = 5,
};

// Ends the command. The text names the file and the part, ready to print: one line.
class ToolError : public std::runtime_error {
public:
    ToolError(ExitStatus status, const std::string& text) : runtime_error(text), status_(status) {}
    ExitStatus Status() const noexcept { return status_; }

private:
    ExitStatus status_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_EXITSTATUS_H_
