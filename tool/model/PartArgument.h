// tool/model/PartArgument.h - the part that a command line names.
#ifndef VEXPA_TOOL_MODEL_PARTARGUMENT_H_
#define VEXPA_TOOL_MODEL_PARTARGUMENT_H_

#include <string>

#include "tool/InputFile.h"
#include "vexpa/opc/Package.h"

namespace vexpa_tool {

// [borrowed] The part that `argument` means. The first of these that leads to a part counts:
//
//     word/document.xml    its name, with or without a leading '/'
//     w\x1brd/a.xml        its name as the tool prints it, with escapes
//     main                 the part of the MainRelationship
//     document.xml         the last segments of a name, if they fit only one entry
//     rId4@main            the target of a relationship of a part; rId1@/ of the package's
//     styles@main          the same by its type, as a RelationshipQuery takes it
//
// None ends the command with a ToolError, which lists the candidates when there are several.
tarn::opc::Part& FindPart(tarn::opc::Package& package, const InputFile& file,
                          const std::string& argument);

// [borrowed] The same; null is the package itself, for "/" and for the empty argument.
tarn::opc::Part* FindPartOrPackage(tarn::opc::Package& package, const InputFile& file,
                                   const std::string& argument);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_PARTARGUMENT_H_
