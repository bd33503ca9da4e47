// tool/text/Size.h - sizes for people.
#ifndef VEXPA_TOOL_TEXT_SIZE_H_
#define VEXPA_TOOL_TEXT_SIZE_H_

#include <cstdint>
#include <string>

namespace vexpa_tool {

// "745 B", "3.5 KiB", "15.0 MiB": the nearest tenth, and a point whatever the locale says.
std::string HumanSize(std::uint64_t bytes);

// "1,204,000", whatever the locale says.
std::string GroupedDigits(std::uint64_t number);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_TEXT_SIZE_H_
