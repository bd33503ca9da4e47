#include "tests/tool/check/SoundPackage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tool/model/Vocabulary.h"

namespace vexpa_test {

using namespace vexpa_tool;

namespace {

constexpr const char* kDocument =
    "<w:document xmlns:w='http://schemas.openxmlformats.org/wordprocessingml/2006/main' "
    "xmlns:a='http://schemas.openxmlformats.org/drawingml/2006/main' "
    "xmlns:r='http://schemas.openxmlformats.org/officeDocument/2006/relationships'>"
    "<w:body><a:blip r:embed='rId1'/></w:body></w:document>";

std::string Root(const std::string& name, const std::string& uri, const std::string& elements) {
    return "<" + name + " xmlns='" + uri + "'>" + elements + "</" + name + ">";
}

std::string RelationshipsRoot(const std::string& elements) {
    return Root("Relationships", "http://schemas.openxmlformats.org/package/2006/relationships",
                elements);
}

}  // namespace

std::string OfficeType(const std::string& tail) {
    return "http://schemas.openxmlformats.org/officeDocument/2006/relationships/" + tail;
}

std::string Relation(const std::string& id, const std::string& type, const std::string& target,
                     const std::string& more) {
    return "<Relationship Id='" + id + "' Type='" + type + "' Target='" + target + "' " + more + "/>";
}

SoundPackage::SoundPackage()
    : types(
          "<Default Extension='rels' "
          "ContentType='application/vnd.openxmlformats-package.relationships+xml'/>"
          "<Default Extension='xml' ContentType='application/xml'/>"
          "<Default Extension='png' ContentType='image/png'/>"
          "<Override PartName='/word/document.xml' ContentType='application/"
          "vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml'/>"),
      relationships(Relation("rId1", OfficeType("officeDocument"), "word/document.xml")),
      partRelationships(Relation("rId1", OfficeType("image"), "media/image1.png")),
      document(kDocument) {
    Add("word/media/image1.png", "\x89PNG");
}

ZipFile SoundPackage::Make() const {
    const std::pair<std::string, std::string> made[] = {
        {"[Content_Types].xml",
         Root("Types", "http://schemas.openxmlformats.org/package/2006/content-types", types)},
        {"_rels/.rels", RelationshipsRoot(relationships)},
        {"word/document.xml", document},
        {"word/_rels/document.xml.rels", RelationshipsRoot(partRelationships)},
    };
    ZipFile file = zip;
    for (const auto& [name, content] : made) {
        const auto other = instead.find(name);
        if (other == instead.end()) {
            file.Add(name, content);
        } else if (other->second) {
            file.Add(name, *other->second);
        }
    }
    return file;
}

CheckReport CheckBytes(const std::string& bytes, CheckOptions options) {
    const ScratchFile file(bytes);
    return CheckPackage(file.Path(), options);
}

CheckReport CheckDeeply(const std::string& bytes) {
    const Vocabulary vocabulary;
    CheckOptions options;
    options.isDeep = true;
    options.vocabulary = &vocabulary;
    return CheckBytes(bytes, options);
}

std::string Ids(const CheckReport& report) {
    std::set<std::string> ids;
    for (const Finding& finding : report.findings) ids.insert(IdText(finding.id));
    std::string text;
    for (const std::string& id : ids) text += (text.empty() ? "" : " ") + id;
    return text;
}

Finding FindingOf(const CheckReport& report, FindingId id) {
    const auto found = std::find_if(report.findings.begin(), report.findings.end(),
                                    [id](const Finding& finding) { return finding.id == id; });
    if (found != report.findings.end()) return *found;
    ADD_FAILURE() << "no " << IdText(id) << " among " << Ids(report);
    return {};
}

}  // namespace vexpa_test
