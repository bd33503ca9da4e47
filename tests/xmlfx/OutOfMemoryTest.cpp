// What a failed allocation leaves behind, for each allocation there is.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/FailingAllocator.h"
#include "tests/xmlfx/AttributeList.h"
#include "tests/xmlfx/RegistryFixture.h"
#include "tests/xmlfx/SetText.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/xmlfx/RegisterNamespaces.h"
#include "vexpa/xmlfx/Transform.h"
#include "vexpa/xmlfx/XmlAttrBuilder.h"
#include "vexpa/xmlfx/XmlMapper.h"

namespace {

using tarn::Handle;
using tarn::xmlfx::NSMap;
using tarn::xmlfx::XmlAttrBuilder;
using tarn::xmlfx::XmlAttrCallback;
using tarn::xmlfx::XmlAttrHandler;
using tarn::xmlfx::XmlMapper;
using tarn::xmlfx::XmlRoAttr;
using vexpa_test::Allocations;
using vexpa_test::AttributeList;
using vexpa_test::FailEachAllocation;
using vexpa_test::LiveAllocations;
using vexpa_test::TestAttribute;
using vexpa_test::TokenOf;
using vexpa_test::Units;

constexpr char16_t kWordprocessing[] = u"http://schemas.openxmlformats.org/wordprocessingml/2006/main";
constexpr char16_t kLong[] = u"a value too long for a short string";

std::size_t TotalNames() {
    std::size_t total = 0;
    for (const auto& [uri, names] : XmlMapper::GetNSMap()) total += names.size();
    return total;
}

// Initialize that failed has counted nothing: one more of each ends where it began.
TEST(OutOfMemory, WhileFillingLeavesTheLibraryToALaterInitialize) {
    const long failures = FailEachAllocation([] { _vexpa_Initialize(); },
                                             [] {
                                                 _vexpa_Initialize();
                                                 ASSERT_EQ(XmlMapper::GetNSMap().size(), 41U);
                                                 ASSERT_EQ(TotalNames(), 2614U);
                                                 ASSERT_EQ(XmlMapper::GetNSMapInverse().size(), 43U);
                                                 ASSERT_EQ(TokenOf(u"", u"space"), 0x00130001U);
                                                 _vexpa_Terminate();
                                                 ASSERT_TRUE(XmlMapper::GetNSMap().empty());
                                                 ASSERT_TRUE(XmlMapper::GetNSMapInverse().empty());
                                             });
    EXPECT_GT(failures, 80);
    _vexpa_Terminate();
}

TEST(OutOfMemory, WhileFillingKeepsWhatIsThere) {
    std::size_t most = 0;
    FailEachAllocation([] { _vexpa_Initialize(); },
                       [&] {
                           most = std::max(most, XmlMapper::GetNSMap().size());
                           XmlMapper::GetNSMap().clear();
                           XmlMapper::GetNSMapInverse().clear();
                       });
    EXPECT_GE(most, 40U);
    _vexpa_Terminate();
}

TEST(OutOfMemory, WhileFillingDoesNotFillAMapThatHoldsSomethingElseSince) {
    FailEachAllocation([] { _vexpa_Initialize(); },
                       [] {
                           XmlMapper::GetNSMap().clear();
                           XmlMapper::GetNSMapInverse().clear();
                           XmlMapper::GetNSMap()[u"urn:test"];
                           tarn::xmlfx::RegisterNamespaces();
                           ASSERT_EQ(XmlMapper::GetNSMap().size(), 1U);
                           ASSERT_TRUE(XmlMapper::GetNSMapInverse().empty());
                           XmlMapper::GetNSMap().clear();
                       });
    _vexpa_Terminate();
}

TEST(OutOfMemory, AMapIsAsItWas) {
    NSMap map;
    std::u16string text = u"urn:test:000";
    for (int i = 0; i < 200; ++i) {
        text[9] = static_cast<char16_t>(u'0' + i / 100);
        text[10] = static_cast<char16_t>(u'0' + i / 10 % 10);
        text[11] = static_cast<char16_t>(u'0' + i % 10);
        const std::size_t size = map.size();
        FailEachAllocation([&] { map[text][u"a name that is its own copy"] = 1; },
                           [&] { ASSERT_LE(map.size(), size + 1); });
    }
    EXPECT_EQ(map.size(), 200U);
    for (const auto& [uri, names] : map)
        ASSERT_EQ(names.find(u"a name that is its own copy")->second, 1U);
}

class OutOfMemoryAfterStart : public vexpa_test::RegistryFixture {};

TEST_F(OutOfMemoryAfterStart, TransformLeavesNothingBehind) {
    std::vector<TestAttribute> attributes(100, {kWordprocessing, u"val", kLong});
    attributes.push_back({u"urn:test:unknown", u"val", u"dropped"});
    const AttributeList list(std::move(attributes));
    Handle<XmlRoAttr> set;
    const auto transform = [&] { set = tarn::xmlfx::Transform(&list, nullptr, Units(kLong)); };

    transform();  // adds the unknown namespace
    set.Reset();
    const long before = LiveAllocations();
    const long failures = FailEachAllocation(transform, [&] { ASSERT_EQ(LiveAllocations(), before); });
    EXPECT_GT(failures, 100);
    EXPECT_EQ(set->GetCount(), 100U);
    set.Reset();
    EXPECT_EQ(LiveAllocations(), before);
}

TEST_F(OutOfMemoryAfterStart, AnUnknownNamespaceIsAddedWholeOrNotAtAll) {
    const AttributeList list{{u"urn:test:unknown", u"val", u"dropped"}};
    FailEachAllocation([&] { static_cast<void>(tarn::xmlfx::Transform(&list, nullptr, nullptr)); },
                       [] { ASSERT_EQ(XmlMapper::GetNSMap().count(u"urn:test:unknown"), 0U); });
    EXPECT_TRUE(XmlMapper::GetNSMap().find(u"urn:test:unknown")->second.empty());
}

TEST_F(OutOfMemoryAfterStart, TransformOfAStringLeavesNothingBehind) {
    const long before = LiveAllocations();
    Handle<XmlRoAttr> set;
    FailEachAllocation([&] { set = tarn::xmlfx::Transform(Units(kLong), 5U); },
                       [&] { ASSERT_EQ(LiveAllocations(), before); });
    set.Reset();
    EXPECT_EQ(LiveAllocations(), before);
}

class Collector : public XmlAttrCallback {
public:
    void OnElement(std::uint32_t, XmlRoAttr* reported) override { set = reported->Share(); }
    Handle<XmlRoAttr> set;
};

TEST_F(OutOfMemoryAfterStart, BuildingLeavesNothingBehind) {
    const AttributeList list{{kWordprocessing, u"val", kLong}};
    const long before = LiveAllocations();
    Collector collector;
    const long failures = FailEachAllocation(
        [&] {
            const Handle<XmlRoAttr> attributes = tarn::xmlfx::Transform(&list, nullptr, Units(kLong));
            const Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&collector);
            builder->StartElement(1, attributes.Get());
            XmlAttrHandler* child = builder->GetChildHandler();
            for (std::uint32_t i = 0; i < 20; ++i) {
                builder->Characters(Units(kLong));
                child->StartElement(i, attributes.Get());
                child->Characters(Units(kLong));
                child->EndElement(i);
            }
            builder->EndElement(1);
        },
        [&] { ASSERT_EQ(LiveAllocations(), before); });
    EXPECT_GT(failures, 100);
    EXPECT_EQ(collector.set->GetCount(), 41U);
    collector.set.Reset();
    EXPECT_EQ(LiveAllocations(), before);
}

// A text handed to a builder that cannot take it leaves the set as it was.
TEST_F(OutOfMemoryAfterStart, ABuilderGoesOnAfterAFailedEvent) {
    Collector collector;
    const Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&collector);
    const Handle<XmlRoAttr> attributes = tarn::xmlfx::Transform(Units(u"x"), 5U);
    builder->StartElement(1, attributes.Get());
    for (int i = 0; i < 100; ++i) {
        FailEachAllocation([&] { builder->Characters(Units(kLong)); }, [] {});
    }
    builder->EndElement(1);
    EXPECT_EQ(collector.set->GetCount(), 101U);
    EXPECT_EQ(collector.set->Find(0xFFFFFFFF), collector.set->GetAt(1, nullptr));
}

TEST_F(OutOfMemoryAfterStart, LookingUpAllocatesNothing) {
    const long before = Allocations();
    const bool found = TokenOf(kWordprocessing, u"val") && !TokenOf(kWordprocessing, u"nothing") &&
                       !TokenOf(u"urn:test:unknown", u"val") && vexpa_test::NameOf(0x00010258);
    EXPECT_EQ(Allocations(), before);
    EXPECT_TRUE(found);
}

TEST_F(OutOfMemoryAfterStart, TheLastLeafTakesTheMemoryOfItsSetWithIt) {
    const AttributeList list{{kWordprocessing, u"val", kLong}, {kWordprocessing, u"id", kLong}};
    const long before = LiveAllocations();
    Handle<XmlRoAttr> set = tarn::xmlfx::Transform(&list, nullptr, Units(kLong));
    Handle<XmlRoAttr> first = set->GetAt(0, nullptr)->Share();
    Handle<XmlRoAttr> second = set->GetAt(1, nullptr)->Share();
    set.Reset();
    first.Reset();
    EXPECT_GT(LiveAllocations(), before);
    second.Reset();
    EXPECT_EQ(LiveAllocations(), before);
}

// Texts of up to seven units need no memory of their own.
TEST_F(OutOfMemoryAfterStart, ASmallSetCostsOneAllocation) {
    const AttributeList list{{kWordprocessing, u"val", u"short"},
                             {kWordprocessing, u"id", u"1"},
                             {kWordprocessing, u"name", u"x"},
                             {kWordprocessing, u"color", u"auto"}};
    const long before = Allocations();
    const Handle<XmlRoAttr> set = tarn::xmlfx::Transform(&list, nullptr, nullptr);
    EXPECT_EQ(Allocations() - before, 1);
    EXPECT_EQ(set->GetCount(), 4U);
}

}  // namespace
