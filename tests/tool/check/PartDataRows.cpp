#include "tests/runtime/com/CompoundBytes.h"
#include "tests/tool/check/FindingRows.h"

namespace vexpa_test {

namespace {

std::string Document(const std::string& content) {
    return Spoiled([&](SoundPackage& p) { p.document = content; });
}

// The document, with more inside its root.
std::string DocumentWith(const std::string& inside) {
    return Spoiled([&](SoundPackage& p) { p.document.insert(p.document.rfind("</w:body>"), inside); });
}

std::string Object(const std::string& content, const std::string& contentType) {
    return Spoiled([&](SoundPackage& p) {
        p.Add("word/object.bin", content);
        p.types += "<Default Extension='bin' ContentType='" + contentType + "'/>";
        p.partRelationships += Relation("rId2", OfficeType("theme"), "object.bin");
    });
}

const std::string kObjectType = "application/vnd.openxmlformats-officedocument.oleObject";
const std::string kW = "xmlns:w='http://schemas.openxmlformats.org/wordprocessingml/2006/main'";

// Each entity ten times the one before.
std::string Bomb() {
    std::string xml = "<!DOCTYPE a [<!ENTITY a0 'aaaaaaaaaa'>";
    for (int i = 1; i < 9; ++i) {
        const std::string entity = "&a" + std::to_string(i - 1) + ";";
        xml += "<!ENTITY a" + std::to_string(i) + " '";
        for (int times = 0; times < 10; ++times) xml += entity;
        xml += "'>";
    }
    return xml + "]><w:document " + kW + ">&a8;</w:document>";
}

}  // namespace

FindingRows PartDataRows() {
    return {
        {"an Id without its relationship",
         DocumentWith("<a:blip r:embed='rId9'/><a:blip r:embed='rId9'/>"), "VX411"},
        {"an empty Id refers to nothing", DocumentWith("<a:blip r:embed=''/>"), ""},
        {"not well-formed", Document("<w:document " + kW + ">"), "VX501"},
        {"empty", Document(""), "VX501"},
        {"an undeclared prefix", Document("<v:shape/>"), "VX501"},
        {"UTF-16 is nothing", Document([] {
             std::string text = "\xFF\xFE";
             for (const char c : "<w:document " + kW + "/>") text += {c, '\0'};
             return text;
         }()),
         ""},
        {"a code page is nothing",
         Document("<?xml version='1.0' encoding='windows-1252'?><w:document " + kW +
                  ">\x80</w:document>"),
         ""},
        {"no XML by its type is not parsed", Object("<a>", "text/plain"), ""},
        {"an object that is no compound file", Object("something", kObjectType), "VX502"},
        {"an object that is one", Object(CompoundBytes({{"a", "b"}}), kObjectType), ""},
        {"a compound file cut short",
         Object(CompoundBytes({{"a", "b"}}).substr(0, 600), "application/octet-stream"), "VX502"},
        {"a namespace name too long", Document("<a xmlns='" + std::string(5000, 'u') + "'/>"), "VX504"},
        {"a document type", Document("<!DOCTYPE w:document><w:document " + kW + "/>"), "VX505"},
        {"an entity bomb", Document(Bomb()), "VX505"},
        {"an unknown namespace", DocumentWith("<x xmlns='urn:x' y='1'/>"), "VX701"},
        {"a name without a namespace", DocumentWith("<x/>"), "VX702"},
        {"an unknown name", DocumentWith("<w:thatIsNoName/>"), "VX702"},
        {"names of XML itself are nothing", DocumentWith("<w:t xml:space='preserve'/>"), ""},
    };
}

}  // namespace vexpa_test
