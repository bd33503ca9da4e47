#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "examples/QtImporter.h"
#include "examples/XercesImporter.h"
#include "tests/examples/SameTree.h"
#include "tests/examples/TextStream.h"
#include "tests/support/ScratchFile.h"
#include "tests/xmlfx/RegistryFixture.h"
#include "tests/xmlfx/SetText.h"
#include "vexpa/xmlfx/XmlAttrHandler.h"

namespace {

using namespace importer;
using namespace vexpa_test;
using tarn::xmlfx::kNullToken;
using tarn::xmlfx::kTextToken;

constexpr const char16_t* kWordUri = u"http://schemas.openxmlformats.org/wordprocessingml/2006/main";

std::uint32_t WordToken(std::u16string_view name) {
    return TokenOf(kWordUri, name).value();
}

// A w:p with this content and these attributes.
std::string Paragraph(const std::string& content, const std::string& attributes = "") {
    return "<w:p xmlns:w='http://schemas.openxmlformats.org/wordprocessingml/2006/main'" + attributes +
           ">" + content + "</w:p>";
}

std::string Nested(std::size_t depth) {
    std::string xml;
    for (std::size_t i = 0; i < depth; ++i) xml += "<a>";
    for (std::size_t i = 0; i < depth; ++i) xml += "</a>";
    return xml;
}

struct Kind {
    const char* name;
    std::unique_ptr<Importer> (*make)(const Limits& limits);
};

template <class AnImporter>
std::unique_ptr<Importer> Make(const Limits& limits) {
    return std::make_unique<AnImporter>(limits);
}

constexpr Kind kKinds[] = {{"Xerces", Make<XercesImporter>}, {"Qt", Make<QtImporter>}};

class EachImporter : public RegistryFixture, public testing::WithParamInterface<Kind> {
protected:
    static Tree Import(const std::string& xml, const Limits& limits = {}) {
        TextStream stream(xml);
        return GetParam().make(limits)->Import(stream);
    }

    // The message of the error that the import ends with; empty when there is none.
    static std::string Error(const std::string& xml, const Limits& limits = {}) {
        try {
            Import(xml, limits);
        } catch (const ImportError& error) {
            return error.what();
        }
        return "";
    }
};

INSTANTIATE_TEST_SUITE_P(Importers, EachImporter, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST_P(EachImporter, PutsAttributesFirstThenTextAndChildrenAsTheyCome) {
    const Tree tree = Import(Paragraph("a<w:r>b</w:r>c", " w:rsidR='1' w:rsidP='2'"));
    EXPECT_EQ(tree.token, WordToken(u"p"));
    EXPECT_EQ(PairsOf(*tree.root), (Pairs{{WordToken(u"rsidR"), u"1"},
                                          {WordToken(u"rsidP"), u"2"},
                                          {kTextToken, u"a"},
                                          {WordToken(u"r"), u""},
                                          {kTextToken, u"c"}}));
    EXPECT_EQ(PairsOf(*tree.root->Find(WordToken(u"r"))), (Pairs{{kTextToken, u"b"}}));
    EXPECT_EQ(tree.elements, 2u);
    EXPECT_EQ(tree.attributes, 2u);
    EXPECT_EQ(tree.depth, 2u);
}

TEST_P(EachImporter, AnAttributeWithoutPrefixBelongsToItsElementsNamespace) {
    const Tree tree = Import(Paragraph("", " rsidR='1'"));
    EXPECT_EQ(PairsOf(*tree.root), (Pairs{{WordToken(u"rsidR"), u"1"}}));
}

TEST_P(EachImporter, DropsUnknownAttributesAndKeepsUnknownElements) {
    const Tree tree = Import(Paragraph("<other w:val='1' mine='2'>x</other>"));
    EXPECT_EQ(PairsOf(*tree.root), (Pairs{{kNullToken, u""}}));
    EXPECT_EQ(PairsOf(*tree.root->Find(kNullToken)),
              (Pairs{{WordToken(u"val"), u"1"}, {kTextToken, u"x"}}));
}

TEST_P(EachImporter, JoinsTheTextBetweenTwoTags) {
    const Tree tree = Import(Paragraph("a &amp; <!-- no --><![CDATA[<b>]]>&#x1F600;<?no?>\r\n."));
    EXPECT_EQ(PairsOf(*tree.root), (Pairs{{kTextToken, u"a & <b>\U0001F600\n."}}));
}

TEST_P(EachImporter, NormalisesAttributeValues) {
    const Tree tree = Import(Paragraph("", " w:val='a\tb\r\nc&#10;d&quot;'"));
    EXPECT_EQ(PairsOf(*tree.root), (Pairs{{WordToken(u"val"), u"a b c\nd\""}}));
}

TEST_P(EachImporter, ReadsWhateverPiecesTheStreamGives) {
    const std::string xml =
        Paragraph(std::string(100'000, 'x') + "\xC3\xA4<w:r/>", " w:val='\xE2\x82\xAC'");
    const Tree whole = Import(xml);
    TextStream bytewise(xml, 1);
    EXPECT_TRUE(SameTree(GetParam().make({})->Import(bytewise), whole));
    EXPECT_EQ(ValueOf(*whole.root->Find(kTextToken)), std::u16string(100'000, u'x') + u"\u00E4");
}

TEST_P(EachImporter, ReadsUtf16InBothByteOrders) {
    const std::u16string text =
        u"\uFEFF" + Utf16("<?xml version='1.0' encoding='UTF-16'?>" + Paragraph("\xC3\xA4"));
    std::string little, big;
    for (const char16_t unit : text) {
        const char low = static_cast<char>(unit & 0xFF), high = static_cast<char>(unit >> 8);
        little += {low, high};
        big += {high, low};
    }
    for (const std::string& bytes : {little, big}) {
        EXPECT_EQ(PairsOf(*Import(bytes).root), (Pairs{{kTextToken, u"\u00E4"}}));
    }
}

TEST_P(EachImporter, ReportsMalformedParts) {
    const struct {
        const char* shows;
        std::string xml;
    } kRows[] = {
        {"nothing at all", ""},
        {"white space only", " \n"},
        {"no markup", "text"},
        {"an open element", "<a><b></b>"},
        {"a broken tag", "<a><b"},
        {"tags that cross", "<a><b></a></b>"},
        {"a second root", "<a/><b/>"},
        {"text after the root", "<a/>text"},
        {"an attribute twice", "<a b='1' b='2'/>"},
        {"an attribute twice under two prefixes", "<a xmlns:x='u' xmlns:y='u' x:b='1' y:b='2'/>"},
        {"a prefix without a namespace", "<x:a/>"},
        {"an attribute's prefix without a namespace", "<a x:b='1'/>"},
        {"an entity that nobody declared", "<a>&b;</a>"},
        {"a character that XML forbids", "<a>\x01</a>"},
        {"the same as a reference", "<a>&#0;</a>"},
        {"an ampersand alone", "<a>& </a>"},
        {"a less-than in a value", "<a b='<'/>"},
        {"an encoding that is none", "<?xml version='1.0' encoding='none'?><a/>"},
        {"many elements, then an error", "<a>" + std::string(10'000, ' ') + "<b c='d'>e</b></x>"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.shows);
        EXPECT_NE(Error(row.xml), "");
    }
}

TEST_P(EachImporter, SaysInWhichLineTheErrorIs) {
    EXPECT_EQ(Error("<a>\n<b>\n</a>").substr(0, 8), "line 3: ");
}

TEST_P(EachImporter, RefusesEveryDocumentType) {
    for (const std::string declaration :
         {"<!DOCTYPE a>", "<!DOCTYPE a SYSTEM 'file:///etc/passwd'>",
          "<!DOCTYPE a PUBLIC 'x' 'http://localhost:1/a.dtd'>", "<!DOCTYPE a [<!ENTITY b 'c'>]>",
          "<!DOCTYPE a [<!ENTITY b SYSTEM 'file:///etc/passwd'>]>",
          "<!DOCTYPE a [<!ENTITY % b SYSTEM 'file:///etc/passwd'> %b;]>"}) {
        SCOPED_TRACE(declaration);
        EXPECT_EQ(Error(declaration + "<a/>"), kNoDocumentType);
    }
}

TEST_P(EachImporter, ReportsEntitiesThatMultiply) {
    std::string xml = "<!DOCTYPE a [<!ENTITY e0 'ha'>";
    for (int i = 1; i < 40; ++i) {
        const std::string inner = "&e" + std::to_string(i - 1) + ";";
        xml += "<!ENTITY e" + std::to_string(i) + " '" + inner + inner + "'>";
    }
    EXPECT_NE(Error(xml + "]><a>&e39;</a>"), "");
}

TEST_P(EachImporter, ReportsNestingBeyondTheLimit) {
    EXPECT_EQ(Import(Nested(1'000)).depth, 1'000u);
    EXPECT_EQ(Error(Nested(1'001)), "elements nested too deep");
    EXPECT_EQ(Error(Nested(100'000)), "elements nested too deep");
}

TEST_P(EachImporter, BuildsADeepTreeWhereTheLimitAllowsIt) {
    EXPECT_EQ(Import(Nested(10'000), {.depth = 10'000}).depth, 10'000u);
}

TEST_P(EachImporter, ReportsMoreNodesThanTheLimitAllows) {
    const std::string xml = Paragraph("a<w:r/>", " w:val='1' w:rsidR='2'");  // five
    EXPECT_EQ(Error(xml, {.nodes = 5}), "");
    EXPECT_EQ(Error(xml, {.nodes = 4}), "too many elements, attributes and texts");
}

// Copied or read at every name, a long one makes a short part cost gigabytes or minutes.
TEST_P(EachImporter, ReportsANamespaceUriBeyondTheLimit) {
    const std::string uri(1'000, 'u');
    for (const std::string& lead : {"<a xmlns='" + uri, "<p:a xmlns:p='" + uri}) {
        EXPECT_EQ(Error(lead + "'/>").find("a namespace URI too long"), std::string::npos);
        EXPECT_EQ(Error(lead + "u'/>"), "a namespace URI too long");
    }
    EXPECT_EQ(Error("<a><b xmlns='" + uri + "u'/></a>"), "a namespace URI too long");
}

TEST_P(EachImporter, ReportsAStreamThatFails) {
    for (const std::string& xml : {std::string(), std::string("<a>"), Nested(1'000), Paragraph("x")}) {
        TextStream stream(xml, 10, E_FAIL);
        EXPECT_THROW(GetParam().make({})->Import(stream), ImportError);
    }
}

TEST_P(EachImporter, ImportsASoundPartAfterABrokenOne) {
    const std::unique_ptr<Importer> importer = GetParam().make({});
    TextStream broken("<a><b></a>"), sound("<a/>");
    EXPECT_THROW(importer->Import(broken), ImportError);
    EXPECT_EQ(importer->Import(sound).elements, 1u);
}

}  // namespace
