// tool/model/OpenFailure.h - what can be seen of the reason why a file is no package.
#ifndef VEXPA_TOOL_MODEL_OPENFAILURE_H_
#define VEXPA_TOOL_MODEL_OPENFAILURE_H_

#include <optional>

#include "tool/ExitStatus.h"
#include "tool/InputFile.h"
#include "tool/check/Finding.h"

namespace vexpa_tool {

// The library gives no reason, so the check replays the steps of opening. What is said is true of
// the file; that it was the library's reason is a conclusion. Nothing when it opens now.
std::optional<Finding> WhyNotOpened(const InputFile& file);

// How a command ends, other than a check, that has met this.
ExitStatus StatusOf(const Finding& stop);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_OPENFAILURE_H_
