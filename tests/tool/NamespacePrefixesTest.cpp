#include <gtest/gtest.h>

#include <set>

#include "tool/model/NamespacePrefixes.h"
#include "tool/model/Vocabulary.h"

namespace {

using namespace vexpa_tool;

TEST(NamespacePrefixes, EachStandsForOneNamespaceOfTheLibrary) {
    const Vocabulary vocabulary;
    std::set<std::u16string_view> prefixes;
    for (const NamespacePrefix& row : kNamespacePrefixes) {
        EXPECT_TRUE(prefixes.insert(row.prefix).second);
        EXPECT_EQ(FindPrefix(row.prefix), &row);
        EXPECT_NE(vocabulary.CountNames(row.uri), 0u);
    }
}

TEST(NamespacePrefixes, TheTokenChoosesAmongThoseOfOneNamespace) {
    EXPECT_EQ(PrefixOf(u"", 0x00000002), u"pkg");
    EXPECT_EQ(PrefixOf(u"", 0x00110001), u"html");
    EXPECT_EQ(PrefixOf(u"", 0x00130001), u"nons");
}

TEST(NamespacePrefixes, ATokenOfAnotherNamespaceDoesNotMatter) {
    EXPECT_EQ(PrefixOf(u"http://schemas.openxmlformats.org/drawingml/2006/chart", 0x0007002D), u"c");
}

TEST(NamespacePrefixes, WhatTheLibraryDoesNotKnowHasNone) {
    EXPECT_EQ(PrefixOf(u"urn:my", 0x00010001), u"");
    EXPECT_EQ(FindPrefix(u"my"), nullptr);
    EXPECT_EQ(FindPrefix(u""), nullptr);
}

// The library registers another for the same, which no document has.
TEST(NamespacePrefixes, OfNoTokenIsTheOneThatDocumentsHave) {
    const auto* const types = u"http://schemas.openxmlformats.org/officeDocument/2006/docPropsVTypes";
    EXPECT_EQ(PrefixOf(types, 0), u"vt");
    EXPECT_EQ(PrefixOf(types, 0x00160001), u"vtspace");
}

}  // namespace
