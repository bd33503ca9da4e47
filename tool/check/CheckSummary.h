// tool/check/CheckSummary.h - what checking many files has come to.
#ifndef VEXPA_TOOL_CHECK_CHECKSUMMARY_H_
#define VEXPA_TOOL_CHECK_CHECKSUMMARY_H_

#include <cstdint>
#include <map>
#include <mutex>

#include "tool/check/Check.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

// Threads  Reports may be added from several at once.
class CheckSummary {
public:
    void Add(const CheckReport& report);

    // How many open, then how many files have each finding: errors and warnings, or all.
    void Write(bool isAll, Output& out) const;

private:
    std::mutex mutex_;
    std::uint64_t opened_ = 0;
    std::uint64_t refused_ = 0;
    FindingCounts files_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_CHECKSUMMARY_H_
