// tool/check/Check.h - checks a package: whether it opens, why not, and what will hurt an importer.
#ifndef VEXPA_TOOL_CHECK_CHECK_H_
#define VEXPA_TOOL_CHECK_CHECK_H_

#include <string>
#include <vector>

#include "tool/check/Findings.h"
#include "tool/check/Subject.h"

namespace vexpa_tool {

struct CheckReport {
    bool opens = false;             // as the library says
    std::vector<Finding> findings;  // by step, then severity; of each id the first ones
    FindingCounts counts;           // all of them

    // [borrowed] Why it does not open; null when it does.
    const Finding* Stop() const;
};

// The steps of opening, in their order: the first that fails is where opening stopped.
void ReplayOpening(Subject& subject, Findings& findings);

CheckReport CheckPackage(const InputFile& file, const CheckOptions& options);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_CHECK_H_
