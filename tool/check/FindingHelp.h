// tool/check/FindingHelp.h - what `vexpa help` says about findings.
#ifndef VEXPA_TOOL_CHECK_FINDINGHELP_H_
#define VEXPA_TOOL_CHECK_FINDINGHELP_H_

#include <string>

namespace vexpa_tool {

// Of "VX305" its paragraph; of "VX3" or "findings" a list. Empty for any other word.
std::string FindingHelp(const std::string& word);

// The same as JSON: an object with a list, also of one.
std::string FindingHelpJson(const std::string& word);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_FINDINGHELP_H_
