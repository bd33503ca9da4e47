// tool/check/Findings.h - collects what a check finds.
#ifndef VEXPA_TOOL_CHECK_FINDINGS_H_
#define VEXPA_TOOL_CHECK_FINDINGS_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "tool/check/Finding.h"
#include "tool/check/FindingTable.h"

namespace vexpa_tool {

// How often each finding was made, by severity.
using FindingCounts = std::map<std::pair<FindingId, Severity>, std::uint64_t>;

class Findings {
public:
    // Of one id. A hostile package may have a finding for each of a million entries: what comes
    // after these is counted, and nothing is made for it.
    static constexpr std::size_t kMostKept = 1000;

    // Of each finding at most so many items are kept.
    explicit Findings(bool opens, std::size_t mostItems = 0) : opens_(opens), mostItems_(mostItems) {}

    // Counts a finding. When it is kept, fill(Finding&) gives it at least its cause; what the
    // table says about its id stands there already.
    template <class Fill>
    void Add(FindingId id, Severity severity, const Fill& fill) {
        if (!Count(id, severity)) return;
        Finding& finding = Make(id, severity);
        fill(finding);
    }
    template <class Fill>
    void Add(FindingId id, const Fill& fill) {
        Add(id, KindOf(id).severity, fill);
    }

    // The same for what keeps a package from opening. The first of them is where opening stopped;
    // the others would stop it next. A package that opens has none.
    template <class Fill>
    void AddStop(FindingId id, const Fill& fill) {
        if (opens_) return;
        const bool isFirst = Stop() == nullptr;
        Add(id, Severity::Error, [&](Finding& finding) {
            finding.stopsOpening = isFirst;
            fill(finding);
        });
    }

    // For fill: one more of those that the finding sums up.
    void AddItem(Finding& finding, FindingItem item) const {
        if (++finding.itemCount <= mostItems_) finding.items.push_back(std::move(item));
    }

    // [borrowed] The finding that stops the opening, or null.
    const Finding* Stop() const;

    const FindingCounts& Counts() const noexcept { return counts_; }

    // What stops the opening, then the others by step, then severity, then as they were found.
    std::vector<Finding> TakeSorted();

private:
    bool Count(FindingId id, Severity severity);
    Finding& Make(FindingId id, Severity severity);

    bool opens_;
    std::size_t mostItems_;
    std::vector<Finding> kept_;
    std::map<FindingId, std::size_t> keptCounts_;
    FindingCounts counts_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_FINDINGS_H_
