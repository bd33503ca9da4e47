// tool/model/OpenFailure.h - what can be seen of the reason why a file is no package.
#ifndef VEXPA_TOOL_MODEL_OPENFAILURE_H_
#define VEXPA_TOOL_MODEL_OPENFAILURE_H_

#include <string>

#include "tool/InputFile.h"

namespace vexpa_tool {

// The library gives no reason, so the file and its container are looked at from outside.
// Everything said is true of the file; that it was the library's reason is a conclusion.
std::string WhyNotOpened(const InputFile& file);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_OPENFAILURE_H_
