// tool/check/Groups.h - the checks, in groups by the step of opening that they belong to.
#ifndef VEXPA_TOOL_CHECK_GROUPS_H_
#define VEXPA_TOOL_CHECK_GROUPS_H_

#include "tool/check/Findings.h"
#include "tool/check/Subject.h"

namespace vexpa_tool {

// VX0xx
void CheckFileItself(const Subject& subject, Findings& findings);

// VX1xx
void CheckDirectory(const Subject& subject, Findings& findings);   // why there is none
void CheckLayout(const Subject& subject, Findings& findings);      // and VX602
void CheckEntryNames(const Subject& subject, Findings& findings);  // and VX503, VX606, VX609
void CheckEntries(const Subject& subject, Findings& findings);     // and VX601, VX603, VX608

// VX2xx. The first reads the rules, the second needs the model.
void CheckContentTypes(Subject& subject, Findings& findings);
void CheckTypesOfParts(const Subject& subject, Findings& findings);

// VX3xx. The first reads the relationships, the second needs the model.
void CheckPackageRelationships(Subject& subject, Findings& findings);
void CheckPackageTargets(const Subject& subject, Findings& findings);

// VX4xx; VX604, VX605 and VX607 go over the same relationships.
void CheckRelationshipStreams(const Subject& subject, Findings& findings);
void CheckTargets(const Subject& subject, Findings& findings);
void CheckRelationshipTypes(const Subject& subject, Findings& findings);
void CheckReach(const Subject& subject, Findings& findings);

// VX5xx and VX7xx, and VX112
void CheckPartData(const Subject& subject, Findings& findings);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_GROUPS_H_
