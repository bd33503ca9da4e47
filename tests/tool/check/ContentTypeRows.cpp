#include "tests/tool/check/FindingRows.h"

namespace vexpa_test {

namespace {

constexpr const char* kEntry = "[Content_Types].xml";

std::string With(const std::string& element) {
    return Spoiled([&](SoundPackage& p) { p.types += element; });
}

std::string Instead(const std::optional<std::string>& content) {
    return Spoiled([&](SoundPackage& p) { p.instead[kEntry] = content; });
}

std::string Named(const std::string& name) {
    return Spoiled([&](SoundPackage& p) {
        p.instead[kEntry] = std::nullopt;
        p.Add(name, "<Types/>");
    });
}

// Another part that the document is related to.
std::string Related(const std::string& part, const std::string& types) {
    return Spoiled([&](SoundPackage& p) {
        p.Add(part, "x");
        p.partRelationships += Relation("rId2", OfficeType("theme"), "/" + part);
        p.types += types;
    });
}

const std::string kTypesUri = "'http://schemas.openxmlformats.org/package/2006/content-types'";

}  // namespace

FindingRows ContentTypeRows() {
    return {
        {"no entry", Instead(std::nullopt), "VX201"},
        {"another case", Named("[content_types].xml"), "VX201 VX410"},
        {"inside a folder", Named("report/[Content_Types].xml"), "VX201 VX410"},
        {"in a folder, beside the entry itself",
         Spoiled([](SoundPackage& p) { p.Add("word/[Content_Types].xml", "<Types/>"); }),
         "VX110 VX410"},
        {"an archive of something else",
         [] {
             ZipFile zip;
             zip.Add("a", "b");
             return zip.Bytes();
         }(),
         "VX201"},
        {"an archive of nothing", ZipFile().Bytes(), "VX201"},
        {"OpenDocument",
         [] {
             ZipFile zip;
             zip.Add("mimetype", "application/vnd.oasis.opendocument.text");
             return zip.Bytes();
         }(),
         "VX201"},
        {"not well-formed", Instead("<Types>"), "VX202"},
        {"empty", Instead(""), "VX202"},
        {"a part without a type", Related("word/theme.bin", ""), "VX203"},
        {"a Default for it", Related("word/theme.bin", "<Default Extension='bin' ContentType='a/b'/>"),
         ""},
        {"an Override for it",
         Related("word/theme.bin", "<Override PartName='/word/theme.bin' ContentType='a/b'/>"), ""},
        {"an Override without the slash",
         Related("word/theme.bin", "<Override PartName='word/theme.bin' ContentType='a/b'/>"), ""},
        {"an Override for no part", With("<Override PartName='/gone.xml' ContentType='a/b'/>"),
         "VX204"},
        {"a Default twice", With("<Default Extension='png' ContentType='image/x'/>"), "VX204"},
        {"an Override twice", With("<Override PartName='word/document.xml' ContentType='a/b'/>"),
         "VX204"},
        {"a Default for no part is nothing", With("<Default Extension='jpeg' ContentType='a/b'/>"), ""},
        {"an Override in another case",
         With("<Override PartName='/Word/document.xml' ContentType='a/b'/>"), "VX205"},
        {"a Default in another case",
         Related("word/theme.bin", "<Default Extension='BIN' ContentType='a/b'/>"), "VX203 VX205"},
        {"an extension with its dot", With("<Default Extension='.png' ContentType='a/b'/>"), "VX205"},
        {"a document type",
         Instead("<!DOCTYPE Types [<!ENTITY a 'xml'>]><Types xmlns=" + kTypesUri +
                 "><Default Extension='&a;' ContentType='application/xml'/>"
                 "<Default Extension='png' ContentType='image/png'/></Types>"),
         "VX206"},
        {"damaged", Spoiled([](SoundPackage& p) {
             p.instead["[Content_Types].xml"] = std::nullopt;
             p.Add("[Content_Types].xml", "<Types/>").crc = 1;
         }),
         "VX112 VX207"},
        {"another root",
         Instead("<types><Default Extension='xml' ContentType='application/xml'/>"
                 "<Default Extension='png' ContentType='image/png'/></types>"),
         "VX208"},
        {"the root of another namespace",
         Instead("<Types xmlns='urn:x'><Default Extension='xml' ContentType='application/xml'/>"
                 "<Default Extension='png' ContentType='image/png'/></Types>"),
         "VX208"},
        {"a root with a prefix",
         Instead("<t:Types xmlns:t=" + kTypesUri +
                 "><t:Default Extension='xml' ContentType='application/xml'/>"
                 "<t:Default Extension='png' ContentType='image/png'/></t:Types>"),
         ""},
        {"a Default without a type", With("<Default Extension='gif'/>"), "VX209"},
        {"an Override without a name", With("<Override ContentType='a/b'/>"), "VX209"},
    };
}

}  // namespace vexpa_test
