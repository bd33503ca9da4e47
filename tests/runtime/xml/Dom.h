// tests/runtime/xml/Dom.h - parses text and asks the document in the tests' own terms.
#ifndef VEXPA_TESTS_RUNTIME_XML_DOM_H_
#define VEXPA_TESTS_RUNTIME_XML_DOM_H_

#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/runtime/com/Blocks.h"

namespace vexpa_test {

inline HRESULT Parse(std::string_view xml, IDomDocument** out) {
    ComPtr<IStream> stream = StreamOver(xml);
    return _XDOMParse(out, stream.Get(), 0xFFFFFFFF, 0, 0, 0);
}

inline HRESULT ParseResult(std::string_view xml) {
    ComPtr<IDomDocument> document;
    return Parse(xml, document.Out());
}

inline ComPtr<IDomDocument> Parsed(std::string_view xml) {
    ComPtr<IDomDocument> document;
    if (Parse(xml, document.Out()) != S_OK) throw std::runtime_error("does not parse");
    return document;
}

// The attribute's value, or "(none)" when there is no such attribute.
inline std::u16string Value(IDomNode* element, const char16_t* name) {
    IDomAttributes* attributes = element->GetAttributes();
    IDomAttribute* attribute = attributes == nullptr ? nullptr : attributes->GetNamedItem(name);
    return attribute == nullptr ? u"(none)" : attribute->GetValue();
}

// The values of one attribute over all elements of a local name, in order.
inline std::vector<std::u16string> Values(IDomDocument& document, const char16_t* element,
                                          const char16_t* attribute) {
    std::vector<std::u16string> values;
    IDomNodeList* list = document.GetElementsByTagName(element);
    for (std::uint32_t i = 0; i < list->GetLength(); ++i) {
        values.push_back(Value(list->GetItem(i), attribute));
    }
    return values;
}

inline std::uint32_t Count(IDomDocument& document, const char16_t* element) {
    return document.GetElementsByTagName(element)->GetLength();
}

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_RUNTIME_XML_DOM_H_
