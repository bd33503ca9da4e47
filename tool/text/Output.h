// tool/text/Output.h - standard output, with every failed write noticed.
#ifndef VEXPA_TOOL_TEXT_OUTPUT_H_
#define VEXPA_TOOL_TEXT_OUTPUT_H_

#include <cstddef>
#include <string_view>

namespace vexpa_tool {

// Each throws a ToolError when standard output takes no more. What is written may only
// fail when it is flushed, so a command is done when FlushOutput returns.
void Write(const char* bytes, std::size_t size);
void Write(std::string_view text);
void WriteLine(std::string_view line);
void FlushOutput();

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_TEXT_OUTPUT_H_
