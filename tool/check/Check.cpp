#include "tool/check/Check.h"

#include <algorithm>

#include "tool/check/Groups.h"
#include "tool/run/Interrupt.h"

namespace vexpa_tool {

namespace {

void LookAtTheRest(const Subject& subject, Findings& findings) {
    for (const auto check :
         {CheckLayout, CheckEntryNames, CheckEntries, CheckTypesOfParts, CheckRelationshipStreams,
          CheckTargets, CheckRelationshipTypes, CheckReach}) {
        StopIfInterrupted();
        check(subject, findings);
    }
    if (subject.options.isDeep) CheckPartData(subject, findings);
}

}  // namespace

void ReplayOpening(Subject& subject, Findings& findings) {
    CheckFileItself(subject, findings);
    CheckDirectory(subject, findings);
    CheckContentTypes(subject, findings);
    CheckPackageRelationships(subject, findings);
    if (!subject.options.isOpeningOnly) subject.MakeModel();
    CheckPackageTargets(subject, findings);
    if (subject.Opens() || findings.Stop() != nullptr) return;
    findings.AddStop(FindingId::UnknownReason, [](Finding& finding) {
        finding.cause = "the library refuses it, and no step of opening shows why";
    });
}

const Finding* CheckReport::Stop() const {
    const auto found = std::find_if(findings.begin(), findings.end(),
                                    [](const Finding& finding) { return finding.stopsOpening; });
    return found == findings.end() ? nullptr : &*found;
}

CheckReport CheckPackage(const InputFile& file, const CheckOptions& options) {
    Subject subject(file, options);
    Findings findings(subject.Opens(), options.mostItems);
    ReplayOpening(subject, findings);
    if (!options.isOpeningOnly) LookAtTheRest(subject, findings);
    CheckReport report;
    report.opens = subject.Opens();
    report.counts = findings.Counts();
    report.findings = findings.TakeSorted();
    return report;
}

}  // namespace vexpa_tool
