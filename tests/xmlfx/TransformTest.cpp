#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/xmlfx/AttributeList.h"
#include "tests/xmlfx/RegistryFixture.h"
#include "tests/xmlfx/SetText.h"
#include "vexpa/xmlfx/NullXmlRoAttrImpl.h"
#include "vexpa/xmlfx/RegisterNamespaces.h"
#include "vexpa/xmlfx/Transform.h"

namespace {

using tarn::Handle;
using tarn::ToUnits;
using tarn::xmlfx::Attributes;
using tarn::xmlfx::NullXmlRoAttrImpl;
using tarn::xmlfx::XmlMapper;
using tarn::xmlfx::XmlRoAttr;
using vexpa_test::AttributeList;
using vexpa_test::Pairs;
using vexpa_test::PairsOf;
using vexpa_test::TestAttribute;
using vexpa_test::Units;
using vexpa_test::ValueOf;

constexpr char16_t kWordprocessing[] = u"http://schemas.openxmlformats.org/wordprocessingml/2006/main";
constexpr char16_t kDrawing[] = u"http://schemas.openxmlformats.org/drawingml/2006/main";
constexpr char16_t kUnknown[] = u"urn:test:unknown";
constexpr std::uint32_t kWordVal = 0x00010258;
constexpr std::uint32_t kWordId = 0x000100D5;
constexpr std::uint32_t kDrawingVal = 0x00040056;

class Transform : public vexpa_test::RegistryFixture {};

Handle<XmlRoAttr> TransformOf(const Attributes& attributes, const char16_t* defaultUri = u"",
                              const char16_t* value = nullptr) {
    return tarn::xmlfx::Transform(&attributes, Units(defaultUri), Units(value));
}

TEST_F(Transform, OfNoAttributesIsTheEmptySetWhateverTheValue) {
    const AttributeList none;
    const XmlRoAttr* empty = NullXmlRoAttrImpl::Get().Get();
    EXPECT_EQ(tarn::xmlfx::Transform(nullptr, Units(u""), Units(u"value")).Get(), empty);
    EXPECT_EQ(tarn::xmlfx::Transform(&none, Units(u""), Units(u"value")).Get(), empty);
    EXPECT_EQ(ValueOf(*empty), u"");
}

TEST_F(Transform, GivesEachKnownAttributeItsToken) {
    const AttributeList list{{kWordprocessing, u"id", u"7"}, {kDrawing, u"val", u"a longer text"}};
    EXPECT_EQ(PairsOf(*TransformOf(list)), (Pairs{{kWordId, u"7"}, {kDrawingVal, u"a longer text"}}));
}

TEST_F(Transform, GivesTheSetTheValueString) {
    const AttributeList list{{kWordprocessing, u"id", u"7"}};
    EXPECT_EQ(ValueOf(*TransformOf(list, u"", u"text")), u"text");
    EXPECT_EQ(ValueOf(*TransformOf(list, u"", nullptr)), u"");
}

TEST_F(Transform, UsesTheDefaultUriForANullOrEmptyOne) {
    const AttributeList list{{nullptr, u"id", u"null"}, {u"", u"val", u"empty"}};
    EXPECT_EQ(PairsOf(*TransformOf(list, kWordprocessing)),
              (Pairs{{kWordId, u"null"}, {kWordVal, u"empty"}}));
}

TEST_F(Transform, TakesANullDefaultUriForTheEmptyOne) {
    const AttributeList list{{nullptr, u"Id", u"rId1"}};
    EXPECT_EQ(PairsOf(*TransformOf(list, nullptr)), (Pairs{{1, u"rId1"}}));
}

TEST_F(Transform, ResolvesPackageAttributesWithoutANamespace) {
    const AttributeList list{{u"", u"Id", u"1"},        {u"", u"Type", u"4"},
                             {u"", u"Target", u"5"},    {u"", u"TargetMode", u"6"},
                             {u"", u"PartName", u"9"},  {u"", u"ContentType", u"10"},
                             {u"", u"Extension", u"12"}};
    EXPECT_EQ(PairsOf(*TransformOf(list, u"")),
              (Pairs{{1, u"1"}, {4, u"4"}, {5, u"5"}, {6, u"6"}, {9, u"9"}, {10, u"10"}, {12, u"12"}}));
}

TEST_F(Transform, DropsTheNullName) {
    const AttributeList list{{u"", u"__nullName", u"dropped"}};
    EXPECT_EQ(TransformOf(list)->GetCount(), 0U);
}

TEST_F(Transform, KeepsTheNullNameOfAnotherNamespace) {
    const AttributeList list{
        {u"http://schemas.microsoft.com/office/word/2006/wordml", u"__nullName", u"kept"}};
    EXPECT_EQ(PairsOf(*TransformOf(list)), (Pairs{{0x00120001, u"kept"}}));
}

TEST_F(Transform, DropsUnknownNames) {
    const AttributeList list{{kWordprocessing, u"noSuchName", u"1"},
                             {kWordprocessing, u"VAL", u"2"},
                             {kWordprocessing, u"", u"3"},
                             {kWordprocessing, nullptr, u"4"},
                             {kWordprocessing, u"val", u"5"}};
    EXPECT_EQ(PairsOf(*TransformOf(list)), (Pairs{{kWordVal, u"5"}}));
}

TEST_F(Transform, OfUnknownAttributesOnlyIsASetOfItsOwn) {
    const AttributeList list{{kWordprocessing, u"noSuchName", u"1"}};
    const Handle<XmlRoAttr> set = TransformOf(list, u"", u"text");
    EXPECT_NE(set.Get(), NullXmlRoAttrImpl::Get().Get());
    EXPECT_EQ(set->GetCount(), 0U);
    EXPECT_EQ(ValueOf(*set), u"text");
}

TEST_F(Transform, AnUnknownNamespaceIsAddedToTheMap) {
    const AttributeList list{{kUnknown, u"val", u"dropped"}};
    EXPECT_EQ(TransformOf(list)->GetCount(), 0U);
    const auto added = XmlMapper::GetNSMap().find(kUnknown);
    ASSERT_NE(added, XmlMapper::GetNSMap().end());
    EXPECT_TRUE(added->second.empty());
    TransformOf(list);
    EXPECT_EQ(XmlMapper::GetNSMap().size(), 42U);
}

TEST_F(Transform, AnUnknownNamespaceGoesWithTheLastUser) {
    TransformOf(AttributeList{{kUnknown, u"val", u"dropped"}});
    _vexpa_Terminate();
    _vexpa_Initialize();
    EXPECT_EQ(XmlMapper::GetNSMap().count(kUnknown), 0U);
    const AttributeList known{{kWordprocessing, u"val", u"kept"}};
    EXPECT_EQ(PairsOf(*TransformOf(known)), (Pairs{{kWordVal, u"kept"}}));
}

TEST_F(Transform, KeepsBothOfTwoWithOneToken) {
    const AttributeList list{{kWordprocessing, u"val", u"first"},
                             {kWordprocessing, u"id", u"between"},
                             {u"", u"val", u"second"}};
    const Handle<XmlRoAttr> set = TransformOf(list, kWordprocessing);
    EXPECT_EQ(PairsOf(*set),
              (Pairs{{kWordVal, u"first"}, {kWordId, u"between"}, {kWordVal, u"second"}}));
    EXPECT_EQ(set->Find(kWordVal), set->GetAt(0, nullptr));
}

TEST_F(Transform, TakesANullValueForTheEmptyOne) {
    const AttributeList list{{kWordprocessing, u"val", nullptr}};
    EXPECT_EQ(PairsOf(*TransformOf(list)), (Pairs{{kWordVal, u""}}));
}

TEST_F(Transform, CopiesWhatItKeeps) {
    std::u16string uri = kWordprocessing, name = u"val", value = u"value";
    const Handle<XmlRoAttr> set =
        TransformOf(AttributeList{{uri.c_str(), name.c_str(), value.c_str()}});
    uri.assign(uri.size(), u'#');
    name.assign(name.size(), u'#');
    value.assign(value.size(), u'#');
    EXPECT_EQ(ValueOf(*set->Find(kWordVal)), u"value");
    EXPECT_EQ(XmlMapper::GetNSMap().count(kWordprocessing), 1U);
}

// More than a set has room for at first.
TEST_F(Transform, KeepsAThousandAttributesInOrder) {
    const std::u16string text = u"0123456789";
    std::vector<TestAttribute> attributes;
    for (std::size_t i = 0; i < 1000; ++i) {
        attributes.push_back({kWordprocessing, i % 2 == 0 ? u"val" : u"id", text.c_str() + i % 10});
    }
    attributes.push_back({kDrawing, u"val", u"last"});
    const AttributeList list(attributes);
    const Handle<XmlRoAttr> set = TransformOf(list);
    ASSERT_EQ(set->GetCount(), 1001U);
    for (std::uint32_t i = 0; i < 1000; ++i) {
        std::uint32_t token = 0;
        ASSERT_EQ(ValueOf(*set->GetAt(i, &token)), text.substr(i % 10));
        ASSERT_EQ(token, i % 2 == 0 ? kWordVal : kWordId);
    }
    EXPECT_EQ(set->Find(kWordVal), set->GetAt(0, nullptr));
    EXPECT_EQ(set->Find(kWordId), set->GetAt(1, nullptr));
    EXPECT_EQ(set->Find(kDrawingVal), set->GetAt(1000, nullptr));
    EXPECT_EQ(set->Find(12345), nullptr);
    std::uint32_t token = 77;
    EXPECT_EQ(set->GetAt(1001, &token), nullptr);
    EXPECT_EQ(set->GetAt(0xFFFFFFFF, &token), nullptr);
    EXPECT_EQ(token, 77U);
}

TEST_F(Transform, AnswersNullBeyondTheEndOfAFewAttributes) {
    const Handle<XmlRoAttr> set = TransformOf(AttributeList{{kWordprocessing, u"val", u"1"}});
    std::uint32_t token = 77;
    EXPECT_EQ(set->GetAt(1, &token), nullptr);
    EXPECT_EQ(set->Find(kWordId), nullptr);
    EXPECT_EQ(token, 77U);
}

TEST_F(Transform, AValueOutlivesTheSetThroughAReferenceOfItsOwn) {
    const AttributeList list{{kWordprocessing, u"val", u"a value too long for a short string"},
                             {kWordprocessing, u"id", u"7"},
                             {kWordprocessing, u"w", u"gone with the set, and a long one, too"}};
    Handle<XmlRoAttr> set = TransformOf(list, u"", u"a text too long for a short string");
    Handle<XmlRoAttr> val = set->Find(kWordVal)->Share();
    Handle<XmlRoAttr> id = set->Find(kWordId)->Share();
    Handle<XmlRoAttr> again = id->Share();
    again.Reset();
    set.Reset();
    EXPECT_EQ(ValueOf(*val), u"a value too long for a short string");
    val.Reset();
    EXPECT_EQ(ValueOf(*id), u"7");
    EXPECT_EQ(id->Share().Get(), id.Get());
    EXPECT_EQ(id->GetCount(), 0U);
}

TEST_F(Transform, AValueThatOthersHeldForAWhileEndsWithTheSet) {
    const AttributeList list{{kWordprocessing, u"val", u"a value too long for a short string"}};
    Handle<XmlRoAttr> set = TransformOf(list);
    set->GetAt(0, nullptr)->Share().Reset();
    EXPECT_EQ(ValueOf(*set->GetAt(0, nullptr)), u"a value too long for a short string");
}

TEST_F(Transform, EveryOneOfManyValuesMayOutliveTheSet) {
    const AttributeList list(std::vector<TestAttribute>(
        100, {kWordprocessing, u"val", u"a value too long for a short string"}));
    Handle<XmlRoAttr> set = TransformOf(list);
    std::vector<Handle<XmlRoAttr>> values;
    for (std::uint32_t i = 0; i < 100; ++i) values.push_back(set->GetAt(i, nullptr)->Share());
    set.Reset();
    for (Handle<XmlRoAttr>& value : values) {
        EXPECT_EQ(ValueOf(*value), u"a value too long for a short string");
        value.Reset();
    }
}

TEST_F(Transform, TakesTheMapAsItIsAtEachCall) {
    const AttributeList list{{kWordprocessing, u"val", u"1"}};
    EXPECT_EQ(PairsOf(*TransformOf(list)), (Pairs{{kWordVal, u"1"}}));
    XmlMapper::GetNSMap().clear();
    EXPECT_EQ(TransformOf(list)->GetCount(), 0U);
    XmlMapper::GetNSMap()[kWordprocessing][u"val"] = 0x00990001;
    EXPECT_EQ(PairsOf(*TransformOf(list)), (Pairs{{0x00990001, u"1"}}));
    XmlMapper::GetNSMap().clear();
    XmlMapper::GetNSMapInverse().clear();
    tarn::xmlfx::RegisterNamespaces();
    EXPECT_EQ(PairsOf(*TransformOf(list)), (Pairs{{kWordVal, u"1"}}));
}

// A parser may write every URI it answers into the same place.
class OneBufferList : public AttributeList {
public:
    using AttributeList::AttributeList;
    const unsigned short* getURI(unsigned int index) const override {
        uri_.reserve(200);
        uri_.assign(tarn::CopyText(AttributeList::getURI(index)), 0);
        return ToUnits(uri_.c_str());
    }

private:
    mutable std::u16string uri_;
};

TEST_F(Transform, TellsUrisByTheirTextAndNotByTheirPlace) {
    const OneBufferList list{
        {kWordprocessing, u"val", u"1"},
        {kDrawing, u"val", u"2"},
        {kWordprocessing, u"val", u"3"},
        {u"http://schemas.openxmlformats.org/wordprocessingml/2006/mail", u"val", u""}};
    EXPECT_EQ(PairsOf(*TransformOf(list)),
              (Pairs{{kWordVal, u"1"}, {kDrawingVal, u"2"}, {kWordVal, u"3"}}));
}

// A list whose length is another one each time it is asked.
class ChangingList : public AttributeList {
public:
    ChangingList(std::vector<unsigned> lengths)
        : AttributeList({{kWordprocessing, u"val", u"0"},
                         {kWordprocessing, u"val", u"1"},
                         {kWordprocessing, u"val", u"2"}}),
          lengths_(std::move(lengths)) {}

    unsigned int getLength() const override {
        return lengths_[std::min(asked_++, lengths_.size() - 1)];
    }

private:
    std::vector<unsigned> lengths_;
    mutable std::size_t asked_ = 0;
};

TEST_F(Transform, AsksForTheLengthBeforeEveryAttribute) {
    EXPECT_EQ(TransformOf(ChangingList({3, 3, 3, 1}))->GetCount(), 2U);  // the list shrinks
    EXPECT_EQ(TransformOf(ChangingList({1, 1, 3}))->GetCount(), 3U);     // the list grows
    EXPECT_EQ(TransformOf(ChangingList({1, 0}))->GetCount(), 0U);
}

TEST_F(Transform, DoesNotTakeAListsWordForItsLength) {
    EXPECT_EQ(TransformOf(ChangingList({0xFFFFFFFF, 2}))->GetCount(), 2U);
}

// A list that throws at the n-th question.
class ThrowingList : public AttributeList {
public:
    explicit ThrowingList(int calls)
        : AttributeList({{kWordprocessing, u"val", u"a value too long for a short string"},
                         {kUnknown, u"val", u"1"},
                         {u"", u"id", u"2"}}),
          calls_(calls) {}

    unsigned int getLength() const override { return Count(AttributeList::getLength()); }
    const unsigned short* getURI(unsigned int i) const override {
        return Count(AttributeList::getURI(i));
    }
    const unsigned short* getLocalName(unsigned int i) const override {
        return Count(AttributeList::getLocalName(i));
    }
    const unsigned short* getValue(unsigned int i) const override {
        return Count(AttributeList::getValue(i));
    }

private:
    template <class T>
    T Count(T answer) const {
        if (calls_-- == 0) throw std::runtime_error("parser");
        return answer;
    }

    mutable int calls_;
};

TEST_F(Transform, ReleasesTheHalfBuiltSetWhenTheParserThrows) {
    int calls = 0;
    for (;; ++calls) {  // the leak checker has the rest
        try {
            TransformOf(ThrowingList(calls), kWordprocessing, u"a value too long for a short string");
            break;
        } catch (const std::runtime_error&) {
        }
    }
    EXPECT_EQ(calls, 13);  // five lengths, three URIs, three names and two values
}

TEST_F(Transform, OfAStringIsASetWithOneLeaf) {
    const Handle<XmlRoAttr> set = tarn::xmlfx::Transform(Units(u"x"), 5U);
    EXPECT_EQ(set->GetCount(), 1U);
    ASSERT_NE(set->Find(5), nullptr);
    EXPECT_EQ(ValueOf(*set->Find(5)), u"x");
    EXPECT_EQ(set->Find(5)->GetCount(), 0U);
    EXPECT_EQ(ValueOf(*set), u"");
}

TEST_F(Transform, OfAnEmptyStringIsASetWithOneEmptyLeaf) {
    EXPECT_EQ(PairsOf(*tarn::xmlfx::Transform(Units(u""), 0xFFFFFFFF)), (Pairs{{0xFFFFFFFF, u""}}));
}

TEST_F(Transform, OfANullStringIsTheEmptySet) {
    EXPECT_EQ(tarn::xmlfx::Transform(static_cast<const unsigned short*>(nullptr), 5U).Get(),
              NullXmlRoAttrImpl::Get().Get());
}

TEST_F(Transform, TwoHundredThousandCollidingNamespacesAreNoBurden) {
    std::vector<std::u16string> uris;
    std::vector<TestAttribute> attributes;
    attributes.reserve(200'000);
    for (unsigned i = 0; i < 200'000; ++i) {
        std::u16string uri = u"http://collisions.example/namespace/of/a/hostile/document/000000";
        for (std::size_t n = 1, rest = i; rest != 0; ++n, rest /= 10) {
            uri[uri.size() - n] = static_cast<char16_t>(u'0' + rest % 10);
        }
        uris.push_back(std::move(uri));
    }
    for (const std::u16string& uri : uris) attributes.push_back({uri.c_str(), u"val", u"dropped"});
    EXPECT_EQ(TransformOf(AttributeList(std::move(attributes)))->GetCount(), 0U);
    EXPECT_EQ(XmlMapper::GetNSMap().size(), 200'041U);
}

}  // namespace
