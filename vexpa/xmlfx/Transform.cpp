#include "vexpa/xmlfx/Transform.h"

#include <algorithm>

#include "vexpa/base/Utf16.h"
#include "vexpa/xmlfx/FlatXmlRoAttrImpl.h"
#include "vexpa/xmlfx/NullXmlRoAttrImpl.h"
#include "vexpa/xmlfx/XmlMapper.h"

namespace tarn::xmlfx {

namespace {

// The token of an attribute, or kNullToken when the vocabulary does not have it.
//
// Kept: an unknown namespace becomes a key of the map. (Transform.AnUnknownNamespaceIsAddedToTheMap)
std::uint32_t TokenOf(NSMap& namespaces, const unsigned short* uri, const unsigned short* name) {
    const auto& names = namespaces[ViewText(uri)];
    const auto found = names.find(ViewText(name));
    return found == names.end() ? kNullToken : found->second;
}

bool IsEmpty(const unsigned short* text) {
    return text == nullptr || *text == 0;
}

}  // namespace

Handle<XmlRoAttr> Transform(const Attributes* attrs, const unsigned short* defaultUri,
                            const unsigned short* value) {
    constexpr unsigned kMostReserved = 64;  // a parser's word is no reason to allocate more
    const unsigned length = attrs == nullptr ? 0 : attrs->getLength();
    // Kept: without attributes, `value` is lost.
    // (Transform.OfNoAttributesIsTheEmptySetWhateverTheValue)
    if (length == 0) return NullXmlRoAttrImpl::Get();

    Handle<FlatXmlRoAttrImpl> set = FlatXmlRoAttrImpl::New(value, std::min(length, kMostReserved));
    NSMap& namespaces = XmlMapper::GetNSMap();
    // The list is live, so its length is asked for again before every attribute.
    for (unsigned i = 0; i < attrs->getLength(); ++i) {
        const unsigned short* uri = attrs->getURI(i);
        const unsigned short* name = attrs->getLocalName(i);
        const std::uint32_t token = TokenOf(namespaces, IsEmpty(uri) ? defaultUri : uri, name);
        // Kept: the null name of the empty URI is dropped, that of another one has a token.
        // (Transform.DropsTheNullName, Transform.KeepsTheNullNameOfAnotherNamespace)
        if (token == kNullToken) continue;
        set->AddLeaf(token, attrs->getValue(i));
    }
    return Handle<XmlRoAttr>(set.Detach());
}

Handle<XmlRoAttr> Transform(const unsigned short* value, unsigned int token) {
    if (value == nullptr) return NullXmlRoAttrImpl::Get();
    Handle<FlatXmlRoAttrImpl> set = FlatXmlRoAttrImpl::New(nullptr, 1);
    set->AddLeaf(token, value);
    return Handle<XmlRoAttr>(set.Detach());
}

}  // namespace tarn::xmlfx
