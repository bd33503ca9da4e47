// VX401, VX404 and VX407: where relationships lead.

#include <string>
#include <string_view>

#include "tool/check/CheckedSources.h"
#include "tool/check/Groups.h"
#include "tool/check/PartNames.h"
#include "tool/check/Rfc3986.h"
#include "tool/check/Shown.h"
#include "tool/model/PartWalk.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

bool IsUri(const opc::PartUri& uri) {
    return !(uri.scheme.empty() && uri.opaque.empty() && uri.registryName.empty() && uri.host.empty() &&
             uri.userInfo.empty() && uri.path.empty() && uri.query.empty() && uri.fragment.empty());
}

// A target and what the library makes of it.
struct Target {
    const opc::PartUri& uri;
    std::string text;   // as written, UTF-8
    std::string entry;  // that is looked for
    bool hasPart;
};

// What is odd about an internal target; empty when nothing is.
std::string OddityOf(const Subject& subject, const Target& target) {
    if (target.text.starts_with('#')) return "is only a fragment";
    if (!IsUri(target.uri)) return "is no URI reference";
    if (!target.uri.scheme.empty()) return "is written as an absolute URI, but is internal";
    if (!target.uri.fragment.empty()) return "has a fragment, which stays in the part name";
    if (!target.uri.query.empty()) return "has a query, which stays in the part name";
    if (target.text.find('\\') != std::string::npos) return "is written with backslashes";
    const std::string plain = WithoutEscapes(target.entry);
    if (target.hasPart || plain == target.entry || !subject.Has(plain)) return {};
    return "has escapes, which are not decoded; there is an entry " + Shown(plain);
}

void ReportOddity(const CheckedSource& source, const opc::Relationship& relationship,
                  const std::string& oddity, Findings& findings) {
    findings.Add(FindingId::OddTarget, [&](Finding& finding) {
        Locate(source, relationship, finding);
        finding.step = StepThatReads(source);
        finding.cause = "the target of " + NameOf(relationship) + " " + oddity + ": " +
                        Shown(relationship.GetTarget().name);
    });
}

void ReportDangling(const Subject& subject, const CheckedSource& source,
                    const opc::Relationship& relationship, const Target& target, Findings& findings) {
    findings.Add(FindingId::DanglingTarget, [&](Finding& finding) {
        Locate(source, relationship, finding);
        const bool isNull = FoldedCase(target.text) == "null" || target.text.ends_with("/NULL");
        finding.cause = NameOf(relationship) + " has no part: " + Shown(target.entry) +
                        (isNull ? ", which a writer left for what it could not save" : "");
    });
    Finding missing;
    missing.step = StepThatReads(source);
    Locate(source, relationship, missing);
    ReportVariant(subject, target.entry, missing, findings);
}

// Only where nothing odd about the target explains the difference.
void CompareResolutions(const Subject& subject, const CheckedSource& source,
                        const opc::Relationship& relationship, const Target& target,
                        Findings& findings) {
    if (target.text.starts_with("//")) return;
    const std::string sourceName = ToUtf8(relationship.GetSource().name);
    const std::string byRfc = ResolveByRfc(sourceName, target.text).substr(1);
    if (byRfc == target.entry) return;
    findings.Add(FindingId::OtherResolution, [&](Finding& finding) {
        Locate(source, relationship, finding);
        finding.step = StepThatReads(source);
        finding.cause = "the target of " + NameOf(relationship) + ", " + Shown(target.text) +
                        ", leads to " + Shown(target.entry) + ", by RFC 3986 to " + Shown(byRfc) +
                        (subject.Has(byRfc) ? ", which is there" : "");
    });
}

void CheckInternal(const Subject& subject, const CheckedSource& source,
                   const opc::Relationship& relationship, Findings& findings) {
    const Target target{relationship.GetTarget(), ToUtf8(relationship.GetTarget().name),
                        EntryNameOf(relationship.GetResolvedTarget()),
                        TargetPart(*subject.model, relationship) != nullptr};
    if (target.text.empty()) return;  // told of as an attribute that is missing
    // The targets of the package are told of with what decides whether it opens.
    if (!target.hasPart && source.part != nullptr) {
        ReportDangling(subject, source, relationship, target, findings);
    }
    const std::string oddity = OddityOf(subject, target);
    if (!oddity.empty()) return ReportOddity(source, relationship, oddity, findings);
    CompareResolutions(subject, source, relationship, target, findings);
}

}  // namespace

void CheckTargets(const Subject& subject, Findings& findings) {
    for (const CheckedSource& source : CheckedSources(subject)) {
        for (const opc::Relationship* relationship : source.relationships) {
            const opc::PartUri& target = relationship->GetTarget();
            if (relationship->GetTargetMode() == opc::TargetModeInternal) {
                CheckInternal(subject, source, *relationship, findings);
            } else if (!target.name.empty() && !IsUri(target)) {
                ReportOddity(source, *relationship, "is no URI reference", findings);
            }
        }
    }
}

}  // namespace vexpa_tool
