#include "tests/opc/PackageFile.h"

#include <algorithm>
#include <stdexcept>

#include "vexpa/base/Utf16.h"

namespace vexpa_test {

namespace {

std::string Attribute(std::string_view name, std::string_view value) {
    return value.empty() ? std::string() : " " + std::string(name) + "=\"" + std::string(value) + "\"";
}

}  // namespace

void PackageFile::Default(std::string_view extension, std::string_view contentType) {
    contentTypes_ +=
        "<Default" + Attribute("Extension", extension) + Attribute("ContentType", contentType) + "/>";
}

void PackageFile::Override(std::string_view partName, std::string_view contentType) {
    contentTypes_ +=
        "<Override" + Attribute("PartName", partName) + Attribute("ContentType", contentType) + "/>";
}

void PackageFile::Relationship(std::string_view id, std::string_view type, std::string_view target,
                               std::string_view targetMode) {
    relationships_ += RelationshipXml(id, type, target, targetMode);
}

bool PackageFile::Has(std::string_view entry) const {
    return std::any_of(zip_.entries.begin(), zip_.entries.end(),
                       [&](const ZipEntry& e) { return e.name == entry; });
}

const ScratchFile& PackageFile::Write() {
    ZipFile zip = zip_;
    if (!Has("[Content_Types].xml")) {
        zip.Add("[Content_Types].xml",
                "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">" +
                    contentTypes_ + "</Types>");
    }
    if (!Has("_rels/.rels")) zip.Add("_rels/.rels", RelationshipsXml(relationships_));
    file_ = std::make_unique<ScratchFile>(zip.Bytes());
    return *file_;
}

tarn::Handle<tarn::opc::Package> PackageFile::Open(unsigned int flags) {
    return tarn::opc::Package::Open(Write().Path16().c_str(), flags);
}

std::string RelationshipXml(std::string_view id, std::string_view type, std::string_view target,
                            std::string_view targetMode) {
    return "<Relationship" + Attribute("Id", id) + Attribute("Type", type) +
           Attribute("Target", target) + Attribute("TargetMode", targetMode) + "/>";
}

std::string RelationshipsXml(std::string_view elements) {
    return "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">" +
           std::string(elements) + "</Relationships>";
}

PackageFile MinimalPackage() {
    PackageFile file;
    file.Default("xml", "application/xml");
    file.Relationship("rId1", kOfficeDocument, "word/document.xml");
    file.Entry("word/document.xml", "<document/>");
    return file;
}

std::u16string Text(const unsigned short* text) {
    return tarn::CopyText(text);
}

std::string ReadToEnd(IStream& stream) {
    std::string all;
    char buffer[4096];
    std::uint32_t read = 0;
    do {
        if (stream.Read(buffer, sizeof buffer, &read) < 0) throw std::runtime_error("cannot read");
        all.append(buffer, read);
    } while (read != 0);
    return all;
}

std::uint64_t Position(IStream& stream) {
    std::uint64_t position = 0;
    stream.Seek(0, STREAM_SEEK_CUR, &position);
    return position;
}

}  // namespace vexpa_test
