// For ThreadSanitizer: what several threads may do at once.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/EightThreads.h"
#include "tests/xmlfx/AttributeList.h"
#include "tests/xmlfx/RegistryFixture.h"
#include "tests/xmlfx/SetText.h"
#include "vexpa/xmlfx/NullXmlRoAttrImpl.h"
#include "vexpa/xmlfx/Transform.h"
#include "vexpa/xmlfx/XmlAttrBuilder.h"
#include "vexpa/xmlfx/XmlMapper.h"

namespace {

using tarn::Handle;
using tarn::xmlfx::NullXmlRoAttrImpl;
using tarn::xmlfx::XmlAttrBuilder;
using tarn::xmlfx::XmlAttrCallback;
using tarn::xmlfx::XmlMapper;
using tarn::xmlfx::XmlRoAttr;
using vexpa_test::AttributeList;
using vexpa_test::kThreads;
using vexpa_test::OnEightThreads;
using vexpa_test::TestAttribute;
using vexpa_test::Units;

constexpr char16_t kWordprocessing[] = u"http://schemas.openxmlformats.org/wordprocessingml/2006/main";
TEST(FirstUseOfTheMaps, GivesEightThreadsTheSameMaps) {
    const void* forward[kThreads];
    const void* inverse[kThreads];
    OnEightThreads([&](unsigned i) {
        forward[i] = &XmlMapper::GetNSMap();
        inverse[i] = &XmlMapper::GetNSMapInverse();
    });
    for (unsigned i = 0; i < kThreads; ++i) {
        EXPECT_EQ(forward[i], &XmlMapper::GetNSMap());
        EXPECT_EQ(inverse[i], &XmlMapper::GetNSMapInverse());
    }
}

TEST(FirstUseOfTheEmptySet, GivesEightThreadsTheSameSet) {
    const void* sets[kThreads];
    OnEightThreads([&](unsigned i) {
        const Handle<XmlRoAttr> set = NullXmlRoAttrImpl::Get();
        sets[i] = set->Share().Get();
    });
    for (const void* set : sets) EXPECT_EQ(set, NullXmlRoAttrImpl::Get().Get());
}

class Collector : public XmlAttrCallback {
public:
    void OnElement(std::uint32_t, XmlRoAttr* reported) override { set = reported->Share(); }
    Handle<XmlRoAttr> set;
};

class Threads : public vexpa_test::RegistryFixture {};

TEST_F(Threads, ReadAFinishedSetTogether) {
    const AttributeList list(std::vector<TestAttribute>(40, {kWordprocessing, u"val", u"value"}));
    const Handle<XmlRoAttr> attributes = tarn::xmlfx::Transform(&list, nullptr, Units(u"own"));
    Collector collector;
    const Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&collector);
    builder->StartElement(1, attributes.Get());
    for (int i = 0; i < 40; ++i) builder->Characters(Units(u"text"));
    builder->EndElement(1);

    const XmlRoAttr& set = *collector.set;
    OnEightThreads([&](unsigned) {
        for (int round = 0; round < 100; ++round) {
            ASSERT_EQ(vexpa_test::PairsOf(set).size(), 80U);
            ASSERT_EQ(set.Find(0x00010258), set.GetAt(0, nullptr));
            ASSERT_EQ(set.Find(0xFFFFFFFF), set.GetAt(40, nullptr));
            ASSERT_EQ(vexpa_test::ValueOf(set), u"own");
        }
    });
}

TEST_F(Threads, EndLeavesThatOutlivedTheirSetTogether) {
    const AttributeList list(std::vector<TestAttribute>(kThreads, {kWordprocessing, u"val", u"value"}));
    Handle<XmlRoAttr> set = tarn::xmlfx::Transform(&list, nullptr, nullptr);
    std::vector<Handle<XmlRoAttr>> leaves;
    for (unsigned i = 0; i < kThreads; ++i) leaves.push_back(set->GetAt(i, nullptr)->Share());
    set.Reset();
    OnEightThreads([&](unsigned i) {
        ASSERT_EQ(vexpa_test::ValueOf(*leaves[i]), u"value");
        leaves[i].Reset();
    });
}

TEST_F(Threads, LookNamesUpTogether) {
    OnEightThreads([](unsigned) {
        for (int round = 0; round < 100; ++round) {
            ASSERT_EQ(vexpa_test::TokenOf(kWordprocessing, u"val"), 0x00010258U);
            ASSERT_EQ(vexpa_test::TokenOf(u"urn:test:unknown", u"val"), std::nullopt);
            ASSERT_NE(vexpa_test::NameOf(0x00010258), nullptr);
        }
    });
}

TEST_F(Threads, EndTreesOfTheirOwnTogether) {
    OnEightThreads([](unsigned) {
        for (int round = 0; round < 100; ++round) {
            Collector collector;
            const Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&collector);
            const Handle<XmlRoAttr> attributes = tarn::xmlfx::Transform(Units(u"x"), 5U);
            builder->StartElement(1, attributes.Get());
            builder->GetChildHandler()->StartElement(2, attributes.Get());
            builder->GetChildHandler()->EndElement(2);
            builder->EndElement(1);
        }
    });
}

}  // namespace
