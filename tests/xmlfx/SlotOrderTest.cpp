// Calls each operation by the number of its slot, as compiled callers do.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/xmlfx/AttributeList.h"
#include "tests/xmlfx/SetText.h"
#include "vexpa/xmlfx/Transform.h"
#include "vexpa/xmlfx/XmlAttrBuilder.h"
#include "vexpa/xmlfx/XmlMapper.h"
#include "vexpa/xmlfx/XmlRoAttr.h"

namespace {

using tarn::Handle;
using tarn::xmlfx::Attributes;
using tarn::xmlfx::XmlAttrBuilder;
using tarn::xmlfx::XmlAttrCallback;
using tarn::xmlfx::XmlAttrHandler;
using tarn::xmlfx::XmlAttrValue;
using tarn::xmlfx::XmlRoAttr;
using vexpa_test::Units;

template <class Result, class... Arguments>
Result CallSlot(const void* object, std::size_t slot, Arguments... arguments) {
    using Function = Result (*)(const void*, Arguments...);
    const Function* table = nullptr;
    std::memcpy(&table, object, sizeof table);
    return table[slot](object, arguments...);
}

// Answers each operation with its name.
class NamedAttributes : public Attributes {
public:
    unsigned int getLength() const override { return 2; }
    const unsigned short* getURI(unsigned int) const override { return Units(u"getURI"); }
    const unsigned short* getLocalName(unsigned int) const override { return Units(u"getLocalName"); }
    const unsigned short* getQName(unsigned int) const override { return Units(u"getQName"); }
    const unsigned short* getType(unsigned int) const override { return Units(u"getType"); }
    const unsigned short* getValue(unsigned int) const override { return Units(u"getValue"); }
};

TEST(SlotOrder, OfAttributes) {
    const NamedAttributes attributes;
    const char16_t* const names[] = {u"getURI", u"getLocalName", u"getQName", u"getType", u"getValue"};
    EXPECT_EQ(CallSlot<unsigned>(&attributes, 2), 2U);
    for (std::size_t i = 0; i < std::size(names); ++i) {
        const auto* text = CallSlot<const unsigned short*>(&attributes, 3 + i, 0U);
        EXPECT_EQ(tarn::CopyText(text), names[i]);
    }
    EXPECT_EQ(sizeof(Attributes), sizeof(void*));
}

TEST(SlotOrder, OfAttributeSets) {
    Handle<XmlRoAttr> set = tarn::xmlfx::Transform(Units(u"x"), 5U);
    XmlRoAttr* leaf = set->Find(5);
    std::uint32_t token = 0;
    EXPECT_EQ(CallSlot<std::uint32_t>(set.Get(), 3), 1U);
    EXPECT_EQ(CallSlot<XmlRoAttr*>(set.Get(), 4, 0U, &token), leaf);
    EXPECT_EQ(token, 5U);
    EXPECT_EQ(CallSlot<XmlRoAttr*>(set.Get(), 5, 5U), leaf);

    Handle<XmlRoAttr> second = set->Share();
    CallSlot<void>(set.Get(), 2);  // Release
    EXPECT_EQ(second.Detach()->GetCount(), 1U);
}

TEST(SlotOrder, ASetIsSharedThroughATableOfItsOwn) {
    Handle<XmlRoAttr> set = tarn::xmlfx::Transform(Units(u"x"), 5U);
    const auto* second = reinterpret_cast<const char*>(set.Get()) + sizeof(void*);
    EXPECT_EQ(static_cast<const void*>(static_cast<tarn::ShallowCloneable*>(set.Get())), second);

    const void* clone = nullptr;
    using Function = void (*)(const void** result, const void*);  // a handle returns through memory
    const Function* table = nullptr;
    std::memcpy(&table, second, sizeof table);
    table[0](&clone, second);
    EXPECT_EQ(clone, set.Get());
    CallSlot<void>(set.Get(), 2);
    EXPECT_EQ(set->GetCount(), 1U);
}

TEST(SlotOrder, ASetIsTwoTablesAndAValueString) {
    EXPECT_EQ(sizeof(XmlAttrValue), sizeof(std::u16string));
    EXPECT_EQ(sizeof(XmlRoAttr), 2 * sizeof(void*) + sizeof(std::u16string));
    EXPECT_FALSE(std::is_polymorphic_v<XmlAttrValue>);
    EXPECT_EQ(sizeof(Handle<XmlRoAttr>), sizeof(void*));
    EXPECT_FALSE(std::is_trivially_copyable_v<Handle<XmlRoAttr>>);
}

TEST(SlotOrder, SlotOneEndsASet) {
    Handle<XmlRoAttr> set = tarn::xmlfx::Transform(Units(u"a text that is too long for a string"), 5U);
    CallSlot<void>(set.Detach(), 1);  // a leak is for the sanitizer to see
}

TEST(SlotOrder, AMapInAnEntryKeepsItsSize) {
    EXPECT_EQ(sizeof(tarn::xmlfx::NSMap::mapped_type), 7 * sizeof(void*));
}

class Collector : public XmlAttrCallback {
public:
    void OnElement(std::uint32_t token, XmlRoAttr* set) override {
        reported = token;
        count = set->GetCount();
    }
    std::uint32_t reported = 0;
    std::uint32_t count = 0;
};

TEST(SlotOrder, OfTheCallback) {
    EXPECT_FALSE(std::has_virtual_destructor_v<XmlAttrCallback>);
    Collector collector;
    Handle<XmlRoAttr> set = tarn::xmlfx::Transform(Units(u"x"), 5U);
    CallSlot<void>(static_cast<XmlAttrCallback*>(&collector), 0, 7U, set.Get());
    EXPECT_EQ(collector.reported, 7U);
    EXPECT_EQ(collector.count, 1U);
}

TEST(SlotOrder, OfTheBuilder) {
    Collector collector;
    XmlAttrBuilder* builder = XmlAttrBuilder::New(&collector).Detach();
    Handle<XmlRoAttr> set = tarn::xmlfx::Transform(Units(u"x"), 5U);
    EXPECT_EQ(CallSlot<int>(builder, 3, 7U, set.Get()), 1);  // StartElement
    CallSlot<void>(builder, 4, Units(u"text"));              // Characters
    CallSlot<void>(builder, 5, 7U);                          // EndElement
    EXPECT_EQ(collector.reported, 7U);
    EXPECT_EQ(collector.count, 2U);
    EXPECT_EQ(CallSlot<XmlAttrHandler*>(builder, 6), builder->GetChildHandler());
    CallSlot<void>(builder, 7);                 // Reset
    CallSlot<void>(builder, 8, 9U, set.Get());  // AddChild
    CallSlot<void>(builder, 5, 8U);
    EXPECT_EQ(collector.count, 1U);
    CallSlot<void>(builder, 2);  // Release
    EXPECT_EQ(sizeof(XmlAttrHandler), sizeof(void*));
    EXPECT_EQ(sizeof(XmlAttrBuilder), sizeof(void*));
}

TEST(SlotOrder, ReleaseOfANullBuilderDoesNothing) {
    Collector collector;
    const Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&collector);
    using Release = void (*)(void*);
    const Release* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(builder.Get()), sizeof table);
    table[2](nullptr);
}

TEST(SlotOrder, TokensKeepTheirMeaning) {
    EXPECT_EQ(tarn::xmlfx::kTextToken, 0xFFFFFFFFU);
    EXPECT_EQ(tarn::xmlfx::kNullToken, 0U);
    EXPECT_EQ(tarn::xmlfx::NamespaceOf(0x0007002D), 0x00070000U);
    EXPECT_EQ(sizeof(tarn::xmlfx::NameInfo), 2 * sizeof(void*));
}

}  // namespace
