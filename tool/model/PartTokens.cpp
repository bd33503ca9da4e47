#include "tool/model/PartTokens.h"

#include "tool/model/NamespacePrefixes.h"
#include "tool/text/Unicode.h"
#include "vexpa/base/Utf16.h"
#include "vexpa/xmlfx/Transform.h"

namespace vexpa_tool {

using namespace tarn::xmlfx;
using tarn::ToUnits;

namespace {

constexpr std::size_t kMostLines = 20;  // of each kind

// Hands the attributes to the library.
class AttributeList final : public Attributes {
public:
    explicit AttributeList(const std::vector<XmlAttribute>& list) : list_(list) {}

    unsigned int getLength() const override { return static_cast<unsigned int>(list_.size()); }
    const unsigned short* getURI(unsigned int i) const override {
        return ToUnits(list_[i].uri.c_str());
    }
    const unsigned short* getLocalName(unsigned int i) const override {
        return ToUnits(list_[i].name.c_str());
    }
    const unsigned short* getQName(unsigned int) const override { return nullptr; }
    const unsigned short* getType(unsigned int) const override { return nullptr; }
    const unsigned short* getValue(unsigned int i) const override {
        return ToUnits(list_[i].value.c_str());
    }

private:
    const std::vector<XmlAttribute>& list_;
};

}  // namespace

const std::u16string& NamespaceUri(const XmlElement& element, const XmlAttribute& attribute) {
    return attribute.uri.empty() ? element.uri : attribute.uri;
}

ElementTokens TokensOf(const Vocabulary& vocabulary, const XmlElement& element) {
    ElementTokens tokens;
    tokens.element = vocabulary.FindToken(element.uri, element.name).value_or(kNullToken);

    const AttributeList list(element.attributes);
    const tarn::Handle<XmlRoAttr> set = Transform(&list, ToUnits(element.uri.c_str()), nullptr);
    // The set has the attributes of the vocabulary, in their order; the others are left out.
    std::uint32_t position = 0;
    for (const XmlAttribute& attribute : element.attributes) {
        const auto known = vocabulary.FindToken(NamespaceUri(element, attribute), attribute.name);
        const bool isKept = known.value_or(kNullToken) != kNullToken;
        std::uint32_t token = kNullToken;
        if (isKept) set->GetAt(position++, &token);
        tokens.attributes.push_back(token);
    }
    return tokens;
}

void TokenTotals::Count(const XmlElement& element, const ElementTokens& tokens) {
    ++elements_;
    CountName(element.uri, element.name, tokens.element);
    for (std::size_t i = 0; i < element.attributes.size(); ++i) {
        const XmlAttribute& attribute = element.attributes[i];
        ++attributes_;
        CountName(NamespaceUri(element, attribute), attribute.name, tokens.attributes[i]);
    }
}

void TokenTotals::CountName(const std::u16string& uri, const std::u16string& name,
                            std::uint32_t token) {
    if (token != kNullToken) {
        ++withToken_;
    } else if (IsXmlNamespace(uri)) {
        return;
    } else if (vocabulary_.CountNames(uri) == 0) {
        unknownNamespaces_.insert(uri);
    } else {
        unknownNames_.emplace(uri, name);
    }
}

std::string TokenTotals::Text() const {
    return "elements: " + std::to_string(elements_) + ", attributes: " + std::to_string(attributes_) +
           ", with a token: " + std::to_string(withToken_) +
           ", unknown namespaces: " + std::to_string(unknownNamespaces_.size()) +
           ", unknown names: " + std::to_string(unknownNames_.size());
}

std::vector<std::string> TokenTotals::UnknownLines() const {
    std::vector<std::string> lines;
    for (const std::u16string& uri : unknownNamespaces_) {
        if (lines.size() == kMostLines) break;
        lines.push_back("unknown namespace: " + PrintableOrQuotes(uri));
    }
    const std::size_t most = lines.size() + kMostLines;
    for (const auto& [uri, name] : unknownNames_) {
        if (lines.size() == most) break;
        lines.push_back("unknown name: {" + Printable(uri) + "}" + Printable(name));
    }
    return lines;
}

}  // namespace vexpa_tool
