#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "tool/check/XmlScan.h"

namespace {

using namespace vexpa_tool;
using testing::ElementsAre;

std::vector<std::string> NamesIn(const std::string& document, XmlScan::Names names) {
    std::vector<std::string> found;
    XmlScan scan(names, [&](const XmlStartTag& tag) { found.emplace_back(tag.name); });
    scan.Feed(document);
    EXPECT_FALSE(scan.Finish());
    return found;
}

std::optional<XmlFault> FaultOf(const std::string& document,
                                XmlScan::Names names = XmlScan::Names::Resolved) {
    XmlScan scan(names, [](const XmlStartTag&) {});
    scan.Feed(document);
    return scan.Finish();
}

TEST(XmlScan, GivesNamesAsWrittenOrResolved) {
    const std::string document = "<a:b xmlns:a='urn:x'><c/></a:b>";
    EXPECT_THAT(NamesIn(document, XmlScan::Names::AsWritten), ElementsAre("a:b", "c"));
    EXPECT_THAT(NamesIn(document, XmlScan::Names::Resolved), ElementsAre("urn:x\nb", "c"));
}

TEST(XmlScan, TellsLineAndColumnOfAFault) {
    const auto fault = FaultOf("<a>\n  <b>\n    </c></b></a>");
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->place.line, 3u);
    EXPECT_EQ(fault->place.column, 7u);
    EXPECT_EQ(fault->what, "mismatched tag");
    EXPECT_FALSE(fault->isRefusal);
}

TEST(XmlScan, CountsColumnsInCharacters) {
    const auto fault = FaultOf("<a>\u00e4\u00f6\U0001F600<</a>");
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->place.column, 8u);
}

TEST(XmlScan, TellsWhereATagBegins) {
    XmlPlace place;
    XmlScan scan(XmlScan::Names::AsWritten, [&](const XmlStartTag& tag) { place = tag.Place(); });
    scan.Feed("<a>\n <b/></a>");
    EXPECT_FALSE(scan.Finish());
    EXPECT_EQ(place.line, 2u);
    EXPECT_EQ(place.column, 2u);
}

TEST(XmlScan, ReadsPieceByPiece) {
    const std::string document = "<a>" + std::string(300'000, 'x') + "<b/></a>";
    std::size_t tags = 0;
    XmlScan scan(XmlScan::Names::Resolved, [&](const XmlStartTag&) { ++tags; });
    for (const char c : document) scan.Feed({&c, 1});
    EXPECT_FALSE(scan.Finish());
    EXPECT_EQ(tags, 2u);
}

TEST(XmlScan, OfNothingHasAFault) {
    ASSERT_TRUE(FaultOf(""));
    EXPECT_EQ(FaultOf("")->what, "no element found");
}

TEST(XmlScan, TellsOfADocumentType) {
    XmlScan scan(XmlScan::Names::Resolved, [](const XmlStartTag&) {});
    scan.Feed("<!DOCTYPE a><a/>");
    EXPECT_FALSE(scan.Finish());
    EXPECT_TRUE(scan.HasDocumentType());
}

// Long names make the test short: the parser keeps them, too.
TEST(XmlScan, RefusesOpenElementsWithoutEnd) {
    XmlScan scan(XmlScan::Names::Resolved, [](const XmlStartTag&) {});
    const std::string tag = "<" + std::string(300, 'a') + ">";
    for (int i = 0; i < 2'000'000 && !scan.HasFault(); ++i) scan.Feed(tag);
    const auto fault = scan.Finish();
    ASSERT_TRUE(fault);
    EXPECT_TRUE(fault->isRefusal);
    EXPECT_EQ(fault->what, "too many names or open elements to go on");
}

TEST(XmlScan, RefusesWhatWouldCostTooMuch) {
    std::string entities = "<!DOCTYPE a [";
    for (int i = 0; i < 1001; ++i) entities += "<!ENTITY e" + std::to_string(i) + " ''>";
    std::string defaults = "<!DOCTYPE a [<!ATTLIST b c CDATA '" + std::string(4000, 'x') + "'>]><a>";
    for (int i = 0; i < 20'000; ++i) defaults += "<b/>";
    const std::pair<const char*, std::string> rows[] = {
        {"entities", entities + "]><a/>"},
        {"defaults", defaults + "</a>"},
        {"a namespace name", "<a xmlns='" + std::string(2000, 'u') + "'/>"},
    };
    for (const auto& [shows, document] : rows) {
        SCOPED_TRACE(shows);
        const auto fault = FaultOf(document);
        ASSERT_TRUE(fault);
        EXPECT_TRUE(fault->isRefusal);
    }
}

TEST(XmlScan, PassesOnWhatItsHandlerThrows) {
    XmlScan scan(XmlScan::Names::Resolved, [](const XmlStartTag&) { throw std::runtime_error("x"); });
    scan.Feed("<a/>");
    EXPECT_THROW(scan.Finish(), std::runtime_error);
}

TEST(XmlScan, ReadsNothingFromOutside) {
    EXPECT_FALSE(FaultOf("<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><a>&e;</a>"));
}

}  // namespace
