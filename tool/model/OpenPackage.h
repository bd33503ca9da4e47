// tool/model/OpenPackage.h - the package and the part that a command line names.
#ifndef VEXPA_TOOL_MODEL_OPENPACKAGE_H_
#define VEXPA_TOOL_MODEL_OPENPACKAGE_H_

#include <string>

#include "tool/ExitStatus.h"
#include "vexpa/opc/Package.h"

namespace vexpa_tool {

// Empty when the library refuses the file.
tarn::Handle<tarn::opc::Package> FindPackage(const std::string& file);

// The same; a refusal ends the command.
tarn::Handle<tarn::opc::Package> OpenPackage(const std::string& file);

// The error of a refused file, with what can be seen of the reason.
ToolError NotOpened(const std::string& file);

// [borrowed] The part of this name, with or without a leading '/'; none ends the command.
tarn::opc::Part& OpenPart(tarn::opc::Package& package, const std::string& file,
                          const std::string& part);

// An error about a part of the file.
ToolError PartError(ExitStatus status, const std::string& file, const std::string& part,
                    const std::string& what);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_OPENPACKAGE_H_
