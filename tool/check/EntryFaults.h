// tool/check/EntryFaults.h - why an entry that is there cannot be used.
#ifndef VEXPA_TOOL_CHECK_ENTRYFAULTS_H_
#define VEXPA_TOOL_CHECK_ENTRYFAULTS_H_

#include <optional>
#include <string>
#include <string_view>

#include "tool/check/Findings.h"
#include "tool/check/Subject.h"
#include "tool/check/XmlScan.h"
#include "tool/container/EntryDamage.h"

namespace vexpa_tool {

// "its data is encrypted"
std::string DamageText(EntryDamage damage);

// The entry cannot be extracted: fills in where it lies and why.
void ExplainUnreadable(const Subject& subject, std::string_view entry, Finding& finding);

// The entry's XML does not parse: fills in where it breaks off and why. Without a fault the
// library's parser refuses what is well-formed.
void ExplainFault(std::string_view entry, std::string_view bytes, const std::optional<XmlFault>& fault,
                  Finding& finding);

// The step of opening that reads it: content types, the relationships of the package, or those of a
// part.
Step StepThatReads(std::string_view entry);

// A place in an entry.
void Locate(std::string_view entry, const XmlPlace& place, Finding& finding);

struct RootName {
    std::string_view name;
    std::string_view uri;
};

// The finding `id`, unless the root is the usual one.
void CheckRoot(std::string_view entry, const RootName& root, const RootName& usual, FindingId id,
               Findings& findings);

// VX206
void ReportDocumentType(std::string_view entry, Findings& findings);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_ENTRYFAULTS_H_
