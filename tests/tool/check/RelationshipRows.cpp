#include "tests/tool/check/FindingRows.h"

namespace vexpa_test {

namespace {

// One more relationship of the document.
std::string With(const std::string& relationship, const std::string& entry = {}) {
    return Spoiled([&](SoundPackage& p) {
        p.partRelationships += relationship;
        if (!entry.empty()) p.Add(entry, "x");
    });
}

std::string Theme(const std::string& target, const std::string& more = {}) {
    return Relation("rId2", OfficeType("theme"), target, more);
}

// Without a reference to a relationship.
constexpr const char* kPlainDocument =
    "<w:document xmlns:w='http://schemas.openxmlformats.org/wordprocessingml/2006/main'/>";

const std::string kUri = "http://schemas.openxmlformats.org/package/2006/relationships";

constexpr const char* kStream = "word/_rels/document.xml.rels";

std::string Stream(const std::optional<std::string>& content) {
    return Spoiled([&](SoundPackage& p) {
        p.instead[kStream] = content;
        p.document = kPlainDocument;
    });
}

}  // namespace

FindingRows RelationshipRows() {
    return {
        {"a target without a part", With(Theme("gone.png")), "VX401"},
        {"the target NULL", With(Theme("NULL")), "VX401"},
        {"a target in another case", With(Theme("media/Image1.png")), "VX305 VX401"},
        {"a second theme",
         With(Theme("media/image1.png") + Relation("rId3", OfficeType("theme"), "media/image1.png")),
         "VX402"},
        {"a second relationship of an unknown type",
         With(Relation("rId2", "urn:x", "media/image1.png") +
              Relation("rId3", "urn:x", "media/image1.png")),
         "VX405"},
        {"the same Id", With(Relation("rId1", OfficeType("theme"), "media/image1.png")), "VX403"},
        {"a target of the package with the same Id", Spoiled([](SoundPackage& p) {
             p.relationships += Relation("rId1", OfficeType("theme"), "word/document.xml");
         }),
         "VX403"},
        {"only a fragment", With(Theme("#a")), "VX401 VX404"},
        {"a fragment", With(Theme("media/image1.png#a")), "VX401 VX404"},
        {"backslashes", With(Theme("media\\image1.png")), "VX404"},
        {"no URI", With(Theme("media/image 2.png"), "word/media/image 2.png"), "VX404"},
        {"escapes that are not decoded", With(Theme("media/image%202.png"), "word/media/image 2.png"),
         "VX401 VX404 VX410"},
        {"escapes in the entry, too", With(Theme("media/image%202.png"), "word/media/image%202.png"),
         ""},
        {"an absolute URI without its mode", With(Theme("http://example.org/a")), "VX401 VX404"},
        {"an external target that is no URI",
         With(Relation("rId2", OfficeType("hyperlink"), "a b", "TargetMode='External'")),
         "VX404 VX604"},
        {"an unknown type", With(Relation("rId2", "urn:x", "media/image1.png")), "VX405"},
        {"a second theme in another case",
         With(Theme("media/image1.png") + Relation("rId3", OfficeType("Theme"), "media/image1.png")),
         "VX402"},
        {"a document type in a stream",
         Stream("<!DOCTYPE Relationships><Relationships xmlns='" + kUri + "'>" +
                Relation("rId1", OfficeType("image"), "media/image1.png") + "</Relationships>"),
         "VX206"},
        {"another root of a stream",
         Stream("<R>" + Relation("rId1", OfficeType("image"), "media/image1.png") + "</R>"), "VX308"},
        {"an empty stream", Stream(""), "VX406 VX410"},
        {"a malformed stream", Stream("<a>"), "VX406 VX410"},
        {"a damaged stream", Spoiled([](SoundPackage& p) {
             p.instead[kStream] = std::nullopt;
             p.document = kPlainDocument;
             p.Add(kStream, "<R/>").crc = 1;
         }),
         "VX112 VX406 VX410"},
        {"a dot segment", With(Theme("./media/image1.png")), "VX401 VX407"},
        {"dots inside a name", With(Theme("media/a..b.png"), "word/media/a..b.png"),
         "VX401 VX407 VX410"},
        {"a step up", With(Theme("../word/media/image1.png")), ""},
        {"a stream for no part", With("", "word/_rels/gone.xml.rels"), "VX408"},
        {"a stream in another case", Spoiled([](SoundPackage& p) {
             p.instead[kStream] = std::nullopt;
             p.document = kPlainDocument;
             p.Add("word/_rels/Document.xml.rels", "<R/>");
         }),
         "VX408 VX410"},
        {"a relationship without a target", With("<Relationship Id='a' Type='urn:x'/>"), "VX405 VX409"},
        {"a relationship without an Id", With("<Relationship Type='urn:x' Target='media/image1.png'/>"),
         "VX405 VX409"},
        {"a relationship without a type", With("<Relationship Id='a' Target='media/image1.png'/>"),
         "VX405 VX409"},
        {"an element without attributes is nothing", With("<Relationship/>"), ""},
        {"an entry that nothing leads to", With("", "word/more.png"), "VX410"},
        {"an Id without its relationship", Stream(std::nullopt), "VX410"},
    };
}

}  // namespace vexpa_test
