// Relationships, and the parts that they lead to.
#include "tests/damage/SoundPackages.h"
#include "tests/fault/Scenario.h"
#include "tests/opc/PackageFile.h"
#include "vexpa/opc/RelationshipTypes.h"

namespace vexpa_test {

using namespace tarn;

namespace {

constexpr const char* kHeader =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/header";

std::string Document() {
    return SoundDocument().Bytes();
}

// Nothing of it is loaded when it opens, and its entries are not listed yet.
std::string Unrelated() {
    ZipFile zip = SoundDocument();
    zip.entries[1].content = RelationshipsXml("");
    return zip.Bytes();
}

// The document part with these relationships, and four parts to lead to.
std::string DocumentRelatedBy(const std::string& relationships) {
    ZipFile zip;
    zip.Add("[Content_Types].xml",
            "<Types><Default Extension=\"xml\" ContentType=\"text/x\"/></Types>");
    zip.Add("_rels/.rels",
            RelationshipsXml(RelationshipXml("rId1", kOfficeDocument, "word/document.xml")));
    zip.Add("word/document.xml", "<document/>");
    zip.Add("word/_rels/document.xml.rels", RelationshipsXml(relationships));
    for (const char* name : {"word/header.xml", "word/other.xml", "custom/item.xml", "root.xml"})
        zip.Add(name, "<part/>");
    return zip.Bytes();
}

std::string RepeatedIds() {
    return DocumentRelatedBy(RelationshipXml("rId1", kHeader, "header.xml") +
                             RelationshipXml("rId1", kStyles, "other.xml") +
                             RelationshipXml("rId1", kHeader, "other.xml"));
}

std::string RepeatedTypes() {
    return DocumentRelatedBy(RelationshipXml("rId2", kHeader, "header.xml") +
                             RelationshipXml("rId1", kHeader, "other.xml"));
}

std::string ClimbingTargets() {
    return DocumentRelatedBy(RelationshipXml("rId1", kHeader, "../custom/item.xml") +
                             RelationshipXml("rId2", kHeader, "/root.xml") +
                             RelationshipXml("rId3", kHeader, "../../root.xml") +
                             RelationshipXml("rId4", kHeader, "./other.xml"));
}

std::string ForeignTargets() {
    return DocumentRelatedBy(RelationshipXml("rId1", kHeader, "http://example.com/a b", "External") +
                             RelationshipXml("rId2", kHeader, "mailto:a@example.com", "EXTERNAL") +
                             RelationshipXml("rId3", kHeader, "missing.xml"));
}

std::string ManyRelationships() {
    std::string relationships;
    for (int i = 0; i < 20; ++i) {
        const std::string number = std::to_string(i);
        relationships += RelationshipXml("rId" + number, "urn:type:" + number, "header.xml");
    }
    return DocumentRelatedBy(relationships + "<Relationship/><other/>");
}

opc::Part* GetDocument(Stage& stage) {
    return stage.package->GetPart(opc::PartUri(u"/word/document.xml"));
}

// From opening to the parts that the document leads to.
void FollowAll(Stage& stage, Transcript& seen) {
    const Handle<opc::Package> package = opc::Package::Open(stage.path.c_str());
    if (!package) return;
    opc::Part* document = package->GetPart(opc::PartUri(u"word/document.xml"));
    if (document == nullptr) return;
    seen.SayPart(document);
    for (const auto& [id, relationship] : document->GetRelationships())
        seen.SayPart(package->GetPart(relationship->GetResolvedTarget()));
}

void FindById(Stage& stage, Transcript& seen) {
    seen.SayRelationship(stage.package->GetRelationshipById(u"rId1"));
    seen.SayRelationship(stage.Find(u"word/document.xml")->GetRelationshipById(u"rId2"));
    seen.SayRelationship(stage.Find(u"word/document.xml")->GetRelationshipById(u"missing"));
    seen.Say("has it: ", stage.Find(u"word/document.xml")->HasRelationship(u"rId3"));
}

void FindByType(Stage& stage, Transcript& seen) {
    opc::RelationshipCursor cursor{};
    seen.SayRelationship(stage.package->GetRelationshipByType(opc::RelTypeOfficeDocument, &cursor));
    seen.SayRelationship(cursor.current);
    opc::Part& document = *stage.Find(u"word/document.xml");
    seen.SayRelationship(document.GetRelationshipByType(opc::RelTypeStyles));
    seen.SayRelationship(document.GetRelationshipByType(opc::RelTypeFooter));
}

void FindRange(Stage& stage, Transcript& seen) {
    const std::u16string type = Text(opc::GetRelationshipTypeUri(opc::RelTypeImage));
    const opc::RelationshipRange range =
        stage.Find(u"word/document.xml")->GetRelationshipsByType(type.c_str());
    seen.SayRelationship(range.first);
    seen.Say("has a next one: ", range.next != nullptr);
}

void TellWhatExists(Stage& stage, Transcript& seen) {
    for (const char16_t* name : {u"/[Content_Types].xml", u"/word/Document.xml", u"/word/styles.xml"}) {
        if (stage.package->PartExists(opc::PartUri(name))) seen.Say(name, " exists");
    }
}

void GetUnderTwoNames(Stage& stage, Transcript& seen) {
    opc::Part* part = GetDocument(stage);
    seen.SayPart(part);
    const opc::Part* same = stage.package->GetPart(opc::PartUri(u"word/document.xml"));
    if (part != nullptr && same == part) seen.Say("one part under both names");
}

void GetWithBackslashes(Stage& stage, Transcript& seen) {
    seen.SayPart(stage.package->GetPart(opc::PartUri(u"word\\styles.xml")));
}

void GetMissing(Stage& stage, Transcript& seen) {
    seen.SayPart(stage.package->GetPart(opc::PartUri(u"word/missing.xml")));
    seen.SayPart(stage.package->GetPart(opc::PartUri(u"")));
    seen.SayPart(stage.package->GetPart(opc::PartUri(u"http://example.com/")));
}

void FindLoaded(Stage& stage, Transcript& seen) {
    seen.SayPart(stage.Find(u"/word/document.xml"));
    seen.SayPart(stage.Find(u"word/missing.xml"));
}

void ClosePart(Stage& stage, Transcript& seen) {
    const Handle<opc::Package> package = opc::Package::Open(stage.path.c_str());
    if (!package) return;
    opc::Part* document = package->FindPart(u"word/document.xml");
    if (document == nullptr) return;
    document->Close();
    seen.SayPart(document);
    seen.SayStream(*document);
}

}  // namespace

std::vector<Scenario> RelationshipScenarios() {
    constexpr Start kFile = Start::kFile, kOpen = Start::kOpen, kLoaded = Start::kLoaded;
    return {
        {"KeepsTheFirstOfRepeatedIds", "header.xml", RepeatedIds, kFile, FollowAll},
        {"KeepsTheFirstOfRepeatedTypes", "rId2", RepeatedTypes, kFile, FollowAll},
        {"FollowsTargetsThatClimb", "part custom/item.xml", ClimbingTargets, kFile, FollowAll},
        {"FollowsNoForeignTarget", "mailto:", ForeignTargets, kFile, FollowAll},
        {"ReadsManyRelationships", "rId19", ManyRelationships, kFile, FollowAll},
        {"FindsRelationshipsById", "has it: 1", Document, kLoaded, FindById},
        {"FindsRelationshipsByType", "styles", Document, kLoaded, FindByType},
        {"FindsARangeOfRelationships", "rId2", Document, kLoaded, FindRange},
        {"TellsWhatExists", "styles.xml exists", Unrelated, kLoaded, TellWhatExists},
        {"GetsAPartUnderTwoNames", "one part", Document, kOpen, GetUnderTwoNames},
        {"GetsAPartNamedWithBackslashes", "styles.xml", Document, kOpen, GetWithBackslashes},
        {"GetsNoMissingPart", nullptr, Document, kOpen, GetMissing},
        {"FindsLoadedParts", "rId3", Document, kLoaded, FindLoaded},
        {"ClosesAPart", "text/main", Document, kFile, ClosePart},
    };
}

}  // namespace vexpa_test
