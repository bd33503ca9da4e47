#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/xmlfx/SetText.h"
#include "tests/xmlfx/SetWithoutRtti.h"
#include "vexpa/xmlfx/LeafXmlRoAttrImpl.h"
#include "vexpa/xmlfx/NullXmlRoAttrImpl.h"
#include "vexpa/xmlfx/XmlRoAttrDecorator.h"
#include "vexpa/xmlfx/XmlRoAttrImpl.h"

namespace {

using tarn::Handle;
using tarn::Object;
using tarn::ShallowCloneableImpl;
using tarn::xmlfx::LeafXmlRoAttrImpl;
using tarn::xmlfx::NullXmlRoAttrImpl;
using tarn::xmlfx::XmlRoAttr;
using tarn::xmlfx::XmlRoAttrDecorator;
using tarn::xmlfx::XmlRoAttrImpl;
using vexpa_test::Pairs;
using vexpa_test::PairsOf;
using vexpa_test::Units;
using vexpa_test::ValueOf;

XmlRoAttr* NewLeaf(const char16_t* value) {
    return new LeafXmlRoAttrImpl(Units(value));
}

// A value that writes its name into a log when it ends.
class LoggedValue final : public ShallowCloneableImpl<XmlRoAttr> {
public:
    LoggedValue(std::vector<std::string>& log, std::string name) : log_(log), name_(std::move(name)) {}

    std::uint32_t GetCount() const override { return 0; }
    XmlRoAttr* GetAt(std::uint32_t, std::uint32_t*) const override { return nullptr; }
    XmlRoAttr* Find(std::uint32_t) const override { return nullptr; }

private:
    ~LoggedValue() override { log_.push_back(name_); }

    std::vector<std::string>& log_;
    std::string name_;
};

Handle<XmlRoAttrImpl> SetOf(const Pairs& pairs, std::u16string_view value = {}) {
    Handle<XmlRoAttrImpl> set(new XmlRoAttrImpl(value));
    for (const auto& [token, text] : pairs) set->AddAttribute(token, NewLeaf(text.c_str()));
    return set;
}

Handle<XmlRoAttrDecorator> Over(XmlRoAttr& inner) {
    return Handle<XmlRoAttrDecorator>(new XmlRoAttrDecorator(inner));
}

TEST(EmptySet, HasNothing) {
    const Handle<XmlRoAttr> set = NullXmlRoAttrImpl::Get();
    std::uint32_t token = 77;
    EXPECT_EQ(set->GetCount(), 0U);
    EXPECT_EQ(set->GetAt(0, &token), nullptr);
    EXPECT_EQ(token, 77U);
    EXPECT_EQ(set->Find(0), nullptr);
    EXPECT_EQ(set->Find(5), nullptr);
    EXPECT_EQ(ValueOf(*set), u"");
    EXPECT_EQ(*set->GetValue(), 0);
}

TEST(EmptySet, IsOneForTheProcess) {
    EXPECT_EQ(NullXmlRoAttrImpl::Get().Get(), NullXmlRoAttrImpl::Get().Get());
}

TEST(EmptySet, IsSharedAndReleasedFreely) {
    const Handle<XmlRoAttr> set = NullXmlRoAttrImpl::Get();
    for (int i = 0; i < 10; ++i) set->Release();
    EXPECT_EQ(set->Share().Get(), set.Get());
    EXPECT_EQ(set->GetCount(), 0U);
}

Handle<XmlRoAttr> heldUntilTheEnd;

TEST(EmptySet, AHandleToItMayOutliveMain) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto holdAndExit = [] {
        heldUntilTheEnd = NullXmlRoAttrImpl::Get();
        std::exit(0);  // NOLINT(concurrency-mt-unsafe): there is one thread
    };
    EXPECT_EXIT(holdAndExit(), ::testing::ExitedWithCode(0), "");
}

TEST(Leaf, HasAValueStringOnly) {
    const Handle<XmlRoAttr> leaf(NewLeaf(u"a value longer than any short string"));
    std::uint32_t token = 77;
    EXPECT_EQ(ValueOf(*leaf), u"a value longer than any short string");
    EXPECT_EQ(leaf->GetValue()[leaf->GetValueLength()], 0);
    EXPECT_EQ(leaf->GetCount(), 0U);
    EXPECT_EQ(leaf->GetAt(0, &token), nullptr);
    EXPECT_EQ(token, 77U);
    EXPECT_EQ(leaf->Find(0), nullptr);
}

TEST(Leaf, TakesNullForTheEmptyValue) {
    EXPECT_EQ(ValueOf(*Handle<XmlRoAttr>(new LeafXmlRoAttrImpl(nullptr))), u"");
}

TEST(Set, KeepsItsAttributesInTheOrderOfAddition) {
    const Handle<XmlRoAttrImpl> set = SetOf({{5, u"first"}, {3, u"second"}, {5, u"third"}});
    EXPECT_EQ(set->GetCount(), 3U);
    EXPECT_EQ(PairsOf(*set), (Pairs{{5, u"first"}, {3, u"second"}, {5, u"third"}}));
}

TEST(Set, FindsTheFirstOfTwoWithOneToken) {
    const Handle<XmlRoAttrImpl> set = SetOf({{5, u"first"}, {3, u"second"}, {5, u"third"}});
    EXPECT_EQ(set->Find(5), set->GetAt(0, nullptr));
    EXPECT_EQ(set->Find(3), set->GetAt(1, nullptr));
    EXPECT_EQ(set->Find(4), nullptr);
}

TEST(Set, FindsTheFirstHoweverManyThereAre) {
    const Handle<XmlRoAttrImpl> set(new XmlRoAttrImpl);
    for (std::uint32_t i = 0; i < 1000; ++i) {
        set->AddAttribute(i % 40, NewLeaf(u""));
        const std::uint32_t distinct = std::min(i + 1, 40U);
        for (std::uint32_t token = 0; token < 41; ++token) {
            ASSERT_EQ(set->Find(token), token < distinct ? set->GetAt(token, nullptr) : nullptr);
        }
    }
    EXPECT_EQ(set->GetCount(), 1000U);
}

TEST(Set, AnswersNullBeyondItsEndAndLeavesTheTokenAlone) {
    const Handle<XmlRoAttrImpl> set = SetOf({{5, u"only"}});
    std::uint32_t token = 77;
    EXPECT_EQ(set->GetAt(1, &token), nullptr);
    EXPECT_EQ(set->GetAt(0xFFFFFFFF, &token), nullptr);
    EXPECT_EQ(token, 77U);
    EXPECT_NE(set->GetAt(0, nullptr), nullptr);
}

TEST(Set, HasAValueStringOfItsOwn) {
    EXPECT_EQ(ValueOf(*SetOf({{5, u"attribute"}}, u"own")), u"own");
    EXPECT_EQ(ValueOf(*SetOf({{5, u"attribute"}})), u"");
}

TEST(Set, LivesUntilItsLastHandleGoes) {
    std::vector<std::string> log;
    Handle<XmlRoAttrImpl> set(new XmlRoAttrImpl);
    set->AddAttribute(1, new LoggedValue(log, "value"));
    Handle<XmlRoAttr> second = set->Share();
    EXPECT_EQ(second.Get(), set.Get());
    set.Reset();
    EXPECT_TRUE(log.empty());
    EXPECT_NE(second->Find(1), nullptr);
    second.Reset();
    EXPECT_EQ(log, std::vector<std::string>{"value"});
}

TEST(Set, ReleasesItsValuesInOrderAndOnce) {
    std::vector<std::string> log;
    Handle<XmlRoAttrImpl> set(new XmlRoAttrImpl);
    for (const char* name : {"a", "b", "c"}) set->AddAttribute(1, new LoggedValue(log, name));
    set.Reset();
    EXPECT_EQ(log, (std::vector<std::string>{"a", "b", "c"}));
}

class ThrowingValue final : public ShallowCloneableImpl<XmlRoAttr> {
public:
    void Release() override { throw 1; }
    std::uint32_t GetCount() const override { return 0; }
    XmlRoAttr* GetAt(std::uint32_t, std::uint32_t*) const override { return nullptr; }
    XmlRoAttr* Find(std::uint32_t) const override { return nullptr; }
};

TEST(Set, AValueThatThrowsWhenReleasedEndsTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto endSet = [] {
        Handle<XmlRoAttrImpl> set(new XmlRoAttrImpl);
        set->AddAttribute(1, new ThrowingValue);
        set.Reset();
    };
    EXPECT_EXIT(endSet(), ::testing::KilledBySignal(SIGABRT), "");
}

TEST(Set, HoldsOneReferenceOnAValueThatOthersHoldToo) {
    std::vector<std::string> log;
    Handle<XmlRoAttr> value(new LoggedValue(log, "value"));
    Handle<XmlRoAttrImpl> set(new XmlRoAttrImpl);
    set->AddAttribute(1, value->Share().Detach());
    set.Reset();
    EXPECT_TRUE(log.empty());
    value.Reset();
    EXPECT_EQ(log.size(), 1U);
}

TEST(Decorator, ShowsTheInnerSetFirst) {
    const Handle<XmlRoAttrImpl> inner = SetOf({{1, u"one"}, {2, u"two"}}, u"own");
    const Handle<XmlRoAttrDecorator> set = Over(*inner);
    set->AddAttribute(3, NewLeaf(u"three"));
    EXPECT_EQ(set->GetCount(), 3U);
    EXPECT_EQ(PairsOf(*set), (Pairs{{1, u"one"}, {2, u"two"}, {3, u"three"}}));
    EXPECT_EQ(ValueOf(*set), u"own");
    std::uint32_t token = 77;
    EXPECT_EQ(set->GetAt(3, &token), nullptr);
    EXPECT_EQ(set->GetAt(0xFFFFFFFF, &token), nullptr);
    EXPECT_EQ(token, 77U);
}

TEST(Decorator, LetsTheInnerSetWinASearch) {
    const Handle<XmlRoAttrImpl> inner = SetOf({{1, u"inner"}});
    const Handle<XmlRoAttrDecorator> set = Over(*inner);
    set->AddAttribute(1, NewLeaf(u"own"));
    set->AddAttribute(2, NewLeaf(u"own"));
    EXPECT_EQ(set->Find(1), inner->Find(1));
    EXPECT_EQ(set->Find(2), set->GetAt(2, nullptr));
    EXPECT_EQ(set->Find(3), nullptr);
}

TEST(Decorator, HoldsOneReferenceOnTheInnerSet) {
    std::vector<std::string> log;
    Handle<XmlRoAttrImpl> inner(new XmlRoAttrImpl);
    inner->AddAttribute(1, new LoggedValue(log, "inner"));
    Handle<XmlRoAttrDecorator> set = Over(*inner);
    set->AddAttribute(1, new LoggedValue(log, "own"));
    inner.Reset();
    EXPECT_TRUE(log.empty());
    set.Reset();
    EXPECT_EQ(log.size(), 2U);
}

TEST(Decorator, ReleasesTheInnerSetBeforeItsOwnValues) {
    std::vector<std::string> log;
    Handle<XmlRoAttr> inner(new LoggedValue(log, "inner"));
    Handle<XmlRoAttrDecorator> set = Over(*inner);
    set->AddAttribute(1, new LoggedValue(log, "own"));
    inner.Reset();
    set.Reset();
    EXPECT_EQ(log, (std::vector<std::string>{"inner", "own"}));
}

TEST(Decorator, OverDecoratorsShowsTheInnermostFirst) {
    const Handle<XmlRoAttrImpl> inner = SetOf({{1, u"a"}, {2, u"b"}});
    const Handle<XmlRoAttrDecorator> middle = Over(*inner);
    middle->AddAttribute(2, NewLeaf(u"c"));
    middle->AddAttribute(3, NewLeaf(u"d"));
    const Handle<XmlRoAttrDecorator> outer = Over(*middle);
    outer->AddAttribute(3, NewLeaf(u"e"));
    EXPECT_EQ(PairsOf(*outer), (Pairs{{1, u"a"}, {2, u"b"}, {2, u"c"}, {3, u"d"}, {3, u"e"}}));
    EXPECT_EQ(outer->Find(2), inner->Find(2));
    EXPECT_EQ(outer->Find(3), middle->Find(3));
}

TEST(Decorator, ResetLeavesNothingButTheValueString) {
    std::vector<std::string> log;
    Handle<XmlRoAttrImpl> inner = SetOf({}, u"own");
    inner->AddAttribute(1, new LoggedValue(log, "inner"));
    const Handle<XmlRoAttrDecorator> set = Over(*inner);
    for (std::uint32_t i = 0; i < 30; ++i) set->AddAttribute(i, new LoggedValue(log, "own"));
    inner.Reset();
    set->Reset();
    EXPECT_EQ(log.size(), 31U);
    EXPECT_EQ(set->GetCount(), 0U);
    EXPECT_EQ(set->GetAt(0, nullptr), nullptr);
    EXPECT_EQ(set->Find(1), nullptr);
    EXPECT_EQ(ValueOf(*set), u"own");
    set->AddAttribute(9, NewLeaf(u"again"));
    EXPECT_EQ(PairsOf(*set), (Pairs{{9, u"again"}}));
}

TEST(Decorator, OverAResetDecoratorShowsItsOwn) {
    const Handle<XmlRoAttrImpl> inner = SetOf({{1, u"a"}});
    const Handle<XmlRoAttrDecorator> middle = Over(*inner);
    const Handle<XmlRoAttrDecorator> outer = Over(*middle);
    outer->AddAttribute(2, NewLeaf(u"b"));
    middle->Reset();
    EXPECT_EQ(PairsOf(*outer), (Pairs{{2, u"b"}}));
    EXPECT_EQ(outer->Find(1), nullptr);
}

TEST(Decorator, TakesASetThatWasCompiledWithoutRtti) {
    const Handle<XmlRoAttr> inner(vexpa_test::NewSetWithoutRtti(5));
    const Handle<XmlRoAttrDecorator> set = Over(*inner);
    set->AddAttribute(6, NewLeaf(u"own"));
    EXPECT_EQ(PairsOf(*set), (Pairs{{5, u"caller's"}, {6, u"own"}}));
    EXPECT_EQ(set->Find(5), inner.Get());
    EXPECT_EQ(ValueOf(*set), u"caller's");
}

// A caller's set with three attributes that answers by position and token.
class CallersSet : public ShallowCloneableImpl<XmlRoAttr> {
public:
    std::uint32_t GetCount() const override { return 3; }
    XmlRoAttr* GetAt(std::uint32_t index, std::uint32_t* token) const override {
        if (token != nullptr) *token = index;
        return index < 3 ? value_.Get() : nullptr;
    }
    XmlRoAttr* Find(std::uint32_t token) const override { return GetAt(token, nullptr); }

private:
    Handle<XmlRoAttr> value_{NewLeaf(u"caller's")};
};

TEST(Decorator, TakesASetOfTheCallersOwnMaking) {
    const Handle<XmlRoAttr> inner(new CallersSet);
    const Handle<XmlRoAttrDecorator> middle = Over(*inner);
    middle->AddAttribute(7, NewLeaf(u"middle"));
    const Handle<XmlRoAttrDecorator> set = Over(*middle);
    set->AddAttribute(2, NewLeaf(u"own"));
    EXPECT_EQ(
        PairsOf(*set),
        (Pairs{{0, u"caller's"}, {1, u"caller's"}, {2, u"caller's"}, {7, u"middle"}, {2, u"own"}}));
    EXPECT_EQ(set->Find(2), inner->Find(2));
    EXPECT_EQ(set->Find(7), middle->Find(7));
}

// A caller's set that is never shared.
class UnsharedSet final : public CallersSet {
public:
    Handle<Object> ShallowClone() override { return {}; }
};

TEST(Decorator, OverASetThatCannotBeSharedShowsItsOwn) {
    const Handle<XmlRoAttr> inner(new UnsharedSet);
    const Handle<XmlRoAttrDecorator> set = Over(*inner);
    set->AddAttribute(1, NewLeaf(u"own"));
    EXPECT_EQ(PairsOf(*set), (Pairs{{1, u"own"}}));
    EXPECT_EQ(set->Find(0), nullptr);
}

// The next four would overflow the stack if sets ended, or asked, each other in turn.
TEST(SetTree, AMillionLevelsEndInALoop) {
    Handle<XmlRoAttr> tree(NewLeaf(u"innermost"));
    for (int level = 0; level < 1'000'000; ++level) {
        Handle<XmlRoAttrDecorator> parent = Over(*NullXmlRoAttrImpl::Get());
        parent->AddAttribute(1, tree.Detach());
        tree = Handle<XmlRoAttr>(parent.Detach());
    }
    tree.Reset();
}

TEST(SetTree, AMillionDecoratorsOverEachOtherAnswerAndEndInALoop) {
    Handle<XmlRoAttr> set(SetOf({{1, u"innermost"}}).Detach());
    for (std::uint32_t level = 0; level < 1'000'000; ++level) {
        Handle<XmlRoAttrDecorator> outer = Over(*set);
        outer->AddAttribute(level, NewLeaf(u"own"));
        set = Handle<XmlRoAttr>(outer.Detach());
    }
    EXPECT_EQ(set->GetCount(), 1'000'001U);
    EXPECT_EQ(ValueOf(*set->GetAt(0, nullptr)), u"innermost");
    EXPECT_EQ(ValueOf(*set->Find(1)), u"innermost");
    std::uint32_t token = 0;
    EXPECT_NE(set->GetAt(500'000, &token), nullptr);
    EXPECT_EQ(token, 499'999U);
    EXPECT_EQ(set->GetAt(1'000'001, nullptr), nullptr);
    EXPECT_EQ(set->Find(2'000'000), nullptr);
    set.Reset();
}

TEST(SetTree, AMillionChildrenOfOneTokenAreNoBurden) {
    Handle<XmlRoAttrImpl> set(new XmlRoAttrImpl);
    for (int i = 0; i < 1'000'000; ++i) set->AddAttribute(1, SetOf({}).Detach());
    for (int i = 0; i < 1'000'000; ++i) ASSERT_EQ(set->Find(1), set->GetAt(0, nullptr));
    set.Reset();
}

TEST(SetTree, AMillionChildrenOfDifferentTokensAreNoBurden) {
    Handle<XmlRoAttrImpl> set(new XmlRoAttrImpl);
    for (std::uint32_t i = 1'000'000; i > 0; --i) set->AddAttribute(i, NewLeaf(u""));
    for (std::uint32_t i = 1; i <= 1'000'000; ++i) {
        ASSERT_EQ(set->Find(i), set->GetAt(1'000'000 - i, nullptr));
    }
    set.Reset();
}

TEST(SetTree, SubtreesThatOthersHoldStay) {
    std::vector<std::string> log;
    Handle<XmlRoAttrImpl> child(new XmlRoAttrImpl);
    child->AddAttribute(1, new LoggedValue(log, "value"));
    Handle<XmlRoAttrImpl> parent(new XmlRoAttrImpl);
    parent->AddAttribute(2, child->Share().Detach());
    parent.Reset();
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(child->GetCount(), 1U);
    child.Reset();
    EXPECT_EQ(log.size(), 1U);
}

TEST(SetTree, IsGoneWhenTheReleaseOfItsRootReturns) {
    std::vector<std::string> log;
    Handle<XmlRoAttr> tree(new LoggedValue(log, "innermost"));
    for (int level = 0; level < 5; ++level) {
        Handle<XmlRoAttrImpl> parent(new XmlRoAttrImpl);
        parent->AddAttribute(1, tree.Detach());
        tree = Handle<XmlRoAttr>(parent.Detach());
    }
    tree.Reset();
    EXPECT_EQ(log.size(), 1U);
}

}  // namespace
