// VX403, VX406, VX408 and VX409: the relationship streams, in document order.

#include <set>
#include <string>

#include "tool/check/EntryBytes.h"
#include "tool/check/EntryFaults.h"
#include "tool/check/Groups.h"
#include "tool/check/PartNames.h"
#include "tool/check/Shown.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

void CheckIds(const std::string& stream, const RelationshipScan& scan, Findings& findings) {
    std::set<std::string> ids;
    for (const ScannedRelationship& relationship : scan.relationships) {
        const std::string id = relationship.id.value_or("");
        if (ids.insert(id).second || !relationship.id) continue;
        findings.Add(FindingId::RepeatedId, [&](Finding& finding) {
            Locate(stream, relationship.place, finding);
            finding.step = StepThatReads(stream);
            finding.relationship = id;
            finding.target = relationship.target.value_or("");
            finding.cause = "the Id " + Shown(id) + " occurs again; a look-up by Id answers the first";
        });
    }
}

const char* LackOf(const ScannedRelationship& relationship) {
    if (relationship.id.value_or("").empty()) return "Id";
    if (relationship.type.value_or("").empty()) return "Type";
    if (relationship.target.value_or("").empty()) return "Target";
    return nullptr;
}

void CheckAttributes(const std::string& stream, const RelationshipScan& scan, Findings& findings) {
    for (const ScannedRelationship& relationship : scan.relationships) {
        const char* lack = LackOf(relationship);
        if (lack == nullptr) continue;
        findings.Add(FindingId::IncompleteRelationship, [&](Finding& finding) {
            Locate(stream, relationship.place, finding);
            finding.step = StepThatReads(stream);
            finding.relationship = relationship.id.value_or("");
            finding.target = relationship.target.value_or("");
            finding.cause = "the relationship " + Shown(finding.relationship) + " has no " + lack;
        });
    }
}

void CheckStream(const std::string& stream, const RelationshipScan& scan, Findings& findings) {
    CheckIds(stream, scan, findings);
    CheckAttributes(stream, scan, findings);
    if (scan.hasDocumentType) ReportDocumentType(stream, findings);
    CheckRoot(stream, {scan.root, scan.rootNamespace},
              {"Relationships", "http://schemas.openxmlformats.org/package/2006/relationships"},
              FindingId::UnexpectedRelationshipsRoot, findings);
}

// The stream that belongs to a part, when there is one.
void CheckStreamOf(const Subject& subject, const opc::Part& part, Findings& findings) {
    const std::string stream = RelationshipsEntryOf(EntryNameOf(part.GetName()));
    if (!subject.Has(stream)) return;
    const auto bytes = EntryBytes::Extract(subject.file.path, stream);
    if (!bytes) {
        findings.Add(FindingId::MalformedRelationships,
                     [&](Finding& finding) { ExplainUnreadable(subject, stream, finding); });
        return;
    }
    const RelationshipScan scan = ScanRelationships(bytes->Text());
    const bool isLost = part.GetRelationships().empty() && !scan.relationships.empty();
    if (!scan.fault && !isLost) return CheckStream(stream, scan, findings);
    findings.Add(FindingId::MalformedRelationships,
                 [&](Finding& finding) { ExplainFault(stream, bytes->Text(), scan.fault, finding); });
}

// A stream that no part has: as it is spelled, it is never read.
void CheckStray(const Subject& subject, const ContainerEntry& entry, Findings& findings) {
    const std::string name(entry.name);
    const std::optional<std::string> source = SourceOf(name);
    if (!source || FoldedCase(name) == kRelationshipsEntry) return;
    const bool hasPart = subject.Has(*source);
    if (hasPart && RelationshipsEntryOf(*source) == name) return;
    const ContainerEntry* variant = hasPart ? nullptr : subject.FindVariant(*source);
    const bool isMissed = hasPart || variant != nullptr;
    const Severity severity = isMissed ? Severity::Warning : Severity::Info;
    findings.Add(FindingId::StrayRelationships, severity, [&](Finding& finding) {
        finding.entry = name;
        const std::string part = Shown(variant == nullptr ? std::string_view(*source) : variant->name);
        finding.cause = isMissed
                            ? "misses the part " + part + " by the case of its letters, and is not read"
                            : "there is no part " + part;
    });
}

}  // namespace

void CheckRelationshipStreams(const Subject& subject, Findings& findings) {
    if (subject.relationships) CheckStream(kRelationshipsEntry, *subject.relationships, findings);
    for (const opc::Part* part : subject.parts) CheckStreamOf(subject, *part, findings);
    if (!subject.HasDirectory()) return;
    for (const ContainerEntry& entry : subject.container->Entries())
        CheckStray(subject, entry, findings);
}

}  // namespace vexpa_tool
