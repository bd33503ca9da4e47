// tool/check/FindingTable.h - every finding that there is, explained.
#ifndef VEXPA_TOOL_CHECK_FINDINGTABLE_H_
#define VEXPA_TOOL_CHECK_FINDINGTABLE_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tool/check/Finding.h"

namespace vexpa_tool {

struct FindingKind {
    FindingId id;
    Severity severity;  // where nothing speaks for another one
    const char* title;  // a few words, for lists
    const char* text;   // a paragraph
    const char* hint;   // one sentence
};

inline constexpr std::size_t kFindingKinds = 70;

// By id.
extern const FindingKind kFindingTable[kFindingKinds];

const FindingKind& KindOf(FindingId id);

// "VX305", and back; nothing for any other text.
std::string IdText(FindingId id);
const FindingKind* FindKind(std::string_view text);

// The step that its number tells, and all in which the finding may be made.
Step StepOf(FindingId id);
std::vector<Step> StepsOf(FindingId id);

const char* SeverityText(Severity severity);  // "error"
const char* StepText(Step step);              // "package relationships"

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_FINDINGTABLE_H_
