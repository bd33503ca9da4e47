// tool/model/OpenPackage.h - the package that a command line names.
#ifndef VEXPA_TOOL_MODEL_OPENPACKAGE_H_
#define VEXPA_TOOL_MODEL_OPENPACKAGE_H_

#include <string>

#include "tool/ExitStatus.h"
#include "tool/InputFile.h"
#include "vexpa/opc/Package.h"

namespace vexpa_tool {

// Empty when the library refuses the file.
tarn::Handle<tarn::opc::Package> FindPackage(const InputFile& file);

// The same; a refusal ends the command.
tarn::Handle<tarn::opc::Package> OpenPackage(const InputFile& file);

// The error of a refused file, with what can be seen of the reason.
ToolError NotOpened(const InputFile& file);

// An error about a part of the file.
ToolError PartError(ExitStatus status, const InputFile& file, const std::string& part,
                    const std::string& what);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_OPENPACKAGE_H_
