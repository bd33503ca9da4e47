#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/growth/Work.h"
#include "tests/xmlfx/AttributeList.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/xmlfx/SampledStringHash.h"
#include "vexpa/xmlfx/Transform.h"
#include "vexpa/xmlfx/XmlAttrBuilder.h"

namespace {

using namespace tarn;
using namespace tarn::xmlfx;
using vexpa_test::AttributeList;
using vexpa_test::ExpectNoFasterGrowthThanSize;
using vexpa_test::TestAttribute;

class VocabularyGrowth : public testing::Test {
protected:
    VocabularyGrowth() { _vexpa_Initialize(); }
    ~VocabularyGrowth() override { _vexpa_Terminate(); }
};

Handle<XmlRoAttr> Transformed(const AttributeList& attributes) {
    return Transform(&attributes, ToUnits(u""), ToUnits(u""));
}

// A text for each number: `first` with the number in the middle of what comes behind.
std::u16string Numbered(std::u16string_view first, std::size_t number) {
    const std::string digits = std::to_string(number);
    return std::u16string(first) + std::u16string(digits.begin(), digits.end());
}

TEST_F(VocabularyGrowth, OfAttributesOfOneElement) {
    ExpectNoFasterGrowthThanSize(1'000, [](std::size_t n) {
        const auto list = std::make_shared<const AttributeList>(
            std::vector<TestAttribute>(n, TestAttribute{u"", u"Id", u"value"}));
        return [list] {
            const Handle<XmlRoAttr> set = Transformed(*list);
            for (std::uint32_t i = 0; i < set->GetCount(); ++i)
                EXPECT_NE(set->GetAt(i, nullptr), nullptr);
        };
    });
}

TEST_F(VocabularyGrowth, OfElements) {
    ExpectNoFasterGrowthThanSize(1'000, [](std::size_t n) {
        return [n] {
            const AttributeList list{{u"", u"Id", u"1"}, {u"", u"Type", u"t"}, {u"", u"none", u"v"}};
            for (std::size_t i = 0; i < n; ++i) EXPECT_EQ(Transformed(list)->GetCount(), 2u);
        };
    });
}

TEST_F(VocabularyGrowth, OfTheLengthOfAValue) {
    ExpectNoFasterGrowthThanSize(50'000, [](std::size_t n) {
        const auto value = std::make_shared<const std::u16string>(n, u'v');
        return [value] { Transformed({{u"", u"Id", value->c_str()}}); };
    });
}

// Every run names them anew, as the map keeps those of the run before.
std::shared_ptr<std::vector<std::u16string>> NewNamespaces(
    std::size_t count, const std::function<std::u16string(std::size_t)>& uri) {
    static std::size_t made = 0;
    auto uris = std::make_shared<std::vector<std::u16string>>();
    for (std::size_t i = 0; i < count; ++i) uris->push_back(uri(made++));
    return uris;
}

std::function<void()> UseOf(std::shared_ptr<std::vector<std::u16string>> uris) {
    return [uris] {
        for (const std::u16string& uri : *uris) Transformed({{uri.c_str(), u"Id", u"1"}});
    };
}

TEST_F(VocabularyGrowth, OfNamespacesThatAreNotKnown) {
    ExpectNoFasterGrowthThanSize(1'000, [](std::size_t n) {
        return UseOf(NewNamespaces(n, [](std::size_t i) { return Numbered(u"urn:growth:", i); }));
    });
}

// Of two hundred units the hash looks at every twenty-first. Each comes behind the one before in the
// order of its units, too.
std::u16string Colliding(std::size_t number) {
    std::u16string uri(200, u'u');
    for (std::size_t bit = 0; bit < 16; ++bit) {
        if ((number >> bit & 1) != 0) uri[20 - bit] = u'v';
    }
    return uri;
}

TEST_F(VocabularyGrowth, OfNamespacesThatShareAHash) {
    ASSERT_EQ(SampledStringHash()(Colliding(1)), SampledStringHash()(Colliding(0xFFFF)));
    ExpectNoFasterGrowthThanSize(500, [](std::size_t n) { return UseOf(NewNamespaces(n, Colliding)); });
}

class Keeper : public XmlAttrCallback {
public:
    void OnElement(std::uint32_t, XmlRoAttr* set) override { kept = set->Share(); }
    Handle<XmlRoAttr> kept;
};

constexpr std::uint32_t kToken = 7;

void Start(XmlAttrHandler& handler) {
    const Handle<XmlRoAttr> attributes = Transformed({{u"", u"Id", u"1"}});
    handler.StartElement(kToken, attributes.Get());
}

TEST_F(VocabularyGrowth, OfNestedElements) {
    ExpectNoFasterGrowthThanSize(1'000, [](std::size_t n) {
        return [n] {
            Keeper keeper;
            const Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&keeper);
            std::vector<XmlAttrHandler*> open{builder.Get()};
            for (std::size_t i = 0; i < n; ++i) {
                Start(*open.back());
                open.push_back(open.back()->GetChildHandler());
            }
            Start(*open.back());
            for (; !open.empty(); open.pop_back()) open.back()->EndElement(kToken);
        };
    });
}

TEST_F(VocabularyGrowth, OfChildElements) {
    ExpectNoFasterGrowthThanSize(1'000, [](std::size_t n) {
        return [n] {
            Keeper keeper;
            const Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&keeper);
            Start(*builder);
            for (std::size_t i = 0; i < n; ++i) {
                XmlAttrHandler* child = builder->GetChildHandler();
                Start(*child);
                child->EndElement(kToken);
                builder->Characters(ToUnits(u"text"));
            }
            builder->EndElement(kToken);
            for (std::uint32_t i = 0; i < 50; ++i) EXPECT_NE(keeper.kept->Find(kToken), nullptr);
        };
    });
}

TEST_F(VocabularyGrowth, OfChildElementsOfDistinctNames) {
    ExpectNoFasterGrowthThanSize(1'000, [](std::size_t n) {
        return [n] {
            Keeper keeper;
            const Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&keeper);
            Start(*builder);
            for (std::uint32_t i = 0; i < n; ++i) {
                XmlAttrHandler* child = builder->GetChildHandler();
                Start(*child);
                child->EndElement(1'000 + i);
            }
            builder->EndElement(kToken);
            for (std::uint32_t i = 0; i < n; ++i) EXPECT_NE(keeper.kept->Find(1'000 + i), nullptr);
        };
    });
}

// A set on top of a set on top of a set, each of which has to be asked.
TEST_F(VocabularyGrowth, OfSetsOnTopOfEachOther) {
    ExpectNoFasterGrowthThanSize(1'000, [](std::size_t n) {
        return [n] {
            Keeper keeper;
            const Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&keeper);
            Start(*builder);
            builder->EndElement(kToken);
            for (std::size_t i = 0; i < n; ++i) {
                builder->StartElement(kToken, keeper.kept.Get());
                builder->EndElement(kToken);
            }
            EXPECT_EQ(keeper.kept->GetCount(), 1u);
            EXPECT_EQ(keeper.kept->Find(kToken), nullptr);
        };
    });
}

}  // namespace
