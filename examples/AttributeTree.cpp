// Makes a tree of attribute sets from the events of a parser, and prints it: AttributeTree
//
// The events are those of <w:p w:rsidR="00A77B3E"><w:pPr><w:jc w:val="center"/></w:pPr>tide</w:p>.
// XercesImporter.cpp and QtImporter.cpp have them from a parser.

#include <cstdio>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vexpa/base/Lifecycle.h"
#include "vexpa/base/Utf16.h"
#include "vexpa/base/Utf8.h"
#include "vexpa/xmlfx/Transform.h"
#include "vexpa/xmlfx/XmlAttrBuilder.h"
#include "vexpa/xmlfx/XmlMapper.h"

using namespace tarn;
using namespace tarn::xmlfx;

namespace {

constexpr const char16_t* kW = u"http://schemas.openxmlformats.org/wordprocessingml/2006/main";

// The attributes of one element, all of them with the prefix w.
class ListedAttributes final : public Attributes {
public:
    using Pair = std::pair<const char16_t*, const char16_t*>;
    ListedAttributes(std::initializer_list<Pair> list) : list_(list) {}
    unsigned int getLength() const override { return static_cast<unsigned int>(list_.size()); }
    const unsigned short* getURI(unsigned int) const override { return ToUnits(kW); }
    const unsigned short* getLocalName(unsigned int i) const override {
        return ToUnits(list_[i].first);
    }
    const unsigned short* getQName(unsigned int) const override { return ToUnits(u""); }
    const unsigned short* getType(unsigned int) const override { return ToUnits(u"CDATA"); }
    const unsigned short* getValue(unsigned int i) const override { return ToUnits(list_[i].second); }

private:
    std::vector<Pair> list_;
};

// Keeps the set of the outermost element. The builder passes all others on to their parents.
class Root final : public XmlAttrCallback {
public:
    void OnElement(std::uint32_t, XmlRoAttr* set) override { set_ = set->Share(); }
    const XmlRoAttr& Set() const { return *set_; }

private:
    Handle<XmlRoAttr> set_;
};

std::uint32_t TokenOf(std::u16string_view name) {
    const auto& names = XmlMapper::GetNSMap().find(kW)->second;
    return names.find(name)->second;
}

void Start(XmlAttrHandler& handler, const char16_t* name, const ListedAttributes& attributes) {
    const Handle<XmlRoAttr> set = Transform(&attributes, ToUnits(kW), nullptr);
    handler.StartElement(TokenOf(name), set.Get());
}

void Parse(XmlAttrHandler& paragraph) {
    Start(paragraph, u"p", ListedAttributes{{u"rsidR", u"00A77B3E"}});

    XmlAttrHandler& properties = *paragraph.GetChildHandler();
    Start(properties, u"pPr", ListedAttributes{});

    XmlAttrHandler& alignment = *properties.GetChildHandler();
    Start(alignment, u"jc", ListedAttributes{{u"val", u"center"}});
    alignment.EndElement(TokenOf(u"jc"));

    properties.EndElement(TokenOf(u"pPr"));

    paragraph.Characters(ToUnits(u"tide"));
    paragraph.EndElement(TokenOf(u"p"));
}

std::u16string NameOf(std::uint32_t token) {
    if (token == kTextToken) return u"text";
    return XmlMapper::GetNSMapInverse().find(NamespaceOf(token))->second.find(token)->second.name;
}

// A document decides how deep its elements nest, so the sets wait in a list.
void Print(const XmlRoAttr& root) {
    struct Waiting {
        const XmlRoAttr* set;
        std::uint32_t next;
    };
    std::vector<Waiting> open = {{&root, 0}};
    while (!open.empty()) {
        std::uint32_t token = 0;
        const XmlRoAttr* value = open.back().set->GetAt(open.back().next++, &token);
        if (value == nullptr) {
            open.pop_back();
            continue;
        }
        const std::string indent(2 * (open.size() - 1), ' ');
        std::printf("%s%s: \"%s\"\n", indent.c_str(), ToUtf8(NameOf(token)).c_str(),
                    ToUtf8(value->GetValue()).c_str());
        open.push_back({value, 0});
    }
}

}  // namespace

int main() {
    const Library library;  // fills the namespace maps
    Root root;
    const Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&root);
    Parse(*builder);
    Print(root.Set());

    // What is known to be there is found by its token.
    const XmlRoAttr* properties = root.Set().Find(TokenOf(u"pPr"));
    const XmlRoAttr* alignment = properties == nullptr ? nullptr : properties->Find(TokenOf(u"jc"));
    const XmlRoAttr* value = alignment == nullptr ? nullptr : alignment->Find(TokenOf(u"val"));
    if (value == nullptr) return 4;
    std::printf("aligned: %s\n", ToUtf8(value->GetValue()).c_str());
}
