#include "tool/check/FindingHelp.h"

#include <utility>
#include <vector>

#include "tool/check/FindingTable.h"
#include "tool/check/Selection.h"
#include "tool/text/JsonText.h"
#include "tool/text/Table.h"
#include "tool/text/Wrap.h"

namespace vexpa_tool {

namespace {

std::string StepsText(FindingId id) {
    std::string text;
    for (const Step step : StepsOf(id))
        text += (text.empty() ? "" : " or ") + std::string(StepText(step));
    return text;
}

std::string Explain(const FindingKind& kind) {
    return IdText(kind.id) + "  " + kind.title + "\n" + SeverityText(kind.severity) +
           ", found at the step: " + StepsText(kind.id) + "\n\n" + Wrapped(kind.text, "  ", "  ") +
           "\n" + Wrapped(kind.hint, "  hint: ", "        ");
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

std::vector<const FindingKind*> KindsOf(const std::string& word) {
    const FindingPattern pattern(word == "findings" ? "VX" : word);
    std::vector<const FindingKind*> kinds;
    for (const FindingKind& kind : kFindingTable) {
        if (pattern.Matches(kind.id)) kinds.push_back(&kind);
    }
    return kinds;
}

Json KindJson(const FindingKind& kind) {
    Json steps = Json::array();
    for (const Step step : StepsOf(kind.id)) steps.push_back(StepText(step));
    return {{"id", IdText(kind.id)},     {"severity", SeverityText(kind.severity)},
            {"steps", std::move(steps)}, {"title", kind.title},
            {"text", kind.text},         {"hint", kind.hint}};
}

}  // namespace

std::string FindingHelp(const std::string& word) {
    const std::vector<const FindingKind*> kinds = KindsOf(word);
    if (kinds.empty()) return {};
    return kinds.size() == 1 ? Explain(*kinds.front()) : List(kinds);
}

std::string FindingHelpJson(const std::string& word) {
    Json list = Json::array();
    for (const FindingKind* kind : KindsOf(word)) list.push_back(KindJson(*kind));
    return list.empty() ? std::string() : JsonText({{"findings", std::move(list)}}) + "\n";
}

}  // namespace vexpa_tool
