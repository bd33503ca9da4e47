// Packages that open and packages that do not.
#include <algorithm>

#include "tests/damage/SoundPackages.h"
#include "tests/fault/Scenario.h"
#include "tests/opc/PackageContent.h"
#include "tests/opc/PackageFile.h"
#include "vexpa/base/ComPtr.h"

namespace vexpa_test {

using namespace tarn;

namespace {

ZipEntry& Find(ZipFile& zip, std::string_view name) {
    return *std::find_if(zip.entries.begin(), zip.entries.end(),
                         [name](const ZipEntry& entry) { return entry.name == name; });
}

std::string DocumentWithout(std::string_view name) {
    ZipFile zip = SoundDocument();
    std::erase_if(zip.entries, [name](const ZipEntry& entry) { return entry.name == name; });
    return zip.Bytes();
}

std::string DocumentWith(std::string_view name, std::string content) {
    ZipFile zip = SoundDocument();
    Find(zip, name).content = std::move(content);
    return zip.Bytes();
}

std::string DocumentRelatedBy(const std::string& relationships) {
    return DocumentWith("_rels/.rels", RelationshipsXml(relationships));
}

std::string DamagedDocument() {
    ZipFile zip = SoundDocument();
    Find(zip, "[Content_Types].xml").crc = 1;
    return zip.Bytes();
}

std::string ManyContentTypes() {
    std::string types;
    for (int i = 0; i < 10; ++i) {
        const std::string number = std::to_string(i);
        types += "<Default Extension=\"x" + number +
                 "\" ContentType=\"default\"/><Override PartName=\"/p" + number +
                 "\" ContentType=\"a type longer than a short string\"/>";
    }
    return DocumentWith(
        "[Content_Types].xml",
        "<Types>" + types +
            "<Override PartName=\"/word/document.xml\" ContentType=\"text/main\"/></Types>");
}

std::string DocumentRelatedByThenBy(const std::string& first, const std::string& last) {
    return DocumentRelatedBy(RelationshipXml("rId1", kOfficeDocument, first) +
                             RelationshipXml("rId2", kStyles, last));
}

void Open(Stage& stage, Transcript& seen) {
    const Handle<opc::Package> package = opc::Package::Open(stage.path.c_str());
    if (!package) return;
    seen.Say("open");
    seen.SayRelationships(package->GetRelationships());
}

void OpenMissing(Stage& stage, Transcript& seen) {
    Stage missing{nullptr, stage.path + u".missing", {}};
    Open(missing, seen);
}

void WalkParts(opc::Package& package, Transcript& seen) {
    const PackageContent content = ReadContent(package);
    for (const auto& [name, part] : content.parts) {
        seen.Say(name, " is ", part.contentType);
        seen.Say(part.relationships);
        if (part.stream) seen.Say(name, " holds ", part.stream->size(), " bytes");
        if (part.storage) seen.Say(name, " holds elements");
    }
}

void OpenAndWalk(Stage& stage, Transcript& seen) {
    const Handle<opc::Package> package = opc::Package::Open(stage.path.c_str());
    if (package) WalkParts(*package, seen);
}

void WalkOpen(Stage& stage, Transcript& seen) {
    WalkParts(*stage.package, seen);
}

void OpenTwice(Stage& stage, Transcript& seen) {
    const Handle<opc::Package> one = opc::Package::Open(stage.path.c_str());
    const Handle<opc::Package> other = opc::Package::Open(stage.path.c_str());
    if (one) WalkParts(*one, seen);
    if (other) WalkParts(*other, seen);
}

void CloseAndAskOn(Stage& stage, Transcript& seen) {
    const Handle<opc::Package> package = opc::Package::Open(stage.path.c_str());
    if (!package) return;
    package->Close();
    seen.SayRelationships(package->GetRelationships());
    seen.SayPart(package->GetPart(opc::PartUri(u"word/document.xml")));
    seen.Say("exists: ", package->PartExists(opc::PartUri(u"/word/document.xml")));
}

void Clone(Stage& stage, Transcript& seen) {
    const Handle<opc::Package> clone = stage.package->Clone();
    seen.Say("a clone: ", static_cast<bool>(clone));
}

}  // namespace

std::vector<Scenario> OpeningScenarios() {
    constexpr Start kFile = Start::kFile;
    return {
        {"Opens", "rId1", [] { return SoundDocument().Bytes(); }, kFile, Open},
        {"OpensNoMissingFile", nullptr, [] { return std::string(); }, kFile, OpenMissing},
        {"OpensNoEmptyFile", nullptr, [] { return std::string(); }, kFile, Open},
        {"OpensNoOtherFile", nullptr, [] { return std::string(100, 'x'); }, kFile, Open},
        {"OpensNothingWithoutContentTypes", nullptr,
         [] { return DocumentWithout("[Content_Types].xml"); }, kFile, Open},
        {"OpensNothingWithoutRelationships", nullptr, [] { return DocumentWithout("_rels/.rels"); },
         kFile, Open},
        {"OpensNothingWithoutItsLastPart", nullptr,
         [] { return DocumentRelatedByThenBy("word/document.xml", "missing.xml"); }, kFile, Open},
        {"OpensWithoutItsFirstPart", "rId2",
         [] { return DocumentRelatedByThenBy("missing.xml", "word/document.xml"); }, kFile, Open},
        {"OpensNothingWithBrokenContentTypes", nullptr,
         [] { return DocumentWith("[Content_Types].xml", "<Types>"); }, kFile, Open},
        {"OpensNothingWithBrokenRelationships", nullptr,
         [] { return DocumentWith("_rels/.rels", "<Relationships><Relationship Id='a'/>"); }, kFile,
         Open},
        {"OpensNothingDamaged", nullptr, DamagedDocument, kFile, Open},
        {"OpensWithNoRelationshipAtAll", "open", [] { return DocumentRelatedBy(""); }, kFile, Open},
        {"OpensWithManyContentTypes", "text/main", ManyContentTypes, kFile, OpenAndWalk},
        {"WalksADocument", "document.xml", [] { return SoundDocument().Bytes(); }, kFile, OpenAndWalk},
        {"WalksAZip64Document", "holds 9 bytes", [] { return SoundZip64Document().Bytes(); }, kFile,
         OpenAndWalk},
        {"WalksAnOpenPackage", "styles.xml", [] { return SoundDocument().Bytes(); }, Start::kOpen,
         WalkOpen},
        {"WalksTwoPackages", "holds elements", [] { return SoundPackageWithObject().Bytes(); }, kFile,
         OpenTwice},
        {"ClosesAndAsksOn", "exists: 0", [] { return SoundDocument().Bytes(); }, kFile, CloseAndAskOn},
        {"ClonesNoPackage", "a clone: 0", [] { return SoundDocument().Bytes(); }, Start::kLoaded,
         Clone},
    };
}

}  // namespace vexpa_test
