#include "tests/tool/check/FindingRows.h"

namespace vexpa_test {

namespace {

constexpr const char* kEntry = "_rels/.rels";

std::string Instead(const std::optional<std::string>& content) {
    return Spoiled([&](SoundPackage& p) { p.instead[kEntry] = content; });
}

// Relationships before and after that of the main part.
std::string With(const std::string& before, const std::string& after) {
    return Spoiled([&](SoundPackage& p) { p.relationships = before + p.relationships + after; });
}

const std::string kMetadata = "http://schemas.openxmlformats.org/package/2006/relationships/metadata/";
const std::string kUri = "'http://schemas.openxmlformats.org/package/2006/relationships'";

}  // namespace

FindingRows PackageRows() {
    const std::string gone = Relation("rId2", OfficeType("settings"), "gone.xml");
    const std::string outside =
        Relation("rId2", OfficeType("hyperlink"), "http://example.org/", "TargetMode='External'");
    const std::string variant = Relation("rId2", OfficeType("settings"), "Word/Document.xml");
    return {
        {"no entry", Instead(std::nullopt), "VX300"},
        {"another case", Spoiled([](SoundPackage& p) {
             p.instead[kEntry] = std::nullopt;
             p.Add("_Rels/.rels", "<Relationships/>");
         }),
         "VX300"},
        {"empty", Instead(""), "VX300"},
        {"not well-formed", Instead("<Relationships>"), "VX300"},
        {"damaged", Spoiled([](SoundPackage& p) {
             p.instead[kEntry] = std::nullopt;
             p.Add(kEntry, "<Relationships/>").crc = 1;
         }),
         "VX112 VX300"},
        {"the last target missing", With("", gone), "VX301"},
        {"another target missing", With(gone, ""), "VX302"},
        {"no main part", Spoiled([](SoundPackage& p) {
             p.relationships = Relation("rId1", OfficeType("settings"), "word/document.xml");
         }),
         "VX303"},
        {"the last one external", With("", outside), "VX304 VX604"},
        {"another one external", With(outside, ""), "VX604"},
        {"the last target in another case", With("", variant), "VX301 VX305"},
        {"another target in another case", With(variant, ""), "VX302 VX305"},
        {"a Strict document", Spoiled([](SoundPackage& p) {
             p.relationships = Relation(
                 "rId1", "http://purl.oclc.org/ooxml/officeDocument/relationships/officeDocument",
                 "word/document.xml");
         }),
         "VX306 VX405"},
        {"no relationships", Instead("<Relationships xmlns=" + kUri + "/>"), "VX307 VX410"},
        {"another root",
         Spoiled([](SoundPackage& p) { p.instead[kEntry] = "<R>" + p.relationships + "</R>"; }),
         "VX308"},
        {"a document type", Spoiled([](SoundPackage& p) {
             p.instead[kEntry] = "<!DOCTYPE Relationships><Relationships xmlns=" + kUri + ">" +
                                 p.relationships + "</Relationships>";
         }),
         "VX206"},
        {"two themes",
         With(Relation("rId2", OfficeType("theme"), "word/document.xml") +
                  Relation("rId3", OfficeType("THEME"), "word/document.xml"),
              ""),
         "VX402"},
        {"a thumbnail and custom properties are two types",
         With(Relation("rId2", kMetadata + "thumbnail", "word/media/image1.png") +
                  Relation("rId3", OfficeType("custom-properties"), "word/media/image1.png"),
              ""),
         ""},
        {"a target with a fragment",
         With(Relation("rId2", OfficeType("theme"), "word/document.xml#a"), ""), "VX302 VX404"},
        {"a target with a dot", With(Relation("rId2", OfficeType("theme"), "./word/document.xml"), ""),
         "VX302 VX407"},
        {"a relationship without an Id",
         With("<Relationship Type='" + OfficeType("theme") + "' Target='word/document.xml'/>", ""),
         "VX409"},
        {"pages that the XML names", Spoiled([](SoundPackage& p) {
             p.relationships =
                 Relation("rId1", "http://schemas.microsoft.com/xps/2005/06/fixedrepresentation",
                          "word/document.xml");
             p.Add("pages/1.png", "x");
         }),
         "VX303 VX405 VX410"},
        {"content types and relationships both malformed", Spoiled([](SoundPackage& p) {
             p.instead[kEntry] = "<";
             p.instead["[Content_Types].xml"] = "<";
         }),
         "VX202 VX300"},
        {"a sound package with a leading slash", Spoiled([](SoundPackage& p) {
             p.relationships = Relation("rId1", OfficeType("officeDocument"), "/word/document.xml");
         }),
         ""},
    };
}

}  // namespace vexpa_test
