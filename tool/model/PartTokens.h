// tool/model/PartTokens.h - the tokens of a part's elements and attributes.
#ifndef VEXPA_TOOL_MODEL_PARTTOKENS_H_
#define VEXPA_TOOL_MODEL_PARTTOKENS_H_

#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tool/model/Vocabulary.h"
#include "tool/model/XmlElements.h"

namespace vexpa_tool {

// kNullToken where a name has none.
struct ElementTokens {
    std::uint32_t element = tarn::xmlfx::kNullToken;
    std::vector<std::uint32_t> attributes;  // one for each of the element's
};

// The element's from the namespace maps; those of the attributes that the library keeps
// from the set that it makes of them.
ElementTokens TokensOf(const Vocabulary& vocabulary, const XmlElement& element);

// An attribute without a prefix belongs to the namespace of its element.
const std::u16string& NamespaceUri(const XmlElement& element, const XmlAttribute& attribute);

class TokenTotals {
public:
    explicit TokenTotals(const Vocabulary& vocabulary) : vocabulary_(vocabulary) {}

    void Count(const XmlElement& element, const ElementTokens& tokens);

    // "elements: 1, attributes: 2, with a token: 1, unknown namespaces: 1, unknown names: 1":
    // the last two count what differs, and the names only within known namespaces.
    std::string Text() const;

    // The first of the unknown, a line each.
    std::vector<std::string> UnknownLines() const;

private:
    void CountName(const std::u16string& uri, const std::u16string& name, std::uint32_t token);

    const Vocabulary& vocabulary_;
    std::uint64_t elements_ = 0;
    std::uint64_t attributes_ = 0;
    std::uint64_t withToken_ = 0;
    std::set<std::u16string> unknownNamespaces_;
    std::set<std::pair<std::u16string, std::u16string>> unknownNames_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_PARTTOKENS_H_
