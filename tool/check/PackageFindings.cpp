// VX3xx: _rels/.rels.

#include <algorithm>
#include <set>
#include <string>

#include "tool/check/CheckedSources.h"
#include "tool/check/EntryBytes.h"
#include "tool/check/EntryFaults.h"
#include "tool/check/Groups.h"
#include "tool/check/PartNames.h"
#include "tool/check/Shown.h"
#include "tool/model/StrictTypes.h"
#include "tool/text/Unicode.h"
#include "vexpa/base/Utf16.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

// "rId5 (thumbnail)"
std::string NameOf(const ScannedRelationship& relationship) {
    return Shown(relationship.id.value_or("")) + " (" +
           TypeTail(FromUtf8(relationship.type.value_or(""))) + ")";
}

bool IsExternal(const ScannedRelationship& relationship) {
    return relationship.targetMode && FoldedCase(*relationship.targetMode) == "external";
}

std::string TargetEntry(const ScannedRelationship& relationship) {
    return EntryNameOf(relationship.target.value_or(""));
}

// By the library where it can be asked; else as it looks for the parts of package targets.
bool HasPart(const Subject& subject, const ScannedRelationship& relationship) {
    if (subject.model == nullptr) return subject.Has(TargetEntry(relationship));
    const std::u16string target = FromUtf8(relationship.target.value_or(""));
    return subject.model->GetPart(opc::PartUri(target.c_str())) != nullptr;
}

Finding Describe(const ScannedRelationship& relationship) {
    Finding finding;
    finding.step = Step::PackageRelationships;
    Locate(kRelationshipsEntry, relationship.place, finding);
    finding.relationship = relationship.id.value_or("");
    finding.target = relationship.target.value_or("");
    return finding;
}

void ReportMissing(const Subject& subject, const ScannedRelationship& relationship, bool isLast,
                   Findings& findings) {
    const bool isExternal = IsExternal(relationship);
    const std::string target = Shown(relationship.target.value_or(""));
    Finding about = Describe(relationship);
    const auto fill = [&](Finding& finding) {
        finding.entry = about.entry;
        finding.line = about.line;
        finding.column = about.column;
        finding.relationship = about.relationship;
        finding.target = about.target;
        finding.cause = std::string(isLast ? "the last relationship " : "") + NameOf(relationship) +
                        (isExternal ? " is external: " : " has no part: ") + target;
        about.stopsOpening = finding.stopsOpening;
    };
    if (isLast && isExternal) return findings.AddStop(FindingId::LastIsExternal, fill);
    if (isLast) findings.AddStop(FindingId::LastTargetMissing, fill);
    if (!isLast && !isExternal) findings.Add(FindingId::TargetMissing, fill);
    if (!isExternal) ReportVariant(subject, TargetEntry(relationship), about, findings);
}

// The end of the type; all of it where that would look like the type that is not there.
std::string DistinctType(const opc::Relationship& relationship) {
    const std::string tail = TypeTail(relationship);
    return FoldedCase(tail) == "officedocument" ? Shown(tarn::CopyText(relationship.GetType())) : tail;
}

// What a search for the main part finds.
void CheckMainPart(const Subject& subject, Findings& findings) {
    const std::vector<CheckedSource> sources = CheckedSources(subject);
    if (sources.empty() || sources.front().relationships.empty()) return;
    const std::vector<opc::Relationship*>& relationships = sources.front().relationships;
    if (subject.model->GetRelationshipByType(opc::RelTypeOfficeDocument) != nullptr) return;

    const bool isStrict = std::any_of(relationships.begin(), relationships.end(),
                                      [](const opc::Relationship* one) { return IsStrictType(*one); });
    findings.Add(
        isStrict ? FindingId::StrictDocument : FindingId::NoOfficeDocument, [&](Finding& finding) {
            finding.entry = kRelationshipsEntry;
            ShownList types;
            std::set<std::string> seen;
            for (const opc::Relationship* one : relationships) {
                const std::string type = DistinctType(*one);
                if (!seen.insert(type).second) continue;
                types.Add(type);
                if (!isStrict) findings.AddItem(finding, {{}, type});
            }
            finding.namesAllItems = isStrict || types.IsWhole();
            finding.cause = isStrict
                                ? "the types are those of Strict documents: a look-up by type id does "
                                  "not find the main part"
                                : "no officeDocument relationship, but " + types.Text();
        });
}

// Of an archive that is no package at all it is enough to say so.
bool IsNoPackage(const Subject& subject) {
    return !subject.Has(kContentTypesEntry) && !subject.Has(kRelationshipsEntry) &&
           subject.FindVariant(kContentTypesEntry) == nullptr &&
           subject.FindVariant(kRelationshipsEntry) == nullptr;
}

void ReportNoRelationships(const Subject& subject, Findings& findings) {
    findings.AddStop(FindingId::NoPackageRelationships, [&](Finding& finding) {
        const ContainerEntry* variant = subject.FindVariant(kRelationshipsEntry);
        finding.cause = "no entry " + std::string(kRelationshipsEntry);
        if (variant == nullptr) return;
        finding.cause += "; there is " + Shown(variant->name);
        finding.hint = "give the entry its exact name";
    });
}

}  // namespace

void CheckPackageRelationships(Subject& subject, Findings& findings) {
    if (!subject.HasDirectory() || IsNoPackage(subject)) return;
    const auto bytes = EntryBytes::Extract(subject.file.path, kRelationshipsEntry);
    if (!subject.Has(kRelationshipsEntry)) {
        ReportNoRelationships(subject, findings);
    } else if (!bytes) {
        findings.AddStop(FindingId::NoPackageRelationships, [&](Finding& finding) {
            ExplainUnreadable(subject, kRelationshipsEntry, finding);
        });
    } else if (RelationshipScan scan = ScanRelationships(bytes->Text()); !bytes->Parse()) {
        findings.AddStop(FindingId::NoPackageRelationships, [&](Finding& finding) {
            ExplainFault(kRelationshipsEntry, bytes->Text(), scan.fault, finding);
        });
    } else {
        subject.relationships = std::move(scan);
    }
}

void CheckPackageTargets(const Subject& subject, Findings& findings) {
    if (!subject.relationships) return;
    const std::vector<ScannedRelationship>& relationships = subject.relationships->relationships;
    for (const ScannedRelationship& relationship : relationships) {
        const bool isLast = &relationship == &relationships.back();
        if (subject.options.isOpeningOnly && !isLast) continue;
        if (!HasPart(subject, relationship)) ReportMissing(subject, relationship, isLast, findings);
    }
    if (subject.options.isOpeningOnly) return;
    if (relationships.empty()) {
        findings.Add(FindingId::EmptyRelationships, [](Finding& finding) {
            finding.entry = kRelationshipsEntry;
            finding.cause = "has no relationships, so no part can be reached";
        });
    }
    CheckMainPart(subject, findings);
}

}  // namespace vexpa_tool
