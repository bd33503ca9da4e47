// tool/model/OpenFailure.h - what can be seen of the reason why a file is no package.
#ifndef VEXPA_TOOL_MODEL_OPENFAILURE_H_
#define VEXPA_TOOL_MODEL_OPENFAILURE_H_

#include <string>

#include "tool/InputFile.h"

namespace vexpa_tool {

// The library gives no reason, so the check replays the steps of opening: "VX301 _rels/.rels:7:2:
// the last relationship rId5 (thumbnail) has no part: a.jpeg". What is said is true of the file;
// that it was the library's reason is a conclusion.
std::string WhyNotOpened(const InputFile& file);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_OPENFAILURE_H_
