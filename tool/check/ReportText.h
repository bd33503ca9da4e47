// tool/check/ReportText.h - a check's report for people.
#ifndef VEXPA_TOOL_CHECK_REPORTTEXT_H_
#define VEXPA_TOOL_CHECK_REPORTTEXT_H_

#include <string>

#include "tool/check/Check.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

// Of the findings with one id the first few, unless all are wanted.
inline constexpr std::size_t kMostShown = 5;

// The report of the one file that was asked for: the answer, the reason, findings and hints.
void WriteReport(const std::string& fileName, const CheckReport& report, bool isAll, Output& out);

// Of one file among several: a line for each finding, information only if all is wanted.
void WriteBriefReport(const std::string& fileName, const CheckReport& report, bool isAll, Output& out);

// "VX301 _rels/.rels:1:80: the last relationship rId5 (thumbnail) has no part: a.jpeg"
std::string ReasonText(const Finding& finding);

std::uint64_t CountOf(const FindingCounts& counts, Severity severity);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_REPORTTEXT_H_
