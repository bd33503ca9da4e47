// tool/ExitStatus.h - how the tool ends, and the errors that make it end so.
#ifndef VEXPA_TOOL_EXITSTATUS_H_
#define VEXPA_TOOL_EXITSTATUS_H_

#include <algorithm>
#include <stdexcept>
#include <string>

namespace vexpa_tool {

// Scripts rely on the numbers. Of several files the highest counts.
enum ExitStatus : int {
    kDone = 0,
    kFindings = 1,  // of a check; differences of a comparison
    kWrongUsage = 2,
    kNotOpened = 3,
    kNoSuchPart = 4,  // or relationship, stream, name
    kReadOrWriteError = 5,
    kInterrupted = 130,
};

constexpr ExitStatus Worse(ExitStatus a, ExitStatus b) noexcept {
    return std::max(a, b);
}

// Ends the work on a file. The text names the file and the part, ready to print: one line.
class ToolError : public std::runtime_error {
public:
    ToolError(ExitStatus status, const std::string& text) : runtime_error(text), status_(status) {}
    ExitStatus Status() const noexcept { return status_; }

private:
    ExitStatus status_;
};

// Of a file that the library has not opened.
class NotOpenedError : public ToolError {
public:
    using ToolError::ToolError;
};

// Ends the tool, also where the next file would follow upon another error.
class FatalError : public ToolError {
public:
    using ToolError::ToolError;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_EXITSTATUS_H_
