#include "tool/check/FindingHelp.h"

#include <string_view>
#include <vector>

#include "tool/check/FindingTable.h"
#include "tool/check/Selection.h"
#include "tool/text/Table.h"

namespace vexpa_tool {

namespace {

constexpr std::size_t kWidth = 78;

// Lines of at most kWidth columns, broken at blanks. ASCII.
std::string Wrapped(std::string_view text, const std::string& first, const std::string& indent) {
    std::string lines;
    std::string line = first;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        if (line.size() + 1 + word.size() > kWidth && line.size() > indent.size()) {
            lines += line + "\n";
            line = indent;
        }
        if (line.size() > indent.size() && line.back() != ' ') line += ' ';
        line += word;
    }
    return lines + line + "\n";
}

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
