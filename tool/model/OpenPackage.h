// tool/model/OpenPackage.h - the package that a command line names.
#ifndef VEXPA_TOOL_MODEL_OPENPACKAGE_H_
#define VEXPA_TOOL_MODEL_OPENPACKAGE_H_

#include <string>

#include "tool/ExitStatus.h"
#include "tool/InputFile.h"
#include "vexpa/opc/Package.h"

namespace vexpa_tool {

struct Finding;

// Empty when the library refuses the file.
tarn::Handle<tarn::opc::Package> FindPackage(const InputFile& file);

// The same; a refusal ends the command.
tarn::Handle<tarn::opc::Package> OpenPackage(const InputFile& file);

// The error of a file that is refused or cannot be read, with what can be seen of the reason.
NotOpenedError NotOpened(const InputFile& file);
// The same where the reason is known.
NotOpenedError NotOpened(const InputFile& file, const Finding& stop);

// An error about a part of the file.
ToolError PartError(ExitStatus status, const InputFile& file, const std::string& part,
                    const std::string& what);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_OPENPACKAGE_H_
