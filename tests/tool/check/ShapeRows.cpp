#include "tests/tool/check/FindingRows.h"

namespace vexpa_test {

namespace {

ZipEntry& Image(SoundPackage& package) {
    return package.zip.entries.front();
}

std::string With(const std::string& type, const std::string& target, const std::string& mode = {}) {
    return Spoiled([&](SoundPackage& p) {
        p.partRelationships +=
            Relation("rId2", type, target, mode.empty() ? "" : "TargetMode='" + mode + "'");
    });
}

const std::string kStrict = "http://purl.oclc.org/ooxml/officeDocument/relationships/";
const std::string kMicrosoft = "http://schemas.microsoft.com/office/2006/relationships/";

}  // namespace

FindingRows ShapeRows() {
    return {
        {"a size that no data can hold", Spoiled([](SoundPackage& p) { Image(p).size = 1 << 30; }),
         "VX601"},
        {"two sizes of stored data", Spoiled([](SoundPackage& p) {
             Image(p).stored = true;
             Image(p).size = 3;
         }),
         "VX601"},
        {"two entries with the same bytes",
         Spoiled([](SoundPackage& p) { p.Add("word/media/image1.png", "\x89PNG").localOffset = 0; }),
         "VX103 VX105 VX602"},
        {"an entry that reaches into the directory", Spoiled([](SoundPackage& p) {
             p.Add("word/last.bin", "12345678").stored = true;
             p.zip.entries.back().compressedSize = p.zip.entries.back().size = 9;
         }),
         "VX112 VX410 VX602"},
        {"entries that unpack to more than the file can hold", Spoiled([](SoundPackage& p) {
             Image(p).content = std::string(6 << 20, 'a');
             ZipEntry again = Image(p);
             again.name = "word/again.bin";
             again.directoryOnly = true;
             again.localOffset = 0;
             again.localName = again.name;
             p.zip.entries.push_back(again);
         }),
         "VX107 VX410 VX504 VX602 VX603"},
        {"a long run", Spoiled([](SoundPackage& p) { Image(p).content = std::string(2 << 20, 'a'); }),
         "VX603"},
        {"a short run is nothing",
         Spoiled([](SoundPackage& p) { Image(p).content = std::string(1 << 20, 'a'); }), ""},
        {"a hyperlink", With(OfficeType("hyperlink"), "http://example.org/", "External"), "VX604"},
        {"a macro project", With(kMicrosoft + "vbaProject", "media/image1.png"), "VX605"},
        {"a control", With(OfficeType("control"), "media/image1.png"), "VX605"},
        {"an object", With(OfficeType("oleObject"), "media/image1.png"), "VX605"},
        {"an embedded package", With(OfficeType("package"), "media/image1.png"), "VX605"},
        {"a Strict object", With(kStrict + "oleObject", "media/image1.png"), "VX405 VX605"},
        {"a Strict control", With(kStrict + "control", "media/image1.png"), "VX405 VX605"},
        {"a Strict embedded package", With(kStrict + "package", "media/image1.png"), "VX405 VX605"},
        {"a Strict type in capitals",
         With("HTTP" + kStrict.substr(4) + "OLEOBJECT", "media/image1.png"), "VX405 VX605"},
        {"a Strict theme is no content of its own", With(kStrict + "theme", "media/image1.png"),
         "VX405"},
        {"a type that only ends alike", With("urn:x/oleObject", "media/image1.png"), "VX405"},
        {"an attached template", With(OfficeType("attachedTemplate"), "file:///C:/a.dotx", "External"),
         "VX604 VX607"},
        {"a linked object", With(OfficeType("oleObject"), "http://example.org/a", "external"),
         "VX604 VX607"},
    };
}

}  // namespace vexpa_test
