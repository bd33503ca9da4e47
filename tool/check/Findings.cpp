#include "tool/check/Findings.h"

#include <algorithm>
#include <tuple>

namespace vexpa_tool {

bool Findings::Count(FindingId id, Severity severity) {
    ++counts_[{id, severity}];
    return ++keptCounts_[id] <= kMostKept;
}

Finding& Findings::Make(FindingId id, Severity severity) {
    Finding& finding = kept_.emplace_back();
    finding.id = id;
    finding.severity = severity;
    finding.step = StepOf(id);
    finding.hint = KindOf(id).hint;
    return finding;
}

const Finding* Findings::Stop() const {
    const auto found = std::find_if(kept_.begin(), kept_.end(),
                                    [](const Finding& finding) { return finding.stopsOpening; });
    return found == kept_.end() ? nullptr : &*found;
}

std::vector<Finding> Findings::TakeSorted() {
    std::stable_sort(kept_.begin(), kept_.end(), [](const Finding& a, const Finding& b) {
        return std::tuple(!a.stopsOpening, a.step, a.severity) <
               std::tuple(!b.stopsOpening, b.step, b.severity);
    });
    return std::move(kept_);
}

}  // namespace vexpa_tool
