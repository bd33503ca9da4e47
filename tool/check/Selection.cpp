#include "tool/check/Selection.h"

#include <algorithm>
#include <iterator>

#include "tool/check/FindingTable.h"

namespace vexpa_tool {

namespace {

char UpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool AnyMatches(const std::vector<FindingPattern>& patterns, FindingId id) {
    return std::any_of(patterns.begin(), patterns.end(),
                       [id](const FindingPattern& pattern) { return pattern.Matches(id); });
}

}  // namespace

FindingPattern::FindingPattern(std::string_view text) {
    constexpr std::string_view kPrefix = "VX";
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), UpperAscii);
    if (!upper.starts_with(kPrefix)) return;
    const std::size_t digits = upper.find_first_not_of("0123456789", kPrefix.size());
    const bool isRest =
        digits == std::string::npos ||
        (upper.size() == 5 && upper.find_first_not_of('X', digits) == std::string::npos);
    if (isRest) start_ = upper.substr(0, digits);
}

bool FindingPattern::Matches(FindingId id) const {
    return !start_.empty() && IdText(id).starts_with(start_);
}

bool FindingPattern::IsKnown() const {
    return std::any_of(std::begin(kFindingTable), std::end(kFindingTable),
                       [this](const FindingKind& kind) { return Matches(kind.id); });
}

bool Selection::Takes(FindingId id) const {
    return (only.empty() || AnyMatches(only, id)) && !AnyMatches(ignored, id);
}

void Selection::Narrow(CheckReport& report) const {
    std::erase_if(report.findings, [this](const Finding& finding) { return !Takes(finding.id); });
    std::erase_if(report.counts, [this](const auto& count) { return !Takes(count.first.first); });
}

}  // namespace vexpa_tool
