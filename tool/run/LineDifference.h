// tool/run/LineDifference.h - how two texts differ, line by line.
#ifndef VEXPA_TOOL_RUN_LINEDIFFERENCE_H_
#define VEXPA_TOOL_RUN_LINEDIFFERENCE_H_

#include <string>
#include <string_view>

namespace vexpa_tool {

// What `diff -u` writes about them, without the two lines that name files; empty when they
// are the same. Throws a ToolError when that program cannot be run.
std::string LineDifference(std::string_view before, std::string_view after);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_RUN_LINEDIFFERENCE_H_
