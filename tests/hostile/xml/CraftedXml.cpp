#include "tests/hostile/xml/CraftedXml.h"

#include <utility>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/SmallPackage.h"

namespace vexpa_test {

namespace {

// The small package when no rule of content types is known.
constexpr const char* kWithoutContentTypes =
    "package: rId1 officedocument -> word/document.xml\n"
    "word/document.xml: (empty) \"<document/>\"\n"
    "word/document.xml: rId1 image -> word/a.png\n"
    "word/a.png: (empty) \"pixels\"\n";

std::string InRootTag(std::string xml, std::string_view more) {
    return xml.insert(xml.find('>'), more);
}

std::string InRoot(std::string xml, std::string_view more) {
    return xml.insert(xml.find('>') + 1, more);
}

std::string DocumentType(std::string_view subset) {
    return "<!DOCTYPE r [" + std::string(subset) + "]>";
}

std::string Expected(const XmlPlace& place, XmlOutcome outcome) {
    if (outcome == XmlOutcome::kRead) return SmallPackageText();
    return outcome == XmlOutcome::kEmpty ? place.withAnEmptyOne : place.withoutIt;
}

}  // namespace

std::vector<XmlPlace> XmlPlaces() {
    return {
        {kContentTypesEntry, kDoesNotOpen, kWithoutContentTypes},
        {kPackageRelationshipsEntry, kDoesNotOpen, "opens, empty\n"},
        {kDocumentRelationshipsEntry, kDocumentText, kDocumentText},
    };
}

std::string NameOfXml(const testing::TestParamInfo<CraftedXml>& info) {
    return info.param.name;
}

void PrintTo(const CraftedXml& crafted, std::ostream* out) {
    *out << crafted.purpose;
}

void ExpectOutcome(const XmlPlace& place, const XmlChange& change, XmlOutcome outcome) {
    SCOPED_TRACE(place.entry);
    ZipFile zip = SmallPackage();
    std::string& xml = EntryOf(zip, place.entry).content;
    xml = change(xml);
    EXPECT_EQ(ReadPackage(zip.Bytes()), Expected(place, outcome));
}

TEST_P(HostileXml, ComesToThisEverywhere) {
    for (const XmlPlace& place : XmlPlaces()) {
        ExpectOutcome(place, GetParam().change, GetParam().outcome);
    }
}

std::string Repeat(std::string_view text, std::size_t count) {
    std::string repeated;
    repeated.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i) repeated += text;
    return repeated;
}

XmlChange Before(std::string more) {
    return [more = std::move(more)](const std::string& xml) { return more + xml; };
}

XmlChange After(std::string more) {
    return [more = std::move(more)](const std::string& xml) { return xml + more; };
}

XmlChange RootTagWith(std::string more) {
    return [more = std::move(more)](const std::string& xml) { return InRootTag(xml, more); };
}

XmlChange RootWith(std::string more) {
    return [more = std::move(more)](const std::string& xml) { return InRoot(xml, more); };
}

XmlChange InPlace(std::string other) {
    return [other = std::move(other)](const std::string&) { return other; };
}

XmlChange WithSubset(std::string subset, std::string more) {
    return [subset = std::move(subset), more = std::move(more)](const std::string& xml) {
        return DocumentType(subset) + InRoot(xml, more);
    };
}

XmlChange WithSubsetInTag(std::string subset, std::string more) {
    return [subset = std::move(subset), more = std::move(more)](const std::string& xml) {
        return DocumentType(subset) + InRootTag(xml, more);
    };
}

}  // namespace vexpa_test
