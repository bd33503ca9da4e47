// tool/text/JsonText.h - JSON as every command writes it.
#ifndef VEXPA_TOOL_TEXT_JSONTEXT_H_
#define VEXPA_TOOL_TEXT_JSONTEXT_H_

#include <nlohmann/json.hpp>
#include <string>

namespace vexpa_tool {

// The keys stand in a fixed order, so that two outputs can be compared line by line.
using Json = nlohmann::ordered_json;

// Text that a terminal may get: what is unsafe to print is escaped, which means the same to
// every reader of JSON.
std::string JsonText(const Json& json);

// The same on one line.
std::string JsonLine(const Json& json);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_TEXT_JSONTEXT_H_
