// tool/text/ShortNames.h - types and content types cut down to what tells them apart.
#ifndef VEXPA_TOOL_TEXT_SHORTNAMES_H_
#define VEXPA_TOOL_TEXT_SHORTNAMES_H_

#include <string>

#include "vexpa/opc/Relationship.h"

namespace vexpa_tool {

// "officeDocument": the end of the type as written; two quotes for an empty one.
std::string TypeEnd(const tarn::opc::Relationship& relationship);

// "officeDocument [9]": the end of the type as written, and the library's number for it;
// "[-]" when it has none.
std::string ShortType(const tarn::opc::Relationship& relationship);

// "wordprocessingml.document.main+xml": less the prefix that nearly all of them share.
std::string ShortContentType(const std::string& contentType);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_TEXT_SHORTNAMES_H_
