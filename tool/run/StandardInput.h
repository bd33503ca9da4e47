// tool/run/StandardInput.h - standard input as a file that the library can open.
#ifndef VEXPA_TOOL_RUN_STANDARDINPUT_H_
#define VEXPA_TOOL_RUN_STANDARDINPUT_H_

#include "tool/InputFile.h"

namespace vexpa_tool {

// Named "-". Packages are opened by path and read here and there, so a pipe is read to its
// end into memory first; a redirected file is opened as it is. Further calls give the same
// file. Throws a ToolError when reading fails or there is no end.
InputFile StandardInput();

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_RUN_STANDARDINPUT_H_
