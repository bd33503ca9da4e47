// tool/text/Wrap.h - sentences in lines.
#ifndef VEXPA_TOOL_TEXT_WRAP_H_
#define VEXPA_TOOL_TEXT_WRAP_H_

#include <string>
#include <string_view>

namespace vexpa_tool {

// Lines of at most 78 columns, broken at blanks: the first begins with `first`, the others with
// `indent`, which is as wide. ASCII.
std::string Wrapped(std::string_view text, const std::string& first, const std::string& indent);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_TEXT_WRAP_H_
