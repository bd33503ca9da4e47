#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "vexpa/xmlfx/TokenTable.h"

namespace {

using tarn::xmlfx::kNamespaceRegistrationCount;
using tarn::xmlfx::kNamespaceRegistrations;
using tarn::xmlfx::NameEntry;
using tarn::xmlfx::NamespaceRegistration;

// Every number here was written down by hand, so that a change of the table shows twice.

#define OOXML u"http://schemas.openxmlformats.org"
#define OFFICE u"http://schemas.microsoft.com/office"
#define URN u"urn:schemas-microsoft-com:"
struct RegistrationRow {
    unsigned id;
    const char16_t* uri;
    unsigned names;
    const char16_t* first;
};
const RegistrationRow kRegistrationRows[] = {
    {1, OOXML u"/wordprocessingml/2006/main", 791, u"tblPrEx"},
    {0, u"", 13, u"__nullName"},
    {2, OOXML u"/presentationml/2006/main", 408, u"sld"},
    {3, OOXML u"/officeDocument/2006/relationships", 10, u"id"},
    {4, OOXML u"/drawingml/2006/main", 504, u"extLst"},
    {6, URN u"vml", 128, u"shape"},
    {5, URN u"office:office", 210, u"shapedefaults"},
    {9, OOXML u"/drawingml/2006/picture", 13, u"cNvPr"},
    {10, OOXML u"/markup-compatibility/2006", 5, u"legacyDrawing"},
    {11, OOXML u"/drawingml/2006/wordprocessingDrawing", 43, u"extent"},
    {8, URN u"office:word", 12, u"bordertop"},
    {7, OOXML u"/drawingml/2006/spreadsheetDrawing", 48, u"cNvPr"},
    {7, OOXML u"/drawingml/2006/chart", 1, u"chart"},
    {12, OOXML u"/package/2006/metadata/core-properties", 9, u"coreProperties"},
    {13, u"http://purl.org/dc/elements/1.1/", 6, u"title"},
    {14, u"http://purl.org/dc/terms/", 2, u"created"},
    {15, URN u"office:excel", 7, u"ClientData"},
    {16, u"http://www.w3.org/2001/XMLSchema-instance", 1, u"type"},
    {17, u"", 7, u"div"},
    {18, OFFICE u"/word/2006/wordml", 4, u"__nullName"},
    {19, u"", 1, u"space"},
    {21, OOXML u"/package/2006/content-types", 1, u"space"},
    {22, OOXML u"/officeDocument/2006/docPropsVTypes", 1, u"space"},
    {23, OOXML u"/package/2006/relationships", 1, u"space"},
    {24, OOXML u"/officeDocument/2006/math", 1, u"space"},
    {25, OOXML u"/schemaLibrary/2006/main", 1, u"space"},
    {26, u"http://purl.org/dc/dcmitype/", 1, u"space"},
    {27, OOXML u"/officeDocument/2006/docPropsVTypes", 5, u"bool"},
    {28, OOXML u"/officeDocument/2006/extended-properties", 28, u"Properties"},
    {29, OOXML u"/officeDocument/2006/custom-properties", 5, u"Properties"},
    {30, URN u"office:activation", 1, u"space"},
    {31, URN u"office:powerpoint", 1, u"space"},
    {33, OFFICE u"/2006/activeX", 9, u"ocx"},
    {34, OOXML u"/drawingml/2006/diagram", 128, u"extLst"},
    {35, OFFICE u"/word/2010/wordprocessingShape", 33, u"extLst"},
    {36, OFFICE u"/word/2010/wordprocessingGroup", 11, u"cNvPr"},
    {32, OFFICE u"/drawing/2008/diagram", 21, u"cNvPr"},
    {37, OFFICE u"/word/2010/wordprocessingDrawing", 9, u"pctWidth"},
    {38, OFFICE u"/word/2010/wordprocessingCanvas", 5, u"bg"},
    {39, OOXML u"/drawingml/2006/lockedCanvas", 1, u"lockedCanvas"},
    {41, OOXML u"/drawingml/2006/compatibility", 2, u"legacyDrawing"},
    {42, u"http://schemas.nexo.example/officeDocument/2013/nexoCustomData", 25, u"customData"},
    {43, OOXML u"/officeDocument/2006/customXml", 5, u"datastoreItem"},
    {44, OFFICE u"/word/2010/wordml", 100, u"t"},
};
#undef OOXML
#undef OFFICE
#undef URN

// Names under their indices; a name that is listed twice counts once.
struct VocabularyRow {
    unsigned id;
    std::size_t names;
    unsigned firstIndex;
    unsigned lastIndex;
    std::vector<std::pair<const char16_t*, unsigned>> anchors;
};
const VocabularyRow kVocabularyRows[] = {
    {0,
     13,
     0,
     12,
     {{u"__nullName", 0},
      {u"Id", 1},
      {u"Relationships", 2},
      {u"Relationship", 3},
      {u"Type", 4},
      {u"Target", 5},
      {u"TargetMode", 6},
      {u"Types", 7},
      {u"Override", 8},
      {u"PartName", 9},
      {u"ContentType", 10},
      {u"Default", 11},
      {u"Extension", 12}}},
    {1,
     791,
     1,
     791,
     {{u"tblPrEx", 1}, {u"w", 165}, {u"r", 195}, {u"id", 213}, {u"val", 600}, {u"noLabel", 791}}},
    {2, 408, 1, 408, {{u"sld", 1}, {u"id", 10}, {u"val", 145}, {u"cNvPr", 0x129}, {u"typeface", 408}}},
    {3,
     10,
     1,
     10,
     {{u"id", 1},
      {u"embed", 2},
      {u"link", 3},
      {u"dm", 4},
      {u"lo", 5},
      {u"qs", 6},
      {u"cs", 7},
      {u"blip", 8},
      {u"pict", 9},
      {u"href", 10}}},
    {4, 504, 1, 504, {{u"extLst", 1}, {u"val", 86}, {u"cNvPr", 0x9F}, {u"hangingPunct", 504}}},
    {5, 210, 1, 210, {{u"shapedefaults", 1}, {u"v", 210}}},
    {6, 128, 1, 128, {{u"shape", 1}, {u"shapetype", 2}, {u"group", 3}, {u"arcsize", 128}}},
    // The chart list adds a second name to index 45.
    {7, 49, 1, 48, {{u"cNvPr", 1}, {u"txBox", 45}, {u"chart", 45}, {u"hidden", 48}}},
    {8, 12, 1, 12, {{u"bordertop", 1}, {u"anchory", 12}}},
    {9, 13, 1, 13, {{u"cNvPr", 1}, {u"rotWithShape", 13}}},
    {10, 5, 1, 5, {{u"legacyDrawing", 1}, {u"spid", 2}, {u"AlternateContent", 3}, {u"Fallback", 5}}},
    {11, 43, 1, 43, {{u"extent", 1}, {u"effectExtent", 2}, {u"docPr", 3}, {u"descr", 43}}},
    {12, 9, 1, 9, {{u"coreProperties", 1}, {u"version", 9}}},
    {13, 6, 1, 6, {{u"title", 1}, {u"language", 6}}},
    {14, 2, 1, 2, {{u"created", 1}, {u"modified", 2}}},
    {15, 7, 1, 7, {{u"ClientData", 1}, {u"ObjectType", 2}}},
    {16, 1, 1, 1, {{u"type", 1}}},
    {17,
     7,
     1,
     36,
     {{u"div", 1},
      {u"style", 2},
      {u"font", 3},
      {u"face", 4},
      {u"size", 5},
      {u"color", 6},
      {u"xml", 36}}},
    {18, 4, 1, 4, {{u"__nullName", 1}, {u"tcg", 2}, {u"toolbars", 3}, {u"toolbarData", 4}}},
    {19, 1, 1, 1, {{u"space", 1}}},
    {21, 1, 1, 1, {{u"space", 1}}},
    {22, 1, 1, 1, {{u"space", 1}}},
    {23, 1, 1, 1, {{u"space", 1}}},
    {24, 1, 1, 1, {{u"space", 1}}},
    {25, 1, 1, 1, {{u"space", 1}}},
    {26, 1, 1, 1, {{u"space", 1}}},
    {27, 5, 1, 5, {{u"bool", 1}, {u"i4", 2}, {u"lpwstr", 3}, {u"r8", 5}}},
    {28, 28, 1, 29, {{u"Properties", 1}, {u"Template", 2}, {u"DigSig", 29}}},
    {29, 5, 1, 5, {{u"Properties", 1}, {u"property", 2}, {u"fmtid", 3}, {u"name", 5}}},
    {30, 1, 1, 1, {{u"space", 1}}},
    {31, 1, 1, 1, {{u"space", 1}}},
    {32, 21, 1, 21, {{u"cNvPr", 1}, {u"rot", 21}}},
    {33, 9, 1, 9, {{u"ocx", 1}, {u"classid", 2}, {u"license", 3}, {u"picture", 9}}},
    {34, 124, 1, 140, {{u"extLst", 1}, {u"custRadScaleInc", 140}}},
    {35, 33, 1, 33, {{u"extLst", 1}, {u"cNvPr", 2}, {u"name", 33}}},
    {36, 11, 1, 11, {{u"cNvPr", 1}, {u"name", 11}}},
    {37, 9, 1, 9, {{u"pctWidth", 1}, {u"editId", 9}}},
    {38, 5, 1, 5, {{u"bg", 1}, {u"wpc", 5}}},
    {39, 1, 1, 1, {{u"lockedCanvas", 1}}},
    {41, 2, 1, 2, {{u"legacyDrawing", 1}, {u"spid", 2}}},
    {42, 25, 1, 25, {{u"customData", 1}, {u"textInnerHeight", 25}}},
    {43, 5, 1, 5, {{u"datastoreItem", 1}, {u"itemID", 2}, {u"schemaRefs", 3}, {u"uri", 5}}},
    {44, 100, 1, 100, {{u"docId", 1}, {u"t", 66}, {u"font", 100}}},
};

std::vector<NameEntry> AllRows() {
    std::vector<NameEntry> rows;
    for (const NamespaceRegistration& list : kNamespaceRegistrations) {
        rows.insert(rows.end(), list.names, list.names + list.nameCount);
    }
    return rows;
}

using Vocabulary = std::map<std::u16string, unsigned>;  // name -> index

using Vocabularies = std::map<unsigned, Vocabulary>;  // by namespace id

Vocabularies AllVocabularies() {
    Vocabularies all;
    for (const NameEntry& row : AllRows()) all[row.token >> 16].emplace(row.name, row.token & 0xFFFF);
    return all;
}

std::set<unsigned> IndicesOf(unsigned id) {
    const Vocabularies all = AllVocabularies();
    std::set<unsigned> indices;
    for (const auto& [name, index] : all.at(id)) indices.insert(index);
    return indices;
}

TEST(TokenTable, Has2618RowsIn44Lists) {
    EXPECT_EQ(AllRows().size(), 2618U);
    EXPECT_EQ(kNamespaceRegistrationCount, 44U);
    EXPECT_EQ(std::size(kRegistrationRows), 44U);
}

TEST(TokenTable, ListsStandInRegistrationOrder) {
    for (std::size_t i = 0; i < std::size(kRegistrationRows); ++i) {
        const RegistrationRow& row = kRegistrationRows[i];
        const NamespaceRegistration& list = kNamespaceRegistrations[i];
        SCOPED_TRACE("registration " + std::to_string(i + 1));
        EXPECT_EQ(std::u16string(list.uri), row.uri);
        EXPECT_EQ(list.nameCount, row.names);
        EXPECT_EQ(std::u16string(list.names[0].name), row.first);
        for (unsigned n = 0; n < list.nameCount; ++n) EXPECT_EQ(list.names[n].token >> 16, row.id);
    }
}

TEST(TokenTable, VocabulariesHaveTheirSizesAndIndexRanges) {
    for (const VocabularyRow& row : kVocabularyRows) {
        SCOPED_TRACE("namespace " + std::to_string(row.id));
        const std::set<unsigned> indices = IndicesOf(row.id);
        EXPECT_EQ(AllVocabularies().at(row.id).size(), row.names);
        EXPECT_EQ(*indices.begin(), row.firstIndex);
        EXPECT_EQ(*indices.rbegin(), row.lastIndex);
    }
}

TEST(TokenTable, TellingNamesHaveTheirIndices) {
    const Vocabularies vocabularies = AllVocabularies();
    for (const VocabularyRow& row : kVocabularyRows) {
        SCOPED_TRACE("namespace " + std::to_string(row.id));
        for (const auto& [name, index] : row.anchors) {
            const auto found = vocabularies.at(row.id).find(name);
            ASSERT_NE(found, vocabularies.at(row.id).end()) << "index " << index;
            EXPECT_EQ(found->second, index);
        }
    }
}

TEST(TokenTable, Namespaces20And40AreReserved) {
    const Vocabularies vocabularies = AllVocabularies();
    EXPECT_EQ(vocabularies.size(), 43U);
    EXPECT_EQ(vocabularies.count(20), 0U);
    EXPECT_EQ(vocabularies.count(40), 0U);
    EXPECT_EQ(vocabularies.rbegin()->first, 44U);
}

TEST(TokenTable, OnlyThreeNamespacesHaveGapsInTheirIndices) {
    const std::map<unsigned, std::size_t> gaps = {{17, 29}, {28, 1}, {34, 16}};
    for (const VocabularyRow& row : kVocabularyRows) {
        const std::size_t expected = gaps.count(row.id) != 0 ? gaps.at(row.id) : 0;
        const std::size_t range = row.lastIndex - row.firstIndex + 1;
        EXPECT_EQ(range - IndicesOf(row.id).size(), expected) << "namespace " << row.id;
    }
    EXPECT_EQ(IndicesOf(17), (std::set<unsigned>{1, 2, 3, 4, 5, 6, 36}));
    EXPECT_EQ(IndicesOf(28).count(25), 0U);
}

TEST(TokenTable, DiagramListsFourNamesTwiceWithOneToken) {
    std::map<std::u16string, std::vector<unsigned>> tokens;
    for (const NameEntry& row : AllRows()) {
        if (row.token >> 16 == 34) tokens[row.name].push_back(row.token);
    }
    std::set<std::u16string> twice;
    for (const auto& [name, all] : tokens) {
        if (all.size() == 1) continue;
        twice.insert(name);
        EXPECT_EQ(all, (std::vector<unsigned>{all[0], all[0]}));
    }
    EXPECT_EQ(twice, (std::set<std::u16string>{u"dataModel", u"extLst", u"type", u"val"}));
}

TEST(TokenTable, NoOtherListHoldsANameOrATokenTwice) {
    for (const NamespaceRegistration& list : kNamespaceRegistrations) {
        std::set<std::u16string> names;
        std::set<unsigned> tokens;
        for (unsigned i = 0; i < list.nameCount; ++i) {
            names.insert(list.names[i].name);
            tokens.insert(list.names[i].token);
        }
        const bool diagram = list.names[0].token >> 16 == 34;
        EXPECT_EQ(names.size(), list.nameCount - (diagram ? 4 : 0)) << list.names[0].token;
        EXPECT_EQ(tokens.size(), names.size()) << list.names[0].token;
    }
}

TEST(TokenTable, ListOrderIsNotIndexOrderEverywhere) {
    const auto nameAt = [](unsigned registration, unsigned position) {
        const NamespaceRegistration& list = kNamespaceRegistrations[registration - 1];
        return std::u16string(list.names[position - 1].name);
    };
    EXPECT_EQ(nameAt(3, 19), u"typeface");    // index 408
    EXPECT_EQ(nameAt(17, 7), u"ObjectType");  // index 2
    EXPECT_EQ(nameAt(44, 1), u"t");           // index 66
    EXPECT_EQ(nameAt(44, 2), u"docId");       // index 1
}

TEST(TokenTable, TheNullNameIsTwiceThereButTokenZeroOnce) {
    std::vector<unsigned> nullNames;
    unsigned zeros = 0;
    for (const NameEntry& row : AllRows()) {
        if (std::u16string(row.name) == u"__nullName") nullNames.push_back(row.token);
        if (row.token == 0) ++zeros;
    }
    EXPECT_EQ(nullNames, (std::vector<unsigned>{0x00000000, 0x00120001}));
    EXPECT_EQ(zeros, 1U);
}

TEST(TokenTable, ANameHasAnotherTokenInEachNamespace) {
    std::set<unsigned> tokens;
    for (const NameEntry& row : AllRows()) {
        if (std::u16string(row.name) == u"cNvPr") tokens.insert(row.token);
    }
    EXPECT_EQ(tokens, (std::set<unsigned>{0x00020129, 0x0004009F, 0x00070001, 0x00090001, 0x00200001,
                                          0x00230002, 0x00240001}));
}

}  // namespace
