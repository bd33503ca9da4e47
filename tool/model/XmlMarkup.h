// tool/model/XmlMarkup.h - where the markup of an XML document stands in its bytes.
#ifndef VEXPA_TOOL_MODEL_XMLMARKUP_H_
#define VEXPA_TOOL_MODEL_XMLMARKUP_H_

#include <cstddef>
#include <functional>
#include <string_view>

namespace vexpa_tool {

enum class MarkupKind {
    Start,  // of an element
    Empty,  // an element in one tag
    End,
    Other,  // the XML declaration, a comment or an instruction
};

// Whatever stands between two of these is character data, CDATA sections included.
struct Markup {
    MarkupKind kind;
    std::size_t begin;  // in the bytes of the document
    std::size_t end;
    std::string_view space;  // the value of xml:space of a start tag, else empty
};

using MarkupSink = std::function<void(const Markup& markup)>;

// Throws an XmlError when the document is not well-formed, has a document type or is not in
// an encoding that has ASCII as it is.
void ScanMarkup(std::string_view document, const MarkupSink& sink);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_XMLMARKUP_H_
