#include <gtest/gtest.h>

#include <set>
#include <string>

#include "tests/xmlfx/RegistryFixture.h"
#include "vexpa/xmlfx/RegisterNamespaces.h"

namespace {

using tarn::xmlfx::NameEntry;
using tarn::xmlfx::NameInfo;
using tarn::xmlfx::NSMap;
using tarn::xmlfx::NSMapInverse;
using tarn::xmlfx::RegisterNamespace;
using tarn::xmlfx::RegisterNamespaces;
using tarn::xmlfx::XmlMapper;
using vexpa_test::NameOf;
using vexpa_test::RegistryFixture;
using vexpa_test::TokenOf;

constexpr char16_t kWordprocessing[] = u"http://schemas.openxmlformats.org/wordprocessingml/2006/main";
constexpr char16_t kRelationshipReferences[] =
    u"http://schemas.openxmlformats.org/officeDocument/2006/relationships";
constexpr char16_t kChart[] = u"http://schemas.openxmlformats.org/drawingml/2006/chart";
constexpr char16_t kSpreadsheetDrawing[] =
    u"http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing";
constexpr char16_t kVariantTypes[] =
    u"http://schemas.openxmlformats.org/officeDocument/2006/docPropsVTypes";
constexpr char16_t kDiagram[] = u"http://schemas.openxmlformats.org/drawingml/2006/diagram";
constexpr char16_t kPackageRelationships[] =
    u"http://schemas.openxmlformats.org/package/2006/relationships";

class Registry : public RegistryFixture {};

template <class Map>
std::size_t TotalNames(const Map& map) {
    std::size_t total = 0;
    for (const auto& [key, names] : map) total += names.size();
    return total;
}

TEST_F(Registry, ForwardMapHas2614NamesUnder41Uris) {
    EXPECT_EQ(XmlMapper::GetNSMap().size(), 41U);
    EXPECT_EQ(TotalNames(XmlMapper::GetNSMap()), 2614U);
}

TEST_F(Registry, InverseMapHas2613TokensUnder43Namespaces) {
    EXPECT_EQ(XmlMapper::GetNSMapInverse().size(), 43U);
    EXPECT_EQ(TotalNames(XmlMapper::GetNSMapInverse()), 2613U);
}

TEST_F(Registry, InverseMapIsKeyedByTheNamespaceInTheHighHalf) {
    std::set<std::uint32_t> expected;
    for (std::uint32_t id = 0; id <= 44; ++id) {
        if (id != 20 && id != 40) expected.insert(id << 16);
    }
    std::set<std::uint32_t> keys;
    for (const auto& [key, names] : XmlMapper::GetNSMapInverse()) keys.insert(key);
    EXPECT_EQ(keys, expected);
}

TEST_F(Registry, EveryListedNameIsFoundAndAlmostEveryTokenNamesIt) {
    for (const auto& list : tarn::xmlfx::kNamespaceRegistrations) {
        for (unsigned i = 0; i < list.nameCount; ++i) {
            const NameEntry& entry = list.names[i];
            ASSERT_EQ(TokenOf(list.uri, entry.name), entry.token);
            const NameInfo* info = NameOf(entry.token);
            ASSERT_NE(info, nullptr);
            if (std::u16string(list.uri) == kChart) continue;
            EXPECT_EQ(std::u16string(info->uri), list.uri);
            EXPECT_EQ(std::u16string(info->name), entry.name);
        }
    }
}

TEST_F(Registry, TheEmptyUriHoldsTheUnionOfItsThreeLists) {
    EXPECT_EQ(XmlMapper::GetNSMap().find(u"")->second.size(), 21U);
    EXPECT_EQ(TokenOf(u"", u"Relationships"), 0x00000002U);
    EXPECT_EQ(TokenOf(u"", u"xml"), 0x00110024U);
    EXPECT_EQ(TokenOf(u"", u"space"), 0x00130001U);
}

TEST_F(Registry, TheVariantTypesUriHoldsTheUnionOfItsTwoLists) {
    EXPECT_EQ(XmlMapper::GetNSMap().find(kVariantTypes)->second.size(), 6U);
    EXPECT_EQ(TokenOf(kVariantTypes, u"space"), 0x00160001U);
    EXPECT_EQ(TokenOf(kVariantTypes, u"bool"), 0x001B0001U);
}

TEST_F(Registry, ChartSharesATokenWithTxBox) {
    EXPECT_EQ(TokenOf(kChart, u"chart"), 0x0007002DU);
    EXPECT_EQ(TokenOf(kSpreadsheetDrawing, u"txBox"), 0x0007002DU);
    EXPECT_EQ(TokenOf(kSpreadsheetDrawing, u"chart"), std::nullopt);
    const NameInfo* info = NameOf(0x0007002D);
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(std::u16string(info->uri), kSpreadsheetDrawing);
    EXPECT_EQ(std::u16string(info->name), u"txBox");
}

TEST_F(Registry, TokenZeroIsTheNullNameOfTheEmptyUri) {
    const NameInfo* info = NameOf(0);
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(std::u16string(info->uri), u"");
    EXPECT_EQ(std::u16string(info->name), u"__nullName");
}

TEST_F(Registry, ADoubleRowGivesOneEntry) {
    EXPECT_EQ(XmlMapper::GetNSMap().find(kDiagram)->second.size(), 124U);
    EXPECT_EQ(XmlMapper::GetNSMapInverse().find(0x00220000)->second.size(), 124U);
}

TEST_F(Registry, OneNameHasItsOwnTokenInEachNamespace) {
    EXPECT_EQ(TokenOf(kRelationshipReferences, u"id"), 0x00030001U);
    EXPECT_EQ(TokenOf(kWordprocessing, u"id"), 0x000100D5U);
}

TEST_F(Registry, PackageElementNamesHaveTokensUnderTheEmptyUriOnly) {
    EXPECT_EQ(TokenOf(u"", u"Relationship"), 0x00000003U);
    EXPECT_EQ(TokenOf(kPackageRelationships, u"Relationship"), std::nullopt);
    EXPECT_EQ(TokenOf(kPackageRelationships, u"space"), 0x00170001U);
}

TEST_F(Registry, LookUpsMindTheCase) {
    EXPECT_EQ(TokenOf(kWordprocessing, u"val"), 0x00010258U);
    EXPECT_EQ(TokenOf(kWordprocessing, u"Val"), std::nullopt);
    std::u16string upper = kWordprocessing;
    upper[0] = u'H';
    EXPECT_EQ(TokenOf(upper, u"val"), std::nullopt);
}

TEST_F(Registry, UnusedIndicesHaveNoName) {
    EXPECT_EQ(NameOf(0x00110007), nullptr);
    EXPECT_EQ(NameOf(0x001C0019), nullptr);
    EXPECT_EQ(NameOf(0x00140001), nullptr);
    EXPECT_EQ(NameOf(0x00280001), nullptr);
}

TEST_F(Registry, InverseMapPointsAtTheStaticTable) {
    const auto& first = tarn::xmlfx::kNamespaceRegistrations[0];
    const NameInfo* info = NameOf(0x00010001);
    EXPECT_EQ(info->uri, first.uri);
    EXPECT_EQ(info->name, first.names[0].name);
}

TEST_F(Registry, ForwardMapOwnsItsTexts) {
    const auto& first = tarn::xmlfx::kNamespaceRegistrations[0];
    const auto names = XmlMapper::GetNSMap().find(first.uri);
    EXPECT_NE(names->first.data(), first.uri);
    EXPECT_EQ(names->first.data()[names->first.size()], u'\0');
    EXPECT_NE(names->second.find(first.names[0].name)->first.data(), first.names[0].name);
}

TEST_F(Registry, RegisteringAgainAddsNothing) {
    RegisterNamespaces();
    EXPECT_EQ(XmlMapper::GetNSMap().size(), 41U);
    EXPECT_EQ(TotalNames(XmlMapper::GetNSMap()), 2614U);
    EXPECT_EQ(TotalNames(XmlMapper::GetNSMapInverse()), 2613U);
}

TEST_F(Registry, TheFirstRegistrationOfANameWins) {
    const NameEntry names[] = {{u"val", 0x00990001}, {u"another", 0x00990002}};
    RegisterNamespace(kWordprocessing, names, 2);
    EXPECT_EQ(TokenOf(kWordprocessing, u"val"), 0x00010258U);
    EXPECT_EQ(TokenOf(kWordprocessing, u"another"), 0x00990002U);
}

TEST_F(Registry, TheFirstRegistrationOfATokenWins) {
    const NameEntry names[] = {{u"another", 0x00010258}};
    RegisterNamespace(u"urn:test", names, 1);
    EXPECT_EQ(TokenOf(u"urn:test", u"another"), 0x00010258U);
    EXPECT_EQ(std::u16string(NameOf(0x00010258)->name), u"val");
}

TEST_F(Registry, AListGoesUnderTheNamespaceOfItsFirstToken) {
    const NameEntry names[] = {{u"one", 0x00990001}, {u"stray", 0x00980002}};
    RegisterNamespace(u"urn:test", names, 2);
    EXPECT_EQ(XmlMapper::GetNSMapInverse().find(0x00980000), XmlMapper::GetNSMapInverse().end());
    EXPECT_EQ(XmlMapper::GetNSMapInverse().find(0x00990000)->second.count(0x00980002), 1U);
}

TEST_F(Registry, AnEmptyListMakesTheUriKnownAndNoMore) {
    RegisterNamespace(u"urn:test", nullptr, 0);
    EXPECT_TRUE(XmlMapper::GetNSMap().find(u"urn:test")->second.empty());
    EXPECT_EQ(XmlMapper::GetNSMap().size(), 42U);
    EXPECT_EQ(XmlMapper::GetNSMapInverse().size(), 43U);
}

TEST(RegistryBeforeInitialize, MapsAreEmptyAndOne) {
    EXPECT_TRUE(XmlMapper::GetNSMap().empty());
    EXPECT_TRUE(XmlMapper::GetNSMapInverse().empty());
    EXPECT_EQ(&XmlMapper::GetNSMap(), &XmlMapper::GetNSMap());
    EXPECT_EQ(&XmlMapper::GetNSMapInverse(), &XmlMapper::GetNSMapInverse());
    EXPECT_EQ(XmlMapper::GetNSMap().max_load_factor(), 1.0F);
}

TEST(RegistryBeforeInitialize, AMapThatHoldsSomethingIsNotFilled) {
    XmlMapper::GetNSMap()[u"urn:test"];
    RegisterNamespaces();
    EXPECT_EQ(XmlMapper::GetNSMap().size(), 1U);
    EXPECT_TRUE(XmlMapper::GetNSMapInverse().empty());
    XmlMapper::GetNSMap().clear();
}

}  // namespace
