// tool/check/StartTag.h - names and attributes as the library's document answers them.
#ifndef VEXPA_TOOL_CHECK_STARTTAG_H_
#define VEXPA_TOOL_CHECK_STARTTAG_H_

#include <optional>
#include <string>
#include <string_view>

#include "tool/check/XmlScan.h"

namespace vexpa_tool {

// What follows the first colon.
std::string_view LocalName(std::string_view name);

// By the name as written.
std::optional<std::string> AttributeOf(const XmlStartTag& tag, std::string_view name);

// The namespace that a root declares for its own prefix; empty without one.
std::string NamespaceOfRoot(const XmlStartTag& tag);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_STARTTAG_H_
