// VX405, VX604, VX605 and VX607: the kinds of relationships.

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tool/check/CheckedSources.h"
#include "tool/check/Groups.h"
#include "tool/check/PartNames.h"
#include "tool/check/RepeatedTypes.h"
#include "tool/check/Shown.h"
#include "tool/check/WordCounts.h"
#include "tool/model/RelationshipTypeNames.h"
#include "tool/model/StrictTypes.h"
#include "tool/text/Size.h"
#include "tool/text/Unicode.h"
#include "vexpa/base/Utf16.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

constexpr std::size_t kMostWords = 6;

// The ends of the types that have a number, in lower case.
std::set<std::string> KnownTails() {
    std::set<std::string> tails;
    for (std::size_t i = 0; i < kRelationshipTypeNameCount; ++i) {
        const auto id = static_cast<opc::RelationshipTypeId>(i);
        tails.insert(TypeTail(tarn::CopyText(opc::GetRelationshipTypeUri(id))));
    }
    return tails;
}

// The end of a type without a number; all of it where it ends like one that has one, save with the
// types of Strict documents, which are told of as such.
std::string UnknownTypeWord(const opc::Relationship& relationship) {
    static const std::set<std::string> known = KnownTails();
    std::string tail = TypeTail(relationship);
    if (known.count(FoldedCase(tail)) == 0 || IsStrictType(relationship)) return tail;
    return Shown(tarn::CopyText(relationship.GetType()));
}

// What code or other documents the package holds.
class ActiveContent {
public:
    void Look(const opc::Relationship& relationship) {
        if (relationship.GetTargetMode() == opc::TargetModeExternal) return;
        switch (MeantType(relationship)) {
            case opc::RelTypeVbaProject:
                ++macros_;
                break;
            case opc::RelTypeControl:
                ++controls_;
                break;
            case opc::RelTypeOleObject:
                ++objects_;
                break;
            case opc::RelTypePackage:
                ++packages_;
                break;
            default:
                break;
        }
    }

    void Report(Findings& findings) const {
        ShownList list(4);
        Add(macros_, "macro project", "macro projects", list);
        Add(controls_, "ActiveX control", "ActiveX controls", list);
        Add(objects_, "OLE object", "OLE objects", list);
        Add(packages_, "embedded package", "embedded packages", list);
        if (list.Count() == 0) return;
        findings.Add(FindingId::ActiveContent,
                     [&](Finding& finding) { finding.cause = "holds " + list.Text(); });
    }

private:
    static void Add(std::uint64_t count, const char* one, const char* several, ShownList& list) {
        if (count != 0) list.Add(Counted(count, one, several));
    }

    std::uint64_t macros_ = 0, controls_ = 0, objects_ = 0, packages_ = 0;
};

// What editors load without being asked; null for what waits for a click.
const char* LoadedAs(opc::RelationshipTypeId type) {
    switch (type) {
        case opc::RelTypeAttachedTemplate:
            return "the attached template";
        case opc::RelTypeOleObject:
            return "a linked object";
        case opc::RelTypeFrame:
            return "a frame";
        case opc::RelTypeSubDocument:
            return "a sub-document";
        case opc::RelTypeAfChunk:
            return "an imported document";
        case opc::RelTypeMailMergeSource:
        case opc::RelTypeMailMergeHeaderSource:
            return "a data source";
        case opc::RelTypeImage:
            return "a linked image";
        default:
            return nullptr;
    }
}

// On another machine: by a URL, or by the name of a server.
bool IsRemote(std::string_view target) {
    const std::string folded = FoldedCase(target);
    for (const std::string_view start : {"http:", "https:", "ftp:", "\\\\", "//", "mhtml:", "file:////",
                                         "file:///\\\\", "file:\\\\"}) {
        if (folded.starts_with(start)) return true;
    }
    constexpr std::string_view kFile = "file://";
    return folded.starts_with(kFile) && folded.size() > kFile.size() && folded[kFile.size()] != '/';
}

void CheckLoaded(const CheckedSource& source, const opc::Relationship& relationship,
                 Findings& findings) {
    const char* what = LoadedAs(MeantType(relationship));
    if (what == nullptr) return;
    const std::string target = ToUtf8(relationship.GetTarget().name);
    const bool isRemote = IsRemote(target);
    findings.Add(FindingId::LoadedFromOutside, isRemote ? Severity::Warning : Severity::Info,
                 [&](Finding& finding) {
                     Locate(source, relationship, finding);
                     finding.cause = std::string(what) + " lies " +
                                     (isRemote ? "on another machine" : "outside") + ": " +
                                     Shown(target);
                 });
}

void ReportExternal(const WordCounts& external, Findings& findings) {
    if (external.IsEmpty()) return;
    findings.Add(FindingId::ExternalTargets, [&](Finding& finding) {
        finding.cause = Counted(external.Total(), "external target: ", "external targets: ") +
                        external.Text(kMostWords);
        finding.namesAllItems = external.IsWhole(kMostWords);
        external.AddItems(findings, finding);
    });
}

void ReportUnknown(const WordCounts& unknown, Findings& findings) {
    if (unknown.IsEmpty()) return;
    findings.Add(FindingId::UnknownType, [&](Finding& finding) {
        finding.cause = Counted(unknown.Total(), "relationship", "relationships") + " of " +
                        unknown.WordsText("type", "types") +
                        " that the library has no number for: " + unknown.Text(kMostWords);
        finding.namesAllItems = unknown.IsWhole(kMostWords);
        unknown.AddItems(findings, finding);
    });
}

}  // namespace

void CheckRelationshipTypes(const Subject& subject, Findings& findings) {
    RepeatedTypes repeated;
    ActiveContent active;
    WordCounts external, unknown;
    const std::vector<CheckedSource> sources = CheckedSources(subject);
    for (const CheckedSource& source : sources) {
        repeated.Look(source);
        for (const opc::Relationship* relationship : source.relationships) {
            active.Look(*relationship);
            const std::string type = TypeTail(*relationship);
            if (relationship->GetTypeId() == opc::RelTypeUnknown)
                unknown.Add(UnknownTypeWord(*relationship));
            if (relationship->GetTargetMode() == opc::TargetModeInternal) continue;
            external.Add(type);
            CheckLoaded(source, *relationship, findings);
        }
    }
    repeated.Report(findings);
    active.Report(findings);
    ReportUnknown(unknown, findings);
    ReportExternal(external, findings);
}

}  // namespace vexpa_tool
