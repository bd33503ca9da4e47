#include "tests/hostile/SmallPackage.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "tests/opc/PackageFile.h"

namespace vexpa_test {

namespace {

auto Find(ZipFile& zip, std::string_view name) {
    return std::find_if(zip.entries.begin(), zip.entries.end(),
                        [name](const ZipEntry& entry) { return entry.name == name; });
}

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
    const auto found = Find(zip, name);
    if (found == zip.entries.end()) throw std::logic_error("no such entry");
    return *found;
}

ZipFile SmallPackageWith(std::string_view entry, std::string content) {
    ZipFile zip = SmallPackage();
    const auto found = Find(zip, entry);
    if (found == zip.entries.end()) {
        zip.Add(std::string(entry), std::move(content));
    } else {
        found->content = std::move(content);
    }
    return zip;
}

std::function<std::string()> PackageWith(std::function<void(ZipFile&)> change) {
    return [change = std::move(change)] {
        ZipFile zip = SmallPackage();
        change(zip);
        return zip.Bytes();
    };
}

std::function<std::string()> PictureWith(std::function<void(ZipEntry&)> change) {
    return PackageWith(
        [change = std::move(change)](ZipFile& zip) { change(EntryOf(zip, kPictureEntry)); });
}

const std::string kDeflatedPixels("\x2B\xC8\xACH\xCD)\x06\x00", 8);

const std::string kDocumentText =
    "package: rId1 officedocument -> word/document.xml\n"
    "word/document.xml: application/xml \"<document/>\"\n";

std::string SmallPackageText(std::string_view picture) {
    return kDocumentText +
           "word/document.xml: rId1 image -> word/a.png\n"
           "word/a.png: image/png " +
           std::string(picture) + "\n";
}

std::string PictureUnreadable() {
    return SmallPackageText("no stream");
}

std::string PictureMissing() {
    return kDocumentText + "word/document.xml: rId1 image -> word/a.png, no part\n";
}

}  // namespace vexpa_test
