#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "tests/xmlfx/AttributeList.h"
#include "tests/xmlfx/RegistryFixture.h"
#include "tests/xmlfx/SetText.h"
#include "vexpa/base/ShallowCloneableImpl.h"
#include "vexpa/xmlfx/NullXmlRoAttrImpl.h"
#include "vexpa/xmlfx/Transform.h"
#include "vexpa/xmlfx/XmlAttrBuilder.h"

namespace {

using tarn::Handle;
using tarn::xmlfx::kTextToken;
using tarn::xmlfx::NullXmlRoAttrImpl;
using tarn::xmlfx::XmlAttrBuilder;
using tarn::xmlfx::XmlAttrCallback;
using tarn::xmlfx::XmlAttrHandler;
using tarn::xmlfx::XmlRoAttr;
using vexpa_test::AttributeList;
using vexpa_test::Pairs;
using vexpa_test::PairsOf;
using vexpa_test::Units;
using vexpa_test::ValueOf;

constexpr std::uint32_t kId = 1;
constexpr std::uint32_t kType = 4;

class Collector : public XmlAttrCallback {
public:
    void OnElement(std::uint32_t token, XmlRoAttr* set) override {
        elements.emplace_back(token, set->Share());
    }
    std::vector<std::pair<std::uint32_t, Handle<XmlRoAttr>>> elements;
};

class Builder : public vexpa_test::RegistryFixture {
protected:
    void Start(XmlAttrHandler& handler, const AttributeList& attributes = {}) {
        const Handle<XmlRoAttr> set = tarn::xmlfx::Transform(&attributes, Units(u""), Units(u"value"));
        EXPECT_EQ(handler.StartElement(99, set.Get()), 1);
    }

    Collector collector_;
    Handle<XmlAttrBuilder> builder_ = XmlAttrBuilder::New(&collector_);
};

TEST_F(Builder, ReportsTheElementWithItsToken) {
    Start(*builder_, {{u"", u"Id", u"1"}});
    builder_->EndElement(7);
    ASSERT_EQ(collector_.elements.size(), 1U);
    EXPECT_EQ(collector_.elements[0].first, 7U);
    EXPECT_EQ(PairsOf(*collector_.elements[0].second), (Pairs{{kId, u"1"}}));
}

TEST_F(Builder, TakesTheValueStringOfTheAttributes) {
    Start(*builder_, {{u"", u"Id", u"1"}});
    builder_->EndElement(7);
    EXPECT_EQ(ValueOf(*collector_.elements[0].second), u"value");
}

TEST_F(Builder, PutsAttributesFirstThenTextAndChildrenAsTheyCome) {
    Start(*builder_, {{u"", u"Id", u"1"}, {u"", u"Type", u"t"}});
    builder_->Characters(Units(u"a"));
    XmlAttrHandler* child = builder_->GetChildHandler();
    Start(*child);
    child->Characters(Units(u"b"));
    child->EndElement(7);
    builder_->Characters(Units(u"c"));
    builder_->EndElement(6);

    ASSERT_EQ(collector_.elements.size(), 1U);
    const XmlRoAttr& parent = *collector_.elements[0].second;
    EXPECT_EQ(PairsOf(parent),
              (Pairs{{kId, u"1"}, {kType, u"t"}, {kTextToken, u"a"}, {7, u""}, {kTextToken, u"c"}}));
    EXPECT_EQ(parent.Find(kTextToken), parent.GetAt(2, nullptr));
    EXPECT_EQ(PairsOf(*parent.Find(7)), (Pairs{{kTextToken, u"b"}}));
}

TEST_F(Builder, AddsNothingForNullText) {
    Start(*builder_);
    builder_->Characters(nullptr);
    builder_->Characters(Units(u""));
    builder_->EndElement(7);
    EXPECT_EQ(PairsOf(*collector_.elements[0].second), (Pairs{{kTextToken, u""}}));
}

TEST_F(Builder, OverTheEmptySetHasNothingOfItsOwn) {
    builder_->StartElement(7, NullXmlRoAttrImpl::Get().Get());
    builder_->EndElement(7);
    EXPECT_EQ(collector_.elements[0].second->GetCount(), 0U);
    EXPECT_EQ(ValueOf(*collector_.elements[0].second), u"");
}

TEST_F(Builder, AnswersTheSameChildHandlerEachTime) {
    XmlAttrHandler* child = builder_->GetChildHandler();
    Start(*builder_);
    EXPECT_EQ(builder_->GetChildHandler(), child);
    EXPECT_NE(child->GetChildHandler(), child);
}

TEST_F(Builder, BuildsSiblingsOneAfterTheOther) {
    Start(*builder_);
    XmlAttrHandler* child = builder_->GetChildHandler();
    for (std::uint32_t token = 1; token <= 3; ++token) {
        Start(*child, {{u"", u"Id", u"1"}});
        child->EndElement(token);
    }
    builder_->EndElement(9);
    EXPECT_EQ(PairsOf(*collector_.elements[0].second),
              (Pairs{{1, u"value"}, {2, u"value"}, {3, u"value"}}));
}

// Keeps what it is handed only as an address.
class Onlooker : public XmlAttrCallback {
public:
    void OnElement(std::uint32_t, XmlRoAttr* set) override { sets.push_back(set); }
    std::vector<XmlRoAttr*> sets;
};

TEST_F(Builder, HandsTheSameSetOutUntilTheNextElementStarts) {
    Onlooker onlooker;
    const Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&onlooker);
    Start(*builder);
    builder->EndElement(7);
    builder->Characters(Units(u"late"));
    builder->EndElement(7);
    EXPECT_EQ(onlooker.sets[0], onlooker.sets[1]);
    EXPECT_EQ(onlooker.sets[0]->GetCount(), 1U);
}

TEST_F(Builder, ASetOutlivesTheNextElementThroughTheCallbacksReference) {
    Start(*builder_, {{u"", u"Id", u"1"}});
    builder_->EndElement(7);
    Start(*builder_);
    builder_->EndElement(8);
    builder_.Reset();
    EXPECT_EQ(PairsOf(*collector_.elements[0].second), (Pairs{{kId, u"1"}}));
    EXPECT_NE(collector_.elements[0].second.Get(), collector_.elements[1].second.Get());
}

TEST_F(Builder, SharesTheAttributesItIsGiven) {
    const AttributeList list{{u"", u"Id", u"1"}};
    Handle<XmlRoAttr> attributes = tarn::xmlfx::Transform(&list, Units(u""), nullptr);
    const XmlRoAttr* value = attributes->Find(kId);
    builder_->StartElement(7, attributes.Get());
    attributes.Reset();
    builder_->EndElement(7);
    EXPECT_EQ(collector_.elements[0].second->Find(kId), value);
}

TEST_F(Builder, AddsAChildThatItSharesWithItsGiver) {
    Handle<XmlRoAttr> child = tarn::xmlfx::Transform(Units(u"x"), 5U);
    Start(*builder_);
    builder_->AddChild(7, child.Get());
    builder_->EndElement(6);
    EXPECT_EQ(collector_.elements[0].second->Find(7), child.Get());
    collector_.elements.clear();
    builder_.Reset();
    EXPECT_EQ(child->GetCount(), 1U);
}

class UnsharedSet final : public tarn::ShallowCloneableImpl<XmlRoAttr> {
public:
    Handle<tarn::Object> ShallowClone() override { return {}; }
    std::uint32_t GetCount() const override { return 0; }
    XmlRoAttr* GetAt(std::uint32_t, std::uint32_t*) const override { return nullptr; }
    XmlRoAttr* Find(std::uint32_t) const override { return nullptr; }
};

TEST_F(Builder, AddsNoChildThatCannotBeShared) {
    const Handle<XmlRoAttr> child(new UnsharedSet);
    Start(*builder_);
    builder_->AddChild(7, child.Get());
    builder_->Characters(Units(u"text"));
    builder_->EndElement(6);
    EXPECT_EQ(PairsOf(*collector_.elements[0].second), (Pairs{{kTextToken, u"text"}}));
}

TEST_F(Builder, ResetEmptiesTheSetButForItsValueString) {
    Start(*builder_, {{u"", u"Id", u"1"}});
    builder_->Characters(Units(u"text"));
    builder_->Reset();
    builder_->Characters(Units(u"again"));
    builder_->EndElement(7);
    EXPECT_EQ(PairsOf(*collector_.elements[0].second), (Pairs{{kTextToken, u"again"}}));
    EXPECT_EQ(ValueOf(*collector_.elements[0].second), u"value");
}

TEST_F(Builder, ResetBeforeTheFirstElementDoesNothing) {
    builder_->Reset();
    Start(*builder_);
    builder_->EndElement(7);
    EXPECT_EQ(collector_.elements.size(), 1U);
}

TEST_F(Builder, StartsOverTheSetItIsBuilding) {
    Onlooker onlooker;
    const Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&onlooker);
    Start(*builder, {{u"", u"Id", u"1"}});
    builder->Characters(Units(u"a"));
    builder->EndElement(7);
    builder->StartElement(7, onlooker.sets[0]);  // which nothing else holds
    builder->Characters(Units(u"b"));
    builder->EndElement(7);
    EXPECT_EQ(PairsOf(*onlooker.sets[1]), (Pairs{{kId, u"1"}, {kTextToken, u"a"}, {kTextToken, u"b"}}));
}

// Goes on with the builder, or ends it, in the middle of its report.
class Intruder : public XmlAttrCallback {
public:
    void OnElement(std::uint32_t, XmlRoAttr* set) override {
        if (++calls == 1) throw std::runtime_error("callback");
        if (calls == 2) builder->StartElement(7, set);
        if (calls == 3) builder.Reset();
    }
    int calls = 0;
    Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(this);
};

TEST_F(Builder, ACallbackMayThrowStartTheNextElementAndEndTheBuilder) {
    Intruder intruder;
    Start(*intruder.builder, {{u"", u"Id", u"1"}});
    EXPECT_THROW(intruder.builder->EndElement(7), std::runtime_error);
    intruder.builder->EndElement(7);
    intruder.builder->Characters(Units(u"a"));
    intruder.builder->EndElement(7);
    EXPECT_FALSE(intruder.builder);
    EXPECT_EQ(intruder.calls, 3);
}

TEST_F(Builder, EndsWithAnElementHalfBuilt) {
    Start(*builder_, {{u"", u"Id", u"1"}});
    XmlAttrHandler* child = builder_->GetChildHandler();
    Start(*child);
    child->Characters(Units(u"text"));
    builder_.Reset();
    EXPECT_TRUE(collector_.elements.empty());
}

// The next two would overflow the stack if builders, or sets, ended each other in turn.
TEST_F(Builder, AMillionNestedElementsGoThrough) {
    constexpr std::uint32_t kDepth = 1'000'000;
    std::vector<XmlAttrHandler*> open{builder_.Get()};
    while (open.size() < kDepth) {
        open.back()->StartElement(7, NullXmlRoAttrImpl::Get().Get());
        open.push_back(open.back()->GetChildHandler());
    }
    open.back()->StartElement(7, NullXmlRoAttrImpl::Get().Get());
    for (; !open.empty(); open.pop_back()) open.back()->EndElement(7);

    std::uint32_t depth = 0;
    for (XmlRoAttr* set = collector_.elements.at(0).second.Get(); set != nullptr; set = set->Find(7)) {
        ++depth;
    }
    EXPECT_EQ(depth, kDepth);
    builder_.Reset();
    collector_.elements.clear();
}

TEST_F(Builder, AMillionChildElementsGoThrough) {
    builder_->StartElement(6, NullXmlRoAttrImpl::Get().Get());
    XmlAttrHandler* child = builder_->GetChildHandler();
    for (int i = 0; i < 1'000'000; ++i) {
        child->StartElement(7, NullXmlRoAttrImpl::Get().Get());
        child->EndElement(7);
    }
    builder_->EndElement(6);
    EXPECT_EQ(collector_.elements.at(0).second->GetCount(), 1'000'000U);
}

}  // namespace
