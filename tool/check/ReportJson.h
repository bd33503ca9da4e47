// tool/check/ReportJson.h - a check's report for programs.
#ifndef VEXPA_TOOL_CHECK_REPORTJSON_H_
#define VEXPA_TOOL_CHECK_REPORTJSON_H_

#include "tool/check/Check.h"
#include "tool/text/JsonText.h"

namespace vexpa_tool {

// The members of a report, as they are for a package without findings.
Json EmptyReportJson();

Json FindingJson(const Finding& finding);

void FillReportJson(const CheckReport& report, Json& json);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_REPORTJSON_H_
