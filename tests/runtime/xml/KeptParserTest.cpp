#include <gtest/gtest.h>

#include <string>

#include "runtime/xml/KeptParser.h"
#include "tests/runtime/xml/Dom.h"

namespace {

int parsersMade = 0;

}  // namespace

extern "C" {
XML_Parser __real_XML_ParserCreate(const XML_Char* encoding);
XML_Parser __wrap_XML_ParserCreate(const XML_Char* encoding);
XML_Parser __wrap_XML_ParserCreate(const XML_Char* encoding) {
    ++parsersMade;
    return __real_XML_ParserCreate(encoding);
}
}

namespace vexpa_test {
namespace {

using vexpa_runtime::ParserPtr;
using vexpa_runtime::TakeParser;

// Whether there is a parser to take after this stream.
bool LeavesAParser(std::string_view xml) {
    TakeParser();  // so that there is none before
    ParseResult(xml);
    const int before = parsersMade;
    TakeParser();
    return parsersMade == before;
}

TEST(KeptParser, IsTheSameForOneSmallStreamAfterAnother) {
    EXPECT_TRUE(LeavesAParser("<a b='1'/>"));
    EXPECT_TRUE(LeavesAParser("<a>" + std::string(16'000, 't') + "</a>"));
}

TEST(KeptParser, IsNotOneThatFailed) {
    EXPECT_FALSE(LeavesAParser("<a b='1'>"));
}

TEST(KeptParser, IsNotOneThatHoldsDeclarations) {
    EXPECT_FALSE(LeavesAParser("<!DOCTYPE a [<!ENTITY e 'x'>]><a/>"));
}

TEST(KeptParser, IsNotOneThatGrewWithALargeStream) {
    EXPECT_FALSE(LeavesAParser("<a>" + std::string(17'000, 't') + "</a>"));
}

TEST(KeptParser, IsTakenByOneStreamAtATime) {
    const ParserPtr one = TakeParser();
    const ParserPtr other = TakeParser();
    EXPECT_NE(one, other);
}

TEST(KeptParser, KnowsNothingOfTheStreamBefore) {
    const std::string utf16("\xFF\xFE<\0a\0 \0x\0=\0'\0y\0'\0/\0>\0", 22);
    const std::string latin1 = "<?xml version='1.0' encoding='ISO-8859-1'?><a x='\xE9'/>";
    const std::string utf8 = "<a x='\xC3\xA9'/>";
    for (const std::string& before : {utf16, latin1, utf8, std::string("<a x='z'/>")}) {
        Parsed(before);
        EXPECT_EQ(Values(*Parsed(utf8).Get(), u"a", u"x"), std::vector<std::u16string>{u"\u00E9"});
        Parsed(before);
        EXPECT_EQ(ParseResult("<a x='\xE9'/>"), E_FAIL) << "no UTF-8";
    }
}

}  // namespace
}  // namespace vexpa_test
