#include "examples/importer/TreeBuilder.h"

#include <algorithm>

#include "vexpa/base/Utf16.h"
#include "vexpa/xmlfx/Transform.h"

using namespace tarn;
using namespace tarn::xmlfx;

namespace importer {

namespace {

std::uint32_t TokenOf(std::u16string_view uri, std::u16string_view localName) {
    const NSMap& namespaces = XmlMapper::GetNSMap();
    const auto names = namespaces.find(uri);
    if (names == namespaces.end()) return kNullToken;
    const auto name = names->second.find(localName);
    return name == names->second.end() ? kNullToken : name->second;
}

}  // namespace

TreeBuilder::TreeBuilder(const Limits& limits) : limits_(limits), builder_(XmlAttrBuilder::New(this)) {}

void TreeBuilder::DeclareNamespace(std::size_t uriLength) const {
    if (uriLength > limits_.namespaceUri) throw ImportError("a namespace URI too long");
}

void TreeBuilder::StartElement(const unsigned short* uri, const unsigned short* localName,
                               const Attributes& attributes) {
    EndText();
    if (open_.size() == limits_.depth) throw ImportError("elements nested too deep");
    // An attribute without a prefix means what its element's namespace says it means.
    const Handle<XmlRoAttr> set = Transform(&attributes, uri, nullptr);
    CountNodes(1 + set->GetCount());

    XmlAttrHandler& handler = NextHandler();
    open_.push_back({&handler, TokenOf(ViewText(uri), ViewText(localName))});
    handler.StartElement(open_.back().token, set.Get());
    ++tree_.elements;
    tree_.attributes += set->GetCount();
    tree_.depth = std::max(tree_.depth, open_.size());
}

void TreeBuilder::Characters(std::u16string_view piece) {
    if (!open_.empty()) text_ += piece;  // white space around the root says nothing
}

void TreeBuilder::EndElement() {
    EndText();
    const OpenElement ended = open_.back();
    open_.pop_back();
    ended.handler->EndElement(ended.token);
}

// The root element's set arrives; the builder itself passes all others on to their parents.
void TreeBuilder::OnElement(std::uint32_t token, XmlRoAttr* set) {
    tree_.token = token;
    tree_.root = set->Share();
}

XmlAttrHandler& TreeBuilder::NextHandler() {
    return open_.empty() ? *builder_ : *open_.back().handler->GetChildHandler();
}

void TreeBuilder::CountNodes(std::uint64_t count) {
    nodes_ += count;
    if (nodes_ > limits_.nodes) throw ImportError("too many elements, attributes and texts");
}

void TreeBuilder::EndText() {
    if (text_.empty()) return;
    CountNodes(1);
    open_.back().handler->Characters(ToUnits(text_.c_str()));
    text_.clear();
}

}  // namespace importer
