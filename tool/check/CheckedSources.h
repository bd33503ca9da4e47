// tool/check/CheckedSources.h - the package and its parts as those who hold relationships.
#ifndef VEXPA_TOOL_CHECK_CHECKEDSOURCES_H_
#define VEXPA_TOOL_CHECK_CHECKEDSOURCES_H_

#include <string>
#include <vector>

#include "tool/check/Findings.h"
#include "tool/check/Subject.h"

namespace vexpa_tool {

// All as the library answers it, about the model.
struct CheckedSource {
    tarn::opc::Part* part;  // null for the package
    std::string entry;      // where its findings stand: the part's entry, or _rels/.rels
    // In the order of the Ids; what the model has been given besides is left out.
    std::vector<tarn::opc::Relationship*> relationships;
};

// The package, then each part that is reached. None without a model.
std::vector<CheckedSource> CheckedSources(const Subject& subject);

// "rId5 (thumbnail)"
std::string NameOf(const tarn::opc::Relationship& relationship);

// When its relationships are read.
Step StepThatReads(const CheckedSource& source);

// Where a finding about a relationship stands.
void Locate(const CheckedSource& source, const tarn::opc::Relationship& relationship, Finding& finding);

// VX305, when an entry differs from the missing one only in letter case. The relationship is that of
// the finding `missing`.
void ReportVariant(const Subject& subject, const std::string& missingEntry, const Finding& missing,
                   Findings& findings);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_CHECKEDSOURCES_H_
