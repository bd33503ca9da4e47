#include "tests/damage/SoundPackages.h"

#include "tests/opc/PackageFile.h"
#include "tests/runtime/com/CompoundBytes.h"

namespace vexpa_test {

namespace {

constexpr const char* kImage =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/image";
constexpr const char* kOleObject =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/oleObject";

// Extended time stamp, as most writers add it: id 0x5455, five bytes.
constexpr std::string_view kTimeStampField{"UT\x05\x00\x01\x10\x20\x30\x40", 9};

std::string ContentTypes(const std::string& mainPart) {
    return "<Types><Default Extension=\"xml\" ContentType=\"text/x\"/><Override PartName=\"/" +
           mainPart + "\" ContentType=\"text/main\"/></Types>";
}

}  // namespace

ZipFile SoundDocument() {
    ZipFile zip;
    zip.Add("[Content_Types].xml", ContentTypes("word/document.xml"));
    zip.Add("_rels/.rels",
            RelationshipsXml(RelationshipXml("rId1", kOfficeDocument, "word/document.xml")));
    zip.Add("word/document.xml", "<document>" + std::string(300, 'd') + "</document>");
    zip.Add("word/_rels/document.xml.rels",
            RelationshipsXml(RelationshipXml("rId1", kStyles, "styles.xml") +
                             RelationshipXml("rId2", kImage, "media/image.png") +
                             RelationshipXml("rId3", kImage, "http://example.com/", "External")));
    zip.Add("word/styles.xml", "<styles/>");
    ZipEntry& image = zip.Add("word/media/image.png", "a picture, stored as it is");
    image.stored = true;
    image.extra = image.localExtra = kTimeStampField;
    image.comment = "a comment";
    zip.comment = "a comment of the archive";
    return zip;
}

std::string SoundObject() {
    return CompoundBytes({{"\x01Ole", "20 bytes of contents"},
                          {"storage", {}, {{"inner", std::string(600, 'i')}}},
                          {"large", std::string(4200, 'l')}});
}

ZipFile SoundPackageWithObject() {
    ZipFile zip;
    zip.Add("[Content_Types].xml", ContentTypes("xl/workbook.xml"));
    zip.Add("_rels/.rels",
            RelationshipsXml(RelationshipXml("rId1", kOfficeDocument, "xl/workbook.xml")));
    zip.Add("xl/workbook.xml", "<workbook/>");
    zip.Add("xl/_rels/workbook.xml.rels",
            RelationshipsXml(RelationshipXml("rId1", kOleObject, "embeddings/object.bin")));
    zip.Add(kObjectEntry, SoundObject());
    return zip;
}

ZipFile SoundZip64Document() {
    ZipFile zip = SoundDocument();
    zip.zip64 = true;
    zip.prefix = "a few bytes before";
    for (std::size_t i = 0; i < zip.entries.size(); ++i) {
        zip.entries[i].zip64 = i % 3 != 0;
        zip.entries[i].dataDescriptor = i % 2 == 0;
        zip.entries[i].descriptorSignature = i % 4 == 0;
    }
    return zip;
}

}  // namespace vexpa_test
