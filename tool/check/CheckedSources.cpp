#include "tool/check/CheckedSources.h"

#include "tool/check/PartNames.h"
#include "tool/check/Shown.h"
#include "tool/text/Unicode.h"
#include "vexpa/base/Utf16.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

std::vector<CheckedSource> CheckedSources(const Subject& subject) {
    std::vector<CheckedSource> sources;
    if (subject.model == nullptr) return sources;
    CheckedSource& package = sources.emplace_back();
    package.entry = kRelationshipsEntry;
    for (const auto& [id, relationship] : subject.model->GetRelationships()) {
        if (!Skeleton::IsAdded(*relationship)) package.relationships.push_back(relationship);
    }
    for (opc::Part* part : subject.parts) {
        const opc::RelationshipMap& relationships = part->GetRelationships();
        if (relationships.empty()) continue;
        CheckedSource& source = sources.emplace_back();
        source.part = part;
        source.entry = EntryNameOf(part->GetName());
        for (const auto& [id, relationship] : relationships)
            source.relationships.push_back(relationship);
    }
    return sources;
}

std::string NameOf(const opc::Relationship& relationship) {
    return Shown(tarn::CopyText(relationship.GetId())) + " (" + TypeTail(relationship) + ")";
}

Step StepThatReads(const CheckedSource& source) {
    return source.part == nullptr ? Step::PackageRelationships : Step::PartRelationships;
}

void Locate(const CheckedSource& source, const opc::Relationship& relationship, Finding& finding) {
    finding.entry = source.entry;
    finding.relationship = ToUtf8(tarn::CopyText(relationship.GetId()));
    finding.target = ToUtf8(relationship.GetTarget().name);
}

void ReportVariant(const Subject& subject, const std::string& missingEntry, const Finding& missing,
                   Findings& findings) {
    const ContainerEntry* variant = subject.FindVariant(missingEntry);
    if (variant == nullptr) return;
    const Severity severity = missing.stopsOpening ? Severity::Error : Severity::Warning;
    findings.Add(FindingId::CaseVariant, severity, [&](Finding& finding) {
        finding.step = missing.step;
        finding.entry = missing.entry;
        finding.relationship = missing.relationship;
        finding.target = missing.target;
        finding.cause = "an entry differs from the target only in letter case: " + Shown(variant->name);
    });
}

}  // namespace vexpa_tool
