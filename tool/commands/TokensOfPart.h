// tool/commands/TokensOfPart.h - what `vexpa tokens FILE PART` shows.
#ifndef VEXPA_TOOL_COMMANDS_TOKENSOFPART_H_
#define VEXPA_TOOL_COMMANDS_TOKENSOFPART_H_

#include <string>

#include "tool/InputFile.h"

namespace vexpa_tool {

// A line for each element and attribute, or a JSON object for each element; the totals go to
// standard error. Throws a ToolError when there is no such part or it is no XML.
void ShowTokensOfPart(const InputFile& file, const std::string& partName, bool json);

// The part as indented XML with the tokens in it.
void AnnotatePart(const InputFile& file, const std::string& partName);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_COMMANDS_TOKENSOFPART_H_
