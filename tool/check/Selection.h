// tool/check/Selection.h - the findings that a user wants to hear of.
#ifndef VEXPA_TOOL_CHECK_SELECTION_H_
#define VEXPA_TOOL_CHECK_SELECTION_H_

#include <string>
#include <string_view>
#include <vector>

#include "tool/check/Check.h"

namespace vexpa_tool {

// "VX305", or the beginning of several: "VX3", "VX3xx".
class FindingPattern {
public:
    explicit FindingPattern(std::string_view text);

    bool Matches(FindingId id) const;
    // Whether there is any such finding.
    bool IsKnown() const;

private:
    std::string start_;  // of an id; empty for what is no pattern
};

struct Selection {
    std::vector<FindingPattern> only;  // none: all
    std::vector<FindingPattern> ignored;

    bool Takes(FindingId id) const;

    // Leaves in the report what is selected. Whether it opens is not up to a selection.
    void Narrow(CheckReport& report) const;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_SELECTION_H_
