// Document types: entities that grow, run in circles or are not there, and declared attributes.

#include <string>

#include "runtime/xml/XmlParser.h"
#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/SmallPackage.h"
#include "tests/hostile/xml/CraftedXml.h"
#include "tests/opc/PackageFile.h"

namespace {

using namespace vexpa_test;
using enum XmlOutcome;
using vexpa_runtime::kMaxDeclarations;

std::string Entity(std::string_view name, std::string_view value) {
    return "<!ENTITY " + std::string(name) + " '" + std::string(value) + "'>";
}

std::string Numbered(std::size_t number) {
    return "e" + std::to_string(number);
}

std::string Reference(std::size_t number) {
    return "&" + Numbered(number) + ";";
}

// e0 is text, and each entity is `times` times the one before.
std::string Chain(std::size_t count, std::size_t times) {
    std::string subset = Entity("e0", "ha ha ha ha ha ha ha");
    for (std::size_t i = 1; i < count; ++i) {
        subset += Entity(Numbered(i), Repeat(Reference(i - 1), times));
    }
    return subset;
}

// For streams that are made when they are needed.
XmlChange Later(std::function<XmlChange()> make) {
    return [make = std::move(make)](const std::string& xml) { return make()(xml); };
}

CraftedXmls DocumentTypeCases() {
    return {
        {"Plain", "a document type that declares nothing", kRead, Before("<!DOCTYPE r>")},
        {"OfNothing", "an empty internal subset", kRead, WithSubset("")},
        {"OfAnotherRoot", "the root is not looked at", kRead, Before("<!DOCTYPE html>")},
        {"Twice", "there is one at most", kRefused, Before("<!DOCTYPE r><!DOCTYPE r>")},
        {"AfterTheRoot", "too late", kRefused, After("<!DOCTYPE r>")},
        {"WithinTheRoot", "too late", kRefused, RootWith("<!DOCTYPE r>")},
        {"InSmallLetters", "is none", kRefused, Before("<!doctype r>")},
        {"ThatNeverEnds", "takes the rest with it", kRefused, Before("<!DOCTYPE r [")},
        {"OfElements", "content models are not kept", kRead,
         WithSubset(
             "<!ELEMENT r ANY><!ELEMENT a (b|(c,d)*)+><!ELEMENT b (#PCDATA)><!ELEMENT c EMPTY>")},
        {"OfAModelOfDepth", "nor followed", kRead, Later([] {
             return WithSubset("<!ELEMENT r " + Repeat("(", 50'000) + "a" + Repeat(")", 50'000) + ">");
         })},
        {"OfNotations", "nor what programs there are", kRead,
         WithSubset("<!NOTATION n SYSTEM '/bin/sh'><!NOTATION m PUBLIC 'p'>")},
        {"OfACondition", "conditions belong elsewhere", kRefused, WithSubset("<![INCLUDE[]]>")},
        {"ContradictedByTheDocument", "nobody checks it", kRead, WithSubset("<!ELEMENT r EMPTY>")},
    };
}

CraftedXmls EntityCases() {
    return {
        {"InText", "text is not kept", kRead, WithSubset(Entity("e", "text"), "&e;")},
        {"InAValue", "a little text is fine", kRead, WithSubsetInTag(Entity("e", "text"), " x='&e;'")},
        {"OfAllElements", "elements may come by one", kRead,
         [](std::string xml) {
             const std::size_t start = xml.find('>') + 1;
             const std::size_t end = xml.rfind('<');
             const std::string elements = xml.substr(start, end - start);
             return "<!DOCTYPE r [" + Entity("e", elements) + "]>" +
                    xml.replace(start, elements.size(), "&e;");
         }},
        {"OfAHalfElement", "an element ends where it began", kRefused,
         WithSubset(Entity("e", "<a>"), "&e;</a>")},
        {"OfAnEndTag", "so does the root", kRefused, WithSubset(Entity("e", "</Types>"), "&e;")},
        {"OfMarkupInAValue", "a less-than sign by way of an entity", kRefused,
         WithSubsetInTag(Entity("e", "<"), " x='&e;'")},
        {"NotDeclared", "nobody declared it", kRefused, WithSubset("", "&e;")},
        {"DeclaredAfterItsUse", "a value may name what comes later", kRead,
         WithSubset(Entity("a", "&b;") + Entity("b", "text"), "&a;")},
        {"DeclaredTwice", "the first declaration counts", kRead,
         WithSubsetInTag(Entity("e", "text") + Entity("e", "<"), " x='&e;'")},
        {"InItself", "for ever", kRefused, WithSubset(Entity("e", "&e;"), "&e;")},
        {"InItselfInAValue", "for ever", kRefused, WithSubsetInTag(Entity("e", "&e;"), " x='&e;'")},
        {"InItselfByAnother", "for ever", kRefused,
         WithSubset(Entity("e", "&f;") + Entity("f", "&e;"), "&e;")},
        {"InItselfUnused", "nobody asks", kRead, WithSubset(Entity("e", "&e;"))},
        {"OfThePredefinedOnes", "they may be declared again, not otherwise", kRead,
         WithSubsetInTag(Entity("lt", "&#38;#60;"), " x='&lt;'")},
        {"InTheDocumentsPlace", "outside the root there is none", kRefused,
         [](const std::string& xml) { return "<!DOCTYPE r [" + Entity("e", xml) + "]>&e;"; }},
    };
}

CraftedXmls GrowthCases() {
    return {
        {"OfLaughsInText", "a thousand million from a page", kRefused,
         Later([] { return WithSubset(Chain(10, 10), Reference(9)); })},
        {"OfLaughsInAValue", "the same where it would be kept", kRefused,
         Later([] { return WithSubsetInTag(Chain(10, 10), " x='" + Reference(9) + "'"); })},
        {"OfLaughsInADefault", "the same where nobody wrote it", kRefused, Later([] {
             return [](const std::string& xml) {
                 const std::string subset =
                     Chain(10, 10) + "<!ATTLIST a x CDATA '" + Reference(9) + "'>";
                 return WithSubset(subset, "<a/>")(xml);
             };
         })},
        {"OfLaughsInAnUnusedDefault", "nobody asks", kRefused, Later([] {
             return WithSubset(Chain(10, 10) + "<!ATTLIST a x CDATA '" + Reference(9) + "'>");
         })},
        {"OfSmallLaughs", "twenty kilobytes from a page are fine", kRead,
         Later([] { return WithSubsetInTag(Chain(4, 10), " x='" + Reference(3) + "'"); })},
        {"OfElements", "elements from an entity are kept", kRefused, Later([] {
             return WithSubset(Entity("e", Repeat("<a b=\"\"/>", 1'000)), Repeat("&e;", 5'000));
         })},
        {"OfOneLargeEntity", "no nesting, but many uses", kRefused, Later([] {
             return WithSubset(Entity("e", std::string(50'000, 'x')), Repeat("&e;", 20'000));
         })},
        {"OfOneLargeEntityInValues", "the same where it would be kept", kRefused, Later([] {
             return WithSubset(Entity("e", std::string(50'000, 'x')), Repeat("<a x='&e;'/>", 20'000));
         })},
        {"OfOneLargeDefault", "a value that each element gets", kRefused, Later([] {
             return WithSubset("<!ATTLIST a x CDATA '" + std::string(50'000, 'x') + "'>",
                               Repeat("<a/>", 20'000));
         })},
        {"OfManyDefaults", "many values that each element gets", kRefused, Later([] {
             std::string subset = "<!ATTLIST a";
             for (std::size_t i = 0; i < kMaxDeclarations; ++i)
                 subset += " " + Numbered(i) + " CDATA ''";
             return WithSubset(subset + ">", Repeat("<a/>", 20'000));
         })},
        {"OfAChainAsLongAsItMayBe", "each link costs the parser's stack", kRead,
         Later([] { return WithSubset(Chain(kMaxDeclarations, 1), Reference(kMaxDeclarations - 1)); })},
        {"OfALongerChain", "so there is an end", kRefused,
         Later([] { return WithSubset(Chain(kMaxDeclarations + 1, 1)); })},
        {"OfAVeryLongChain", "and nothing is followed before it", kRefused,
         Later([] { return WithSubset(Chain(100'000, 1), Reference(99'999)); })},
        {"OfDeclaredAttributes", "the parser runs over them for each element", kRefused, Later([] {
             std::string subset = "<!ATTLIST a";
             for (std::size_t i = 0; i < 40'000; ++i) subset += " " + Numbered(i) + " CDATA #IMPLIED";
             return WithSubset(subset + ">", Repeat("<a/>", 50'000));
         })},
        {"OfOneAttributeDeclaredAgain", "and does not tell that it is one", kRefused, Later([] {
             return WithSubset("<!ATTLIST a" + Repeat(" x CDATA #IMPLIED", 40'000) + ">",
                               Repeat("<a/>", 50'000));
         })},
    };
}

CraftedXmls ParameterCases() {
    const std::string declares = Entity("% p", "<!ENTITY e \"text\">");
    return {
        {"Unused", "a parameter entity that nobody uses", kRead, WithSubset(declares)},
        {"Used", "what it would declare is not declared", kRead, WithSubset(declares + "%p;")},
        {"UsedForAnEntity", "so a reference to it brings nothing", kRead,
         WithSubset(declares + "%p;", "&e;")},
        {"UsedForAnEntityInAValue", "also in a value", kRead,
         WithSubsetInTag(declares + "%p;", " x='&e;'")},
        {"UsedByAStandaloneDocument", "which promises that it needs none", kRefused,
         [=](const std::string& xml) {
             return "<?xml version='1.0' standalone='yes'?>" + WithSubset(declares + "%p;", "&e;")(xml);
         }},
        {"NotDeclared", "a name that nobody declared", kRead, WithSubset("%p;")},
        {"WithinADeclaration", "not in an internal subset", kRefused,
         WithSubset(Entity("% p", "text") + "<!ENTITY e %p;>")},
        {"WithinAValue", "nor in a value there", kRefused,
         WithSubset(Entity("% p", "text") + Entity("e", "%p;"))},
        {"InItself", "for ever", kRead, WithSubset(Entity("% p", "&#37;p;") + "%p;")},
        {"OfLaughs", "a thousand million declarations from a page", kRead, Later([] {
             std::string subset = Entity("% e0", "<!ENTITY e \"ha\">");
             for (std::size_t i = 1; i < 10; ++i) {
                 subset += Entity("% " + Numbered(i), Repeat("&#37;" + Numbered(i - 1) + ";", 10));
             }
             return WithSubset(subset + "%e9;");
         })},
        {"UsedManyTimes", "each use is a step and no more", kRead,
         Later([declares] { return WithSubset(declares + Repeat("%p;", 200'000)); })},
        {"Declared", "there are not many of them either", kRefused, Later([] {
             std::string subset;
             for (std::size_t i = 0; i <= kMaxDeclarations; ++i)
                 subset += Entity("% " + Numbered(i), "");
             return WithSubset(subset);
         })},
    };
}

// What a document type can do to a part's relationship.
CraftedPackages DefaultCases() {
    const auto with = [](const std::string& subset, const std::string& relationship) {
        return [=] {
            return SmallPackageWith(kDocumentRelationshipsEntry,
                                    "<!DOCTYPE r [" + subset + "]>" + RelationshipsXml(relationship))
                .Bytes();
        };
    };
    const std::string plain = RelationshipXml("rId1", kImage, "a.png");
    return {
        {"OfAMode", "a declared value counts as if it were written",
         with("<!ATTLIST Relationship TargetMode CDATA 'External'>", plain),
         kDocumentText + "word/document.xml: rId1 image => word/a.png\n"},
        {"OfATarget", "a written value goes before a declared one",
         with("<!ATTLIST Relationship Target CDATA 'other.png'>", plain), SmallPackageText()},
        {"OfAnEntity", "a target made of entities is read like any",
         with(Entity("d", "a.") + Entity("e", "&d;png"), RelationshipXml("rId1", kImage, "&e;")),
         SmallPackageText()},
        {"OfATokenType", "a declared type trims blanks",
         with("<!ATTLIST Relationship Target NMTOKEN #IMPLIED>",
              RelationshipXml("rId1", kImage, "  a.png ")),
         SmallPackageText()},
        {"OfElements", "relationships that only an entity holds", with(Entity("e", plain), "&e;"),
         SmallPackageText()},
    };
}

INSTANTIATE_TEST_SUITE_P(XmlDocumentType, HostileXml, testing::ValuesIn(DocumentTypeCases()),
                         NameOfXml);
INSTANTIATE_TEST_SUITE_P(XmlEntity, HostileXml, testing::ValuesIn(EntityCases()), NameOfXml);
INSTANTIATE_TEST_SUITE_P(XmlGrowth, HostileXml, testing::ValuesIn(GrowthCases()), NameOfXml);
INSTANTIATE_TEST_SUITE_P(XmlParameterEntities, HostileXml, testing::ValuesIn(ParameterCases()),
                         NameOfXml);
INSTANTIATE_TEST_SUITE_P(XmlDefaults, HostilePackage, testing::ValuesIn(DefaultCases()), NameOfCase);

}  // namespace
