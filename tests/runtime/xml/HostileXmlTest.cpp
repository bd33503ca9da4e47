#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "runtime/xml/XmlLimits.h"
#include "runtime/xml/XmlParser.h"
#include "tests/runtime/xml/Dom.h"
#include "tests/support/ScratchFile.h"

namespace vexpa_test {
namespace {

using Texts = std::vector<std::u16string>;
using vexpa_runtime::kMaxDeclarations;
using vexpa_runtime::kMaxDepth;

std::string Repeat(std::string_view text, std::size_t count) {
    std::string repeated;
    repeated.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i) repeated += text;
    return repeated;
}

std::string Nested(std::size_t depth) {
    return Repeat("<a>", depth) + Repeat("</a>", depth);
}

// Each entity is ten of the one before.
std::string LaughingEntities(int levels) {
    std::string entities = "<!ENTITY e0 'ha ha ha ha ha ha'>";
    for (int i = 1; i < levels; ++i) {
        entities += "<!ENTITY e" + std::to_string(i) + " '" +
                    Repeat("&e" + std::to_string(i - 1) + ";", 10) + "'>";
    }
    return entities;
}

TEST(HostileXml, TakesTheDeepestDocumentAndNoDeeper) {
    ComPtr<IDomDocument> document = Parsed(Nested(kMaxDepth));
    EXPECT_EQ(Count(*document.Get(), u"a"), kMaxDepth);
    EXPECT_EQ(ParseResult(Nested(kMaxDepth + 1)), E_FAIL);
    EXPECT_EQ(ParseResult(Repeat("<a>", 1'000'000)), E_FAIL);
}

TEST(HostileXml, CountsDepthAndNotElements) {
    EXPECT_EQ(ParseResult("<r>" + Repeat("<a><b/></a>", std::size_t{2} * kMaxDepth) + "</r>"), S_OK);
}

TEST(HostileXml, TakesTheLargestDocumentAndNoLarger) {
    const std::string start = "<r>", end = "</r>";
    const std::string blanks(vexpa_runtime::kMaxBytes - start.size() - end.size(), ' ');
    EXPECT_EQ(ParseResult(start + blanks + end), S_OK);
    EXPECT_EQ(ParseResult(start + blanks + ' ' + end), E_FAIL);
}

TEST(HostileXml, CountsElementsAndAttributes) {
    constexpr std::size_t kPairs = vexpa_runtime::kMaxNodes / 2;
    EXPECT_EQ(ParseResult("<r>" + Repeat("<a/><b/>", kPairs - 1) + "<a/></r>"), S_OK);
    EXPECT_EQ(ParseResult("<r>" + Repeat("<a/><b/>", kPairs) + "</r>"), E_FAIL);
    EXPECT_EQ(ParseResult("<r>" + Repeat("<a b=''/>", kPairs - 1) + "<a/></r>"), S_OK);
    EXPECT_EQ(ParseResult("<r>" + Repeat("<a b=''/>", kPairs) + "</r>"), E_FAIL);
}

TEST(HostileXml, RefusesEntitiesThatGrowWithoutBoundInText) {
    EXPECT_EQ(ParseResult("<!DOCTYPE r [" + LaughingEntities(9) + "]><r>&e8;</r>"), E_FAIL);
}

TEST(HostileXml, RefusesEntitiesThatGrowWithoutBoundInAttributes) {
    EXPECT_EQ(ParseResult("<!DOCTYPE r [" + LaughingEntities(9) + "]><r x='&e8;'/>"), E_FAIL);
}

TEST(HostileXml, RefusesEntitiesThatGrowWithoutBoundInDefaults) {
    EXPECT_EQ(ParseResult("<!DOCTYPE r [" + LaughingEntities(9) + "<!ATTLIST r x CDATA '&e8;'>]><r/>"),
              E_FAIL);
}

TEST(HostileXml, TakesEntitiesThatGrowALittle) {
    EXPECT_EQ(ParseResult("<!DOCTYPE r [" + LaughingEntities(4) + "]><r x='&e3;'>&e3;</r>"), S_OK);
}

TEST(HostileXml, RefusesOneLargeEntityManyTimes) {
    const std::string entity = "<!DOCTYPE r [<!ENTITY e '" + std::string(50'000, 'x') + "'>]>";
    const std::string uses = Repeat("&e;", 20'000);
    EXPECT_EQ(ParseResult(entity + "<r>" + uses + "</r>"), E_FAIL);
    EXPECT_EQ(ParseResult(entity + "<r x='" + uses + "'/>"), E_FAIL);
}

TEST(HostileXml, RefusesOneLargeEntityInManyElements) {
    const std::string entity = "<!DOCTYPE r [<!ENTITY e '" + std::string(50'000, 'x') + "'>]>";
    EXPECT_EQ(ParseResult(entity + "<r>" + Repeat("<a x='&e;'/>", 20'000) + "</r>"), E_FAIL);
}

// The parser hands the same default out for every element; what we keep of it is copied.
TEST(HostileXml, RefusesOneLargeDefaultInManyElements) {
    const std::string list = "<!DOCTYPE r [<!ATTLIST a x CDATA '" + std::string(50'000, 'x') + "'>]>";
    EXPECT_EQ(ParseResult(list + "<r>" + Repeat("<a/>", 20'000) + "</r>"), E_FAIL);
    EXPECT_EQ(ParseResult(list + "<r>" + Repeat("<a/>", 5) + "</r>"), S_OK);
}

// `count` attributes of <a>, all with the same rest of the declaration.
std::string DeclaredAttributes(std::size_t count, const std::string& rest) {
    std::string list = "<!DOCTYPE r [<!ATTLIST a";
    for (std::size_t i = 0; i < count; ++i) list += " x" + std::to_string(i) + " " + rest;
    return list + ">]>";
}

TEST(HostileXml, RefusesManyDefaultsInManyElements) {
    const std::string list = DeclaredAttributes(kMaxDeclarations, "CDATA ''");
    EXPECT_EQ(ParseResult(list + "<r>" + Repeat("<a/>", 20) + "</r>"), S_OK);
    EXPECT_EQ(ParseResult(list + "<r>" + Repeat("<a/>", 20'000) + "</r>"), E_FAIL);
}

// For each element the parser runs over all that are declared for it, also when they bring
// nothing: a megabyte of both kept it busy for a quarter of a minute.
TEST(HostileXml, RefusesManyDeclaredAttributes) {
    for (const char* rest : {"CDATA #IMPLIED", "NMTOKEN #IMPLIED", "CDATA #REQUIRED", "(a|b) 'a'"}) {
        SCOPED_TRACE(rest);
        EXPECT_EQ(ParseResult(DeclaredAttributes(kMaxDeclarations, rest) + "<r/>"), S_OK);
        EXPECT_EQ(ParseResult(DeclaredAttributes(kMaxDeclarations + 1, rest) + "<r/>"), E_FAIL);
    }
}

// Few enough declarations, and few enough elements: but the parser's work is their product.
TEST(HostileXml, RefusesDeclaredAttributesOfManyElements) {
    for (const char* element : {"<a/>", "<a x1=' 1 ' x2=' 2 '/>"}) {
        SCOPED_TRACE(element);
        const std::string many = "<r>" + Repeat(element, 100'000) + "</r>";
        EXPECT_EQ(ParseResult(DeclaredAttributes(10, "NMTOKENS #IMPLIED") + many), S_OK);
        EXPECT_EQ(ParseResult(DeclaredAttributes(kMaxDeclarations, "NMTOKENS #IMPLIED") + many),
                  E_FAIL);
    }
}

TEST(HostileXml, TakesADtdOfHundredsForElementsOfOrdinaryLength) {
    const std::string element = "<a x1='" + std::string(100, 'v') + "'/>";
    EXPECT_EQ(ParseResult(DeclaredAttributes(500, "CDATA #IMPLIED") + "<r>" + Repeat(element, 50'000) +
                          "</r>"),
              S_OK);
}

// A chain of entities costs the parser a stack frame for each link.
TEST(HostileXml, RefusesAChainOfManyEntities) {
    for (const bool inAttribute : {false, true}) {
        SCOPED_TRACE(inAttribute);
        std::string xml = "<!DOCTYPE r [<!ENTITY e0 'end'>";
        for (int i = 1; i < 200'000; ++i) {
            xml += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";'>";
        }
        xml += inAttribute ? "]><r x='&e199999;'/>" : "]><r>&e199999;</r>";
        EXPECT_EQ(ParseResult(xml), E_FAIL);
    }
}

TEST(HostileXml, TakesAsManyEntitiesAsRealDocumentsDeclare) {
    std::string xml = "<!DOCTYPE r [<!ENTITY e0 'end'>";
    for (std::uint32_t i = 1; i < kMaxDeclarations; ++i) {
        xml += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";'>";
    }
    const std::string last = "&e" + std::to_string(kMaxDeclarations - 1) + ";";
    ComPtr<IDomDocument> document = Parsed(xml + "]><r x='" + last + "'>" + last + "</r>");
    EXPECT_EQ(Values(*document.Get(), u"r", u"x"), Texts{u"end"});
}

TEST(HostileXml, RefusesAnEntityWithinItself) {
    EXPECT_EQ(ParseResult("<!DOCTYPE r [<!ENTITY e '&e;'>]><r>&e;</r>"), E_FAIL);
    EXPECT_EQ(ParseResult("<!DOCTYPE r [<!ENTITY e '&f;'><!ENTITY f '&e;'>]><r x='&e;'/>"), E_FAIL);
}

// Each would bring an element if the file were read.
TEST(HostileXml, ReadsNothingOutsideTheDocument) {
    const ScratchFile outside("<!ENTITY inside '<found/>'>", "outside.dtd");
    const ScratchFile text("<found/>", "outside.xml");
    struct Row {
        const char* shows;
        std::string xml;
    };
    const Row rows[] = {
        {"a DTD", "<!DOCTYPE r SYSTEM 'file://" + outside.Path() + "'><r>&inside;</r>"},
        {"a public DTD", "<!DOCTYPE r PUBLIC 'p' 'file://" + outside.Path() + "'><r>&inside;</r>"},
        {"an entity", "<!DOCTYPE r [<!ENTITY x SYSTEM 'file://" + text.Path() + "'>]><r>&x;</r>"},
        {"a parameter entity",
         "<!DOCTYPE r [<!ENTITY % x SYSTEM 'file://" + outside.Path() + "'>%x;]><r>&inside;</r>"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        ComPtr<IDomDocument> document = Parsed(row.xml);
        EXPECT_EQ(Count(*document.Get(), u"r"), 1u);
        EXPECT_EQ(Count(*document.Get(), u"found"), 0u);
    }
}

TEST(HostileXml, RefusesAnExternalEntityInAnAttribute) {
    EXPECT_EQ(ParseResult("<!DOCTYPE r [<!ENTITY x SYSTEM 'file:///etc/hostname'>]><r x='&x;'/>"),
              E_FAIL);
}

TEST(HostileXml, PassesOverParameterEntitiesOfTheDocument) {
    const std::string bomb = "<!DOCTYPE r [<!ENTITY % a '" + std::string(1'000, 'x') + "'>" +
                             "<!ENTITY % b '<!ENTITY c \"d\">'>" + Repeat("%b;", 100'000) +
                             "]><r>text</r>";
    EXPECT_EQ(ParseResult(bomb), S_OK);
}

// Reading it again for each piece would take hours.
TEST(HostileXml, ReadsOneVeryLongTokenInTime) {
    const std::string value = Repeat("v", 30'000'000);
    for (const std::string& xml :
         {"<r x='" + value + "'/>", "<!--" + value + "--><r/>", "<?p " + value + "?><r/>",
          "<r><![CDATA[" + value + "]]></r>", "<" + value + "/>"}) {
        SCOPED_TRACE(xml.substr(0, 12));
        EXPECT_EQ(ParseResult(xml), S_OK);
    }
}

TEST(HostileXml, ReadsAnElementWithAMillionAttributes) {
    std::string xml = "<r";
    for (int i = 0; i < 1'000'000; ++i)
        xml += " a" + std::to_string(i) + "='" + std::to_string(i) + "'";
    ComPtr<IDomDocument> document = Parsed(xml + "/>");
    IDomNode* element = document->GetElementsByTagName(u"r")->GetItem(0);
    EXPECT_EQ(Value(element, u"a0"), u"0");
    EXPECT_EQ(Value(element, u"a999999"), u"999999");
    EXPECT_EQ(Value(element, u"a1000000"), u"(none)");
}

TEST(HostileXml, ReadsAMillionElementsOfAsManyNames) {
    std::string xml = "<r>";
    for (int i = 0; i < 1'000'000; ++i) xml += "<e" + std::to_string(i) + "/>";
    ComPtr<IDomDocument> document = Parsed(xml + "</r>");
    EXPECT_EQ(Count(*document.Get(), u"e0"), 1u);
    EXPECT_EQ(Count(*document.Get(), u"e999999"), 1u);
    EXPECT_EQ(Count(*document.Get(), u"e1000000"), 0u);
}

TEST(HostileXml, SurvivesEveryTruncation) {
    const std::string xml =
        "\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8'?><!DOCTYPE r [<!ENTITY e 'f'>"
        "<!ATTLIST a d CDATA 'x'>]><r><p:a x='&e;\xE2\x82\xAC'>&e;<![CDATA[c]]></p:a><!--n--></r>";
    ASSERT_EQ(ParseResult(xml), S_OK);
    for (std::size_t size = 0; size < xml.size(); ++size) {
        SCOPED_TRACE(size);
        EXPECT_EQ(ParseResult(xml.substr(0, size)), E_FAIL);
    }
}

}  // namespace
}  // namespace vexpa_test
