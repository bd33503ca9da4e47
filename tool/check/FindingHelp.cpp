#include "tool/check/FindingHelp.h"

#include <vector>

#include "tool/check/FindingTable.h"
#include "tool/check/Selection.h"
#include "tool/text/Table.h"
#include "tool/text/Wrap.h"

namespace vexpa_tool {

namespace {

std::string Explain(const FindingKind& kind) {
    return IdText(kind.id) + "  " + kind.title + "\n" + SeverityText(kind.severity) +
           ", found at the step: " + StepText(StepOf(kind.id)) + "\n\n" +
           Wrapped(kind.text, "  ", "  ") + "\n" + Wrapped(kind.hint, "  hint: ", "        ");
}

std::string List(const std::vector<const FindingKind*>& kinds) {
    Table table;
    for (const FindingKind* kind : kinds) {
        table.Add({IdText(kind->id), SeverityText(kind->severity), kind->title});
    }
    std::string text;
    for (const std::string& line : table.Lines()) text += line + "\n";
    return text;
}

}  // namespace

std::string FindingHelp(const std::string& word) {
    const FindingPattern pattern(word == "findings" ? "VX" : word);
    std::vector<const FindingKind*> kinds;
    for (const FindingKind& kind : kFindingTable) {
        if (pattern.Matches(kind.id)) kinds.push_back(&kind);
    }
    if (kinds.empty()) return {};
    return kinds.size() == 1 ? Explain(*kinds.front()) : List(kinds);
}

}  // namespace vexpa_tool
