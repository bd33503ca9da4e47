#include "tests/hostile/SmallPackage.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "tests/opc/PackageFile.h"

namespace vexpa_test {

namespace {

constexpr const char* kImage =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/image";

const std::string kDocumentLines =
    "package: rId1 officedocument -> word/document.xml\n"
    "word/document.xml: application/xml \"<document/>\"\n"
    "word/document.xml: rId1 image -> word/a.png";

}  // namespace

ZipFile SmallPackage() {
    ZipFile zip;
    zip.Add(kContentTypesEntry,
            "<Types><Default Extension=\"xml\" ContentType=\"application/xml\"/>"
            "<Default Extension=\"png\" ContentType=\"image/png\"/></Types>");
    zip.Add(kPackageRelationshipsEntry,
            RelationshipsXml(RelationshipXml("rId1", kOfficeDocument, kDocumentEntry)));
    zip.Add(kDocumentEntry, "<document/>");
    zip.Add(kDocumentRelationshipsEntry, RelationshipsXml(RelationshipXml("rId1", kImage, "a.png")));
    zip.Add(kPictureEntry, "pixels");
    return zip;
}

ZipEntry& EntryOf(ZipFile& zip, std::string_view name) {
    const auto found = std::find_if(zip.entries.begin(), zip.entries.end(),
                                    [name](const ZipEntry& entry) { return entry.name == name; });
    if (found == zip.entries.end()) throw std::logic_error("no such entry");
    return *found;
}

std::string SmallPackageWith(std::string_view entry, std::string content) {
    ZipFile zip = SmallPackage();
    std::erase_if(zip.entries, [entry](const ZipEntry& e) { return e.name == entry; });
    zip.Add(std::string(entry), std::move(content));
    return zip.Bytes();
}

std::string SmallPackageText() {
    return SmallPackageText("\"pixels\"");
}

std::string SmallPackageText(std::string_view picture) {
    return kDocumentLines + "\nword/a.png: image/png " + std::string(picture) + "\n";
}

std::string SmallPackageTextWithoutPicture() {
    return kDocumentLines + ", no part\n";
}

}  // namespace vexpa_test
