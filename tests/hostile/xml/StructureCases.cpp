// XML that is not well-formed, and XML that is and looks as if it were not.

#include <string>

#include "tests/hostile/xml/CraftedXml.h"

namespace {

using namespace vexpa_test;
using namespace std::string_literals;
using enum XmlOutcome;

CraftedXmls RootCases() {
    return {
        {"OfNoBytes", "an entry of no bytes is no document", kRefused, InPlace("")},
        {"OfOneByte", "nor is the start of one", kRefused, InPlace("<")},
        {"OfBlanks", "blanks are no document", kRefused, InPlace(" \r\n\t\n")},
        {"OfADeclaration", "a declaration declares nothing", kRefused,
         InPlace("<?xml version='1.0'?>")},
        {"OfComments", "a root is missing", kRefused, InPlace("<!-- no root --><?nor here?>")},
        {"OfADocumentType", "the root that it names is missing", kRefused, InPlace("<!DOCTYPE r>")},
        {"OfText", "text without a root", kRefused, InPlace("plain text")},
        {"OfBinaryData", "a picture in its place", kRefused, InPlace("\x89PNG\r\n\x1A\n\0\0\0\rIHDR"s)},
        {"OfAnotherDocument", "a root of any name, with nothing in it that counts", kEmpty,
         InPlace("<html><body/></html>")},
        {"OfTheRootAlone", "an empty list is a list", kEmpty, InPlace("<r/>")},
        {"OfTwoRoots", "the second root is outside the document", kRefused, After("<r/>")},
        {"WithinAnotherRoot", "elements count at any depth", kRead,
         [](const std::string& xml) { return "<r><s><t>" + xml + "</t></s></r>"; }},
        {"WithJunkAfterIt", "text after the root", kRefused, After("junk")},
        {"WithBlanksAfterIt", "blanks after the root are no junk", kRead, After("\r\n \t\n")},
        {"WithANulAfterIt", "a buffer that was written out whole", kRefused, After("\0"s)},
        {"WithBinaryDataAfterIt", "the next entry's header, say", kRefused,
         After("PK\x01\x02\x14\0\0\0"s)},
        {"WithAnEndTagAfterIt", "an end without a start", kRefused, After("</r>")},
        {"WithACommentAfterIt", "comments may follow the root", kRead, After("<!-- end --><?end?>")},
        {"WithAReferenceAfterIt", "a reference may not", kRefused, After("&#32;")},
        {"WithJunkBeforeIt", "text before the root", kRefused, Before("junk")},
        {"WithBlanksBeforeIt", "blanks before the root are no junk", kRead, Before("\r\n \t\n")},
        {"WithANulBeforeIt", "a NUL is no blank", kRefused, Before("\0"s)},
        {"WithItsEndTagCut", "the last byte is missing", kRefused,
         [](const std::string& xml) { return xml.substr(0, xml.size() - 1); }},
        {"WithAnotherEndTag", "the end of another element", kRefused,
         [](const std::string& xml) { return xml.substr(0, xml.rfind('<')) + "</other>"; }},
    };
}

CraftedXmls ContentCases() {
    return {
        {"ANulInText", "text does not end at a NUL", kRefused, RootWith("a\0b"s)},
        {"ANulInAValue", "nor does a value", kRefused, RootTagWith(" x='a\0b'"s)},
        {"ANulInAName", "nor does a name", kRefused, RootTagWith(" a\0b=''"s)},
        {"AReferenceToNul", "no reference makes one", kRefused, RootWith("&#0;")},
        {"AControlCharacter", "characters that XML has not", kRefused, RootWith("\x01")},
        {"AReferenceToAControlCharacter", "not by reference either", kRefused,
         RootTagWith(" x='&#x1F;'")},
        {"AReferenceToHalfACharacter", "surrogates are no characters", kRefused,
         RootTagWith(" x='&#xD800;&#xDC00;'")},
        {"AReferenceToNoncharacters", "U+FFFF is no character of XML", kRefused, RootWith("&#xFFFF;")},
        {"AReferenceBeyondUnicode", "a number that does not fit", kRefused, RootWith("&#x110000;")},
        {"AReferenceOfManyDigits", "a number that runs over to a sound one", kRefused,
         RootWith("&#x100000000000000041;")},
        {"AReferenceOfManyZeros", "a number written long is the same number", kRead,
         RootWith("&#x" + Repeat("0", 10'000) + "41;")},
        {"ABareAmpersand", "an ampersand begins a reference", kRefused, RootWith("a & b")},
        {"AnUndeclaredEntity", "nobody declared it", kRefused, RootWith("&nbsp;")},
        {"ALessThanSignInAValue", "values hold no markup", kRefused, RootTagWith(" x='<'")},
        {"AnAttributeTwice", "which of the two would count?", kRefused, RootTagWith(" x='1' x='2'")},
        {"AnAttributeTwiceFarApart", "not only neighbours are compared", kRefused,
         [](const std::string& xml) {
             std::string more = " x='1'";
             for (int i = 0; i < 1'000; ++i) more += " y" + std::to_string(i) + "=''";
             return RootTagWith(more + " x='2'")(xml);
         }},
        {"AnAttributeInTwoCases", "case tells attributes apart", kRead, RootTagWith(" x='1' X='2'")},
        {"AttributesWithoutBlanks", "values stand apart", kRefused, RootTagWith(" x='1'y='2'")},
        {"AnAttributeWithoutQuotes", "no HTML", kRefused, RootTagWith(" x=1")},
        {"AnAttributeWithoutAValue", "no HTML", kRefused, RootTagWith(" checked")},
        {"AnAttributeThatNeverEnds", "the quote is missing", kRefused, RootTagWith(" x='")},
        {"ATagThatNeverEnds", "cut in a name", kRefused, InPlace("<Relationships")},
        {"ElementsThatCross", "ends in the wrong order", kRefused, RootWith("<a><b></a></b>")},
        {"AnElementThatDoesNotEnd", "the root ends before it", kRefused, RootWith("<a>")},
        {"ANameThatBeginsWithADigit", "no name", kRefused, RootWith("<1a/>")},
        {"ANameOfLettersBeyondAscii", "names have letters of all languages", kRead,
         RootWith("<\xC3\xA9\xE4\xB8\xAD \xD0\xB6='1'/>")},
    };
}

CraftedXmls Utf8Cases() {
    return {
        {"AByteThatContinuesNothing", "a continuation byte alone", kRefused, RootWith("\x80")},
        {"AByteThatNeverOccurs", "0xFF is in no UTF-8", kRefused, RootWith("\xFF")},
        {"ACharacterThatIsCut", "two of three bytes, then markup", kRefused, RootWith("\xE2\x82")},
        {"ACharacterCutByTheQuote", "the quote is no continuation", kRefused, RootTagWith(" x='\xE2'")},
        {"ACharacterCutByTheEnd", "one of four bytes, then nothing", kRefused, After("\xF0")},
        {"ASlashInTwoBytes", "the old way around checks of paths", kRefused, RootWith("\xC0\xAF")},
        {"ASlashInThreeBytes", "longer than it need be", kRefused, RootTagWith(" x='\xE0\x80\xAF'")},
        {"ASlashInFourBytes", "longer still", kRefused, RootWith("\xF0\x80\x80\xAF")},
        {"ALessThanSignInTwoBytes", "must not begin a tag", kRefused,
         RootWith("\xC0\xBC"
                  "a/>")},
        {"ANulInTwoBytes", "as some runtimes write it", kRefused, RootWith("\xC0\x80")},
        {"ASurrogate", "half a character", kRefused, RootWith("\xED\xA0\x80")},
        {"APairOfSurrogates", "a character in six bytes", kRefused,
         RootTagWith(" x='\xED\xA0\xB4\xED\xB4\x9E'")},
        {"ACharacterBeyondUnicode", "U+110000", kRefused, RootWith("\xF4\x90\x80\x80")},
        {"FiveBytes", "sequences of five bytes are gone", kRefused, RootWith("\xF8\x88\x80\x80\x80")},
        {"TheNoncharacterFFFE", "a byte order mark the wrong way round", kRefused,
         RootWith("\xEF\xBF\xBE")},
        {"TheLastCharacter", "U+10FFFF is a character", kRead, RootWith("\xF4\x8F\xBF\xBF")},
        {"InvalidInAComment", "comments are text as well", kRefused, RootWith("<!-- \xFF -->")},
        {"InvalidInAName", "and names", kRefused, RootWith("<a\xC3/>")},
        {"InvalidAfterTheRoot", "and what follows", kRefused, After("<!-- \xC3 -->")},
    };
}

CraftedXmls MarkupCases() {
    return {
        {"AProcessingInstruction", "they mean nothing here", kRead, Before("<?target <Default/> ?>")},
        {"AProcessingInstructionWithin", "what stands in one is no element", kRead,
         RootWith("<?t <Relationship Id='x'/> ?>")},
        {"AProcessingInstructionOfXml", "the name is taken", kRefused, RootWith("<?xml data?>")},
        {"AProcessingInstructionOfXMLInCapitals", "in any case of letters", kRefused,
         RootWith("<?XmL data?>")},
        {"AProcessingInstructionWithoutAName", "is none", kRefused, RootWith("<? data?>")},
        {"AProcessingInstructionThatNeverEnds", "takes the rest with it", kRefused, RootWith("<?a ")},
        {"ASectionOfText", "what stands in it is no element", kRead,
         RootWith("<![CDATA[<Relationship Id='x'/><Default Extension='xml'/>]]>")},
        {"ASectionAroundAll", "so nothing is left", kEmpty,
         [](const std::string& xml) { return "<r><![CDATA[" + xml + "]]></r>"; }},
        {"ASectionInASection", "there is none: the first end ends it", kRefused,
         RootWith("<![CDATA[<![CDATA[]]>]]>")},
        {"ASectionThatNeverEnds", "takes the rest with it", kRefused, RootWith("<![CDATA[")},
        {"ASectionInSmallLetters", "is none", kRefused, RootWith("<![cdata[]]>")},
        {"ASectionOutsideTheRoot", "text outside the root", kRefused, After("<![CDATA[]]>")},
        {"TheEndOfASectionInText", "not without a section", kRefused, RootWith("]]>")},
        {"AComment", "what stands in it is no element", kRead,
         RootWith("<!-- <Relationship Id='x'/><Default Extension='xml'/> -->")},
        {"ACommentAroundAll", "so the root is missing", kRefused,
         [](const std::string& xml) { return "<!--" + xml + "-->"; }},
        {"ACommentAroundAllInTheRoot", "so nothing is left", kEmpty,
         [](const std::string& xml) { return "<r><!--" + xml + "--></r>"; }},
        {"ACommentWithTwoHyphens", "ends a comment elsewhere", kRefused, RootWith("<!-- -- -->")},
        {"ACommentThatEndsInThreeHyphens", "as above", kRefused, RootWith("<!-- --->")},
        {"ACommentThatNeverEnds", "takes the rest with it", kRefused, RootWith("<!-- ")},
        {"ACommentInATag", "tags hold no comments", kRefused, RootTagWith(" <!-- -->")},
    };
}

CraftedXmls DeclarationCases() {
    return {
        {"Complete", "as most streams have it", kRead,
         Before("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n")},
        {"OfVersion11", "what 1.1 adds is not used", kRead, Before("<?xml version='1.1'?>")},
        {"OfVersion20", "nobody knows what it will be", kRead, Before("<?xml version='2.0'?>")},
        {"OfNoVersion", "the version is required", kRefused, Before("<?xml encoding='UTF-8'?>")},
        {"OfNothing", "as above", kRefused, Before("<?xml?>")},
        {"Standalone", "yes or no", kRefused, Before("<?xml version='1.0' standalone='maybe'?>")},
        {"InTheWrongOrder", "the encoding comes second", kRefused,
         Before("<?xml version='1.0' standalone='yes' encoding='UTF-8'?>")},
        {"AfterABlank", "it comes first or not at all", kRefused, Before(" <?xml version='1.0'?>")},
        {"AfterTheRoot", "as above", kRefused, After("<?xml version='1.0'?>")},
        {"Twice", "as above", kRefused, Before("<?xml version='1.0'?><?xml version='1.0'?>")},
        {"InCapitals", "is none", kRefused, Before("<?XML version='1.0'?>")},
        {"ThatNeverEnds", "takes the rest with it", kRefused, Before("<?xml version='1.0' ")},
    };
}

// Replaces the elements' names, which begin with R or D here.
XmlChange ElementsNamed(std::string prefix) {
    return [prefix](std::string xml) {
        for (std::size_t at = xml.find('>'); (at = xml.find('<', at)) != std::string::npos; ++at) {
            if (xml[at + 1] != '/') xml.insert(at + 1, prefix);
        }
        return xml;
    };
}

CraftedXmls NamespaceCases() {
    return {
        {"Missing", "the namespace is not looked at", kRead,
         [](std::string xml) {
             const std::size_t at = xml.find(" xmlns");
             return at == std::string::npos ? xml : xml.erase(at, xml.find('>') - at);
         }},
        {"Odd", "nor which it is", kRead,
         [](const std::string& xml) { return "<r xmlns='urn:odd'>" + xml + "</r>"; }},
        {"Empty", "nor whether it is any", kRead, RootTagWith(" xmlns:p=''")},
        {"OfXml", "nor whether it may be that", kRead,
         RootTagWith(" xmlns:xml='urn:odd' xmlns:xmlns='urn:odd'")},
        {"UndeclaredPrefix", "a prefix is passed over, declared or not", kRead, ElementsNamed("q:")},
        {"PrefixOfXml", "any prefix", kRead, ElementsNamed("xml:")},
        {"PrefixOfNothing", "a colon alone is one", kRead, ElementsNamed(":")},
        {"TwoPrefixes", "the second is part of the name", kEmpty, ElementsNamed("a:b:")},
        {"PrefixWithoutAColon", "is part of the name", kEmpty, ElementsNamed("q")},
        {"TwoPrefixesOfOneNamespace", "names are compared as they are written", kRead,
         RootTagWith(" xmlns:a='urn:u' xmlns:b='urn:u' a:x='1' b:x='2'")},
        {"OneNamespaceTwice", "a declaration is an attribute, and there are two", kRefused,
         RootTagWith(" xmlns:a='urn:u' xmlns:a='urn:u'")},
        {"SpaceAndLanguage", "xml:space and xml:lang need no declaration", kRead,
         RootTagWith(" xml:space='odd' xml:lang='' xml:base='file:///'")},
    };
}

INSTANTIATE_TEST_SUITE_P(XmlRoot, HostileXml, testing::ValuesIn(RootCases()), NameOfXml);
INSTANTIATE_TEST_SUITE_P(XmlContent, HostileXml, testing::ValuesIn(ContentCases()), NameOfXml);
INSTANTIATE_TEST_SUITE_P(XmlUtf8, HostileXml, testing::ValuesIn(Utf8Cases()), NameOfXml);
INSTANTIATE_TEST_SUITE_P(XmlMarkup, HostileXml, testing::ValuesIn(MarkupCases()), NameOfXml);
INSTANTIATE_TEST_SUITE_P(XmlDeclaration, HostileXml, testing::ValuesIn(DeclarationCases()), NameOfXml);
INSTANTIATE_TEST_SUITE_P(XmlNamespace, HostileXml, testing::ValuesIn(NamespaceCases()), NameOfXml);

}  // namespace
