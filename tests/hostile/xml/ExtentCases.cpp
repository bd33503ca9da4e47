// XML that is very deep, very long or very wide, and XML that stops anywhere.

#include <string>

#include "runtime/xml/XmlParser.h"
#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/SmallPackage.h"
#include "tests/hostile/xml/CraftedXml.h"
#include "tests/opc/PackageFile.h"

namespace {

using namespace vexpa_test;
using enum XmlOutcome;
using vexpa_runtime::kMaxDepth;

constexpr std::size_t kMillion = 1'000'000;
constexpr std::size_t kTwentyMegabytes = 20 * kMillion;

// `count` elements around the stream's own root and its elements.
XmlChange Within(std::size_t count) {
    return [=](const std::string& xml) { return Repeat("<a>", count) + xml + Repeat("</a>", count); };
}

XmlChange NeverClosed(std::size_t count) {
    return [=](const std::string&) { return Repeat("<a>", count); };
}

// The stream has two levels of its own.
CraftedXmls DepthCases() {
    return {
        {"AsDeepAsItMayBe", "deep, but all of it counts", kRead, Within(kMaxDepth - 2)},
        {"OneDeeper", "so there is an end", kRefused, Within(kMaxDepth - 1)},
        {"AHundredThousand", "must not be anybody's stack", kRefused, Within(100'000)},
        {"AHundredThousandNeverClosed", "nor kept in the hope that they end", kRefused,
         NeverClosed(100'000)},
        {"AHundredThousandEndTags", "ends of nothing", kRefused,
         [](const std::string& xml) { return xml + Repeat("</a>", 100'000); }},
        {"SideBySide", "wide is not deep", kRead,
         [](const std::string& xml) { return RootWith(Repeat("<a><b/></a>", 100'000))(xml); }},
    };
}

// Everything here is read in a time that grows as the stream does. One place is enough.
struct Extent {
    const char* name;
    const char* purpose;
    XmlChange change;
};

std::string ManyAttributes() {
    std::string attributes;
    for (std::size_t i = 0; i < kMillion; ++i) attributes += " a" + std::to_string(i) + "=''";
    return attributes;
}

std::string ManyNames(std::size_t count) {
    std::string elements;
    for (std::size_t i = 0; i < count; ++i) elements += "<e" + std::to_string(i) + "/>";
    return elements;
}

CraftedPackages ExtentCases() {
    const Extent rows[] = {
        {"AMillionAttributes", "looked through once each to find a second of a name",
         [](const std::string& xml) { return RootTagWith(ManyAttributes())(xml); }},
        {"AMillionElements", "each the smallest there is",
         [](const std::string& xml) { return RootWith(Repeat("<a/>", kMillion))(xml); }},
        {"ManyElementsOfAsManyNames", "each name is kept once and found at once",
         [](const std::string& xml) { return RootWith(ManyNames(200'000))(xml); }},
        {"AMillionReferences", "each a character of the text",
         [](const std::string& xml) {
             return RootTagWith(" x='" + Repeat("&lt;", kMillion) + "'")(xml);
         }},
        {"AValueOf20Megabytes", "one token from the start to the end of many pieces",
         [](const std::string& xml) {
             return RootTagWith(" x='" + std::string(kTwentyMegabytes, 'v') + "'")(xml);
         }},
        {"ANameOf20Megabytes", "one token as well",
         [](const std::string& xml) {
             return RootWith("<" + std::string(kTwentyMegabytes, 'n') + "/>")(xml);
         }},
        {"ACommentOf20Megabytes", "one token that is dropped",
         [](const std::string& xml) {
             return Before("<!--" + std::string(kTwentyMegabytes, 'c') + "-->")(xml);
         }},
        {"AnInstructionOf20Megabytes", "one token that is dropped",
         [](const std::string& xml) {
             return Before("<?t " + std::string(kTwentyMegabytes, 'p') + "?>")(xml);
         }},
        {"ASectionOf20Megabytes", "text that is dropped",
         [](const std::string& xml) {
             return RootWith("<![CDATA[" + std::string(kTwentyMegabytes, 't') + "]]>")(xml);
         }},
        {"BlanksOf20Megabytes", "blanks in a tag",
         [](const std::string& xml) { return RootTagWith(std::string(kTwentyMegabytes, ' '))(xml); }},
        {"AnEntityOf20Megabytes", "declared and not used",
         [](const std::string& xml) {
             return WithSubset("<!ENTITY e '" + std::string(kTwentyMegabytes, 'e') + "'>")(xml);
         }},
    };
    CraftedPackages cases;
    for (const Extent& row : rows) {
        const XmlChange change = row.change;
        const auto bytes = [=] {
            return PackageWith([=](ZipFile& zip) {
                std::string& xml = EntryOf(zip, kDocumentRelationshipsEntry).content;
                xml = change(xml);
            })();
        };
        cases.push_back({row.name, row.purpose, bytes, SmallPackageText()});
    }
    return cases;
}

TEST(HostileXmlExtent, IsRefusedWhereverItStops) {
    for (const XmlPlace& place : XmlPlaces()) {
        ZipFile zip = SmallPackage();
        std::string& content = EntryOf(zip, place.entry).content;
        const std::string xml =
            "<?xml version='1.0' encoding='UTF-8'?><!DOCTYPE r [<!ENTITY e 'f'>]>" +
            RootTagWith(" x='&e;\xC3\xA9'")(RootWith("<![CDATA[c]]><!--n-->")(content));
        content = xml;
        ASSERT_EQ(ReadPackage(zip.Bytes()), SmallPackageText());
        for (std::size_t size = 0; size < xml.size(); ++size) {
            SCOPED_TRACE(size);
            content = xml.substr(0, size);
            ASSERT_EQ(ReadPackage(zip.Bytes()), place.withoutIt);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(XmlDepth, HostileXml, testing::ValuesIn(DepthCases()), NameOfXml);
INSTANTIATE_TEST_SUITE_P(XmlExtent, HostilePackage, testing::ValuesIn(ExtentCases()), NameOfCase);

}  // namespace
