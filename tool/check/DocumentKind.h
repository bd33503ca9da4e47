// tool/check/DocumentKind.h - what kind of document a package is, and which part is its main one.
#ifndef VEXPA_TOOL_CHECK_DOCUMENTKIND_H_
#define VEXPA_TOOL_CHECK_DOCUMENTKIND_H_

#include <string>

#include "vexpa/opc/Package.h"

namespace vexpa_tool {

struct DocumentKind {
    std::string kind;         // "word processing document"; empty when it is not known
    std::string conformance;  // "Transitional", "Strict" or empty
    std::string mainPart;     // UTF-8, without a leading slash; empty without one
    std::string contentType;  // of the main part
};

// The main part is that of the officeDocument relationship, by the library's look-up; of Strict
// documents and of other formats that of the relationship which stands in its place.
DocumentKind KindOf(tarn::opc::Package& package);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_DOCUMENTKIND_H_
