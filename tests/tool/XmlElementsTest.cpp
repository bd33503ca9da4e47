#include <gtest/gtest.h>

#include <stdexcept>

#include "tool/model/XmlElements.h"

namespace {

using namespace vexpa_tool;

std::vector<std::u16string> Names(std::string_view xml, std::size_t piece) {
    std::vector<std::u16string> names;
    XmlElements elements([&](const XmlElement& element) { names.push_back(element.name); });
    for (; !xml.empty(); xml.remove_prefix(std::min(piece, xml.size())))
        elements.Feed(xml.substr(0, piece));
    elements.Finish();
    return names;
}

TEST(XmlElements, AreTheSameWhateverThePiecesAre) {
    const std::string xml = "<a><b c='" + std::string(300'000, 'x') + "'/><\u00e4/></a>";
    const std::vector<std::u16string> expected = {u"a", u"b", u"\u00e4"};
    for (const std::size_t piece : {std::size_t{1}, std::size_t{7}, std::size_t{65'536}, xml.size()}) {
        SCOPED_TRACE(piece);
        EXPECT_EQ(Names(xml, piece), expected);
    }
}

TEST(XmlElements, PassOnWhatTheSinkThrows) {
    XmlElements elements([](const XmlElement&) { throw std::length_error("enough"); });
    elements.Feed("<a/>");
    EXPECT_THROW(elements.Finish(), std::length_error);
}

TEST(XmlElements, CallTheSinkNoMoreOnceItHasThrown) {
    int calls = 0;
    XmlElements elements([&](const XmlElement&) {
        ++calls;
        throw std::length_error("enough");
    });
    elements.Feed("<a><b/><c/></a>");
    EXPECT_THROW(elements.Finish(), std::length_error);
    EXPECT_EQ(calls, 1);
}

TEST(XmlElements, OpenWithoutEndAreAnError) {
    XmlElements elements([](const XmlElement&) {});
    const auto feed = [&] {
        const std::string tag = "<" + std::string(30, 'a') + ">";
        for (int i = 0; i < 2'000'000; ++i) elements.Feed(tag);
        elements.Finish();
    };
    EXPECT_THROW(feed(), XmlError);
}

TEST(XmlElements, ANamespaceCannotPassForAnother) {
    EXPECT_THROW(Names("<a xmlns='urn:a&#10;b'/>", 100), XmlError);
}

TEST(XmlElements, ANamespaceUriHasALimit) {
    const std::string lead = "<a xmlns='" + std::string(10'000, 'u');
    EXPECT_EQ(Names(lead + "'/>", 100'000).size(), 1U);
    int calls = 0;
    XmlElements elements([&](const XmlElement&) { ++calls; });
    elements.Feed(lead + "u'><b xmlns=''/></a>");
    EXPECT_THROW(elements.Finish(), XmlError);
    EXPECT_EQ(calls, 0);
}

TEST(XmlElements, ReleaseEverythingWhenLeftInTheMiddle) {
    XmlElements elements([](const XmlElement&) {});
    elements.Feed("<a><b c='d'>" + std::string(100'000, 'x'));  // a leak is for the sanitizer to see
}

}  // namespace
