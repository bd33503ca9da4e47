// The library's start and end, names and attribute sets; URIs and types.
#include "tests/fault/Scenario.h"
#include "tests/xmlfx/AttributeList.h"
#include "vexpa/opc/NormalizeRelationshipType.h"
#include "vexpa/xmlfx/Transform.h"
#include "vexpa/xmlfx/XmlAttrBuilder.h"
#include "vexpa/xmlfx/XmlMapper.h"

namespace vexpa_test {

using namespace tarn;
using namespace tarn::xmlfx;

namespace {

constexpr char16_t kMain[] = u"http://schemas.openxmlformats.org/wordprocessingml/2006/main";
constexpr char16_t kLong[] = u"a value too long for a short string";

const unsigned short* Units(const char16_t* text) {
    return ToUnits(text);
}

void StartAndEnd(Stage&, Transcript& seen) {
    const tarn::Library use;
    seen.Say(XmlMapper::GetNSMap().size(), " namespaces");
}

void StartTwice(Stage&, Transcript& seen) {
    const tarn::Library use;
    { const tarn::Library again; }
    seen.Say(XmlMapper::GetNSMapInverse().size(), " namespaces by token");
}

void LookUp(Stage&, Transcript& seen) {
    const auto names = XmlMapper::GetNSMap().find(kMain);
    const std::uint32_t token = names->second.find(u"val")->second;
    const NameInfo& info =
        XmlMapper::GetNSMapInverse().find(NamespaceOf(token))->second.find(token)->second;
    seen.Say(std::u16string_view(info.name), " of ", std::u16string_view(info.uri));
}

void RegisterNames(Stage&, Transcript& seen) {
    std::u16string name = u"a name that is longer than most, 0";
    for (; name.back() < u'9'; ++name.back()) {
        const auto token = static_cast<std::uint32_t>(name.back());
        XmlMapper::GetNSMap()[u"urn:test"][name] = token;
        XmlMapper::GetNSMapInverse()[0x7FFF0000][token] = NameInfo{u"urn:test", u"name"};
    }
    seen.Say(XmlMapper::GetNSMap()[u"urn:test"].size(), " names registered");
}

void TransformAttributes(Stage&, Transcript& seen) {
    const AttributeList list{{kMain, u"val", kLong},
                             {nullptr, u"Id", u"rId1"},
                             {kMain, u"unknown", u"dropped"},
                             {u"urn:unknown", u"val", u"dropped"},
                             {kMain, u"val", u"again"}};
    seen.SaySet(Transform(&list, Units(u""), Units(kLong)).Get());
}

void TransformNothing(Stage&, Transcript& seen) {
    const AttributeList none;
    seen.SaySet(Transform(&none, nullptr, Units(kLong)).Get());
    seen.SaySet(Transform(static_cast<const unsigned short*>(nullptr), 5U).Get());
}

void TransformValue(Stage&, Transcript& seen) {
    seen.SaySet(Transform(Units(kLong), 5U).Get());
}

void ShareSets(Stage&, Transcript& seen) {
    Handle<XmlRoAttr> set = Transform(Units(kLong), 5U);
    if (!set) return;
    const Handle<XmlRoAttr> shared = set->Share();
    set.Reset();
    seen.SaySet(shared.Get());
}

class Collector : public XmlAttrCallback {
public:
    void OnElement(std::uint32_t, XmlRoAttr* reported) override { set = reported->Share(); }
    Handle<XmlRoAttr> set;
};

void BuildATree(Stage&, Transcript& seen) {
    const AttributeList list{{kMain, u"val", kLong}};
    Collector collector;
    const Handle<XmlRoAttr> attributes = Transform(&list, nullptr, Units(kLong));
    const Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&collector);
    builder->StartElement(1, attributes.Get());
    XmlAttrHandler* child = builder->GetChildHandler();
    for (std::uint32_t i = 2; i < 8; ++i) {
        child->StartElement(i, attributes.Get());
        XmlAttrHandler* grandchild = child->GetChildHandler();
        grandchild->StartElement(9, attributes.Get());
        grandchild->Characters(Units(kLong));
        grandchild->EndElement(9);
        child->EndElement(i);
    }
    builder->EndElement(1);
    seen.SaySet(collector.set.Get());
}

void BuildAndReset(Stage&, Transcript& seen) {
    Collector collector;
    const Handle<XmlRoAttr> value = Transform(Units(kLong), 5U);
    const Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&collector);
    builder->StartElement(1, value.Get());
    builder->AddChild(3, value.Get());
    builder->Reset();
    builder->Characters(Units(u"text"));
    builder->EndElement(1);
    seen.SaySet(collector.set.Get());
}

void SplitUris(Stage&, Transcript& seen) {
    for (const char16_t* text :
         {u"http://user@example.com:80/a%20folder/and%20a%20name?and=query#and-fragment",
          u"mailto:somebody@example.com", u"x://a,b$c/a%C3%A9", u"/word/document.xml",
          u"not a URI %"}) {
        // Without memory it has a name, and no components.
        const opc::PartUri uri(text);
        seen.Say("name ", uri.name);
        if (uri.path.empty() && uri.opaque.empty()) continue;
        seen.Say(uri.scheme, '|', uri.host, '|', uri.port, '|', uri.path, '|', uri.query, '|',
                 uri.fragment, '|', uri.opaque, '|', uri.registryName);
    }
}

void FoldTypes(Stage&, Transcript& seen) {
    seen.Say(opc::NormalizeRelationshipType(u" HTTP:\\\\EXAMPLE.COM\\A-LONG-TYPE rest"));
}

}  // namespace

std::vector<Scenario> VocabularyScenarios() {
    constexpr Start kFile = Start::kFile, kStarted = Start::kStarted;
    return {
        {"StartsAndEnds", "41 namespaces", nullptr, kFile, StartAndEnd},
        {"StartsTwice", "43 namespaces", nullptr, kFile, StartTwice},
        {"LooksUpNames", "val of http", nullptr, kStarted, LookUp},
        {"RegistersNames", "9 names", nullptr, kStarted, RegisterNames},
        {"TransformsAttributes", "of 3", nullptr, kStarted, TransformAttributes},
        {"TransformsNothing", "of 0", nullptr, kStarted, TransformNothing},
        {"TransformsAValue", "of 1", nullptr, kStarted, TransformValue},
        {"SharesSets", "of 1", nullptr, kStarted, ShareSets},
        {"BuildsATree", "of 7", nullptr, kStarted, BuildATree},
        {"BuildsAndResets", "of 1", nullptr, kStarted, BuildAndReset},
        {"SplitsUris", "http|example.com|80|/a folder/and a name", nullptr, kFile, SplitUris},
        {"FoldsTypes", "http://example.com/a-long-type", nullptr, kFile, FoldTypes},
    };
}

}  // namespace vexpa_test
