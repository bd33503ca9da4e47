// tool/model/AnnotatedXml.h - XML with the token after each name that has one.
#ifndef VEXPA_TOOL_MODEL_ANNOTATEDXML_H_
#define VEXPA_TOOL_MODEL_ANNOTATEDXML_H_

#include <functional>
#include <string>
#include <string_view>

#include "tool/model/PartTokens.h"
#include "tool/model/Vocabulary.h"
#include "tool/model/XmlElements.h"

namespace vexpa_tool {

// The document, with "{1:600}" (namespace and index) after the names of elements and
// attributes: <w:jc{1:258} w:val{1:600}="center"/>; "{-}" where the library has no token.
// Calls `visit` for each element. Throws an XmlError.
std::string AnnotatedXml(std::string_view document, const Vocabulary& vocabulary,
                         const std::function<void(const XmlElement&, const ElementTokens&)>& visit);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_ANNOTATEDXML_H_
