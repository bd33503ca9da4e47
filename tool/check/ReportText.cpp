#include "tool/check/ReportText.h"

#include <algorithm>
#include <map>

#include "tool/check/FindingTable.h"
#include "tool/check/Shown.h"
#include "tool/text/Appearance.h"
#include "tool/text/Local.h"
#include "tool/text/Size.h"
#include "tool/text/Table.h"

namespace vexpa_tool {

namespace {

constexpr std::size_t kSeverityWidth = 7;
constexpr std::size_t kIdWidth = 5;

Ink InkOf(Severity severity) {
    switch (severity) {
        case Severity::Error:
            return Ink::Bad;
        case Severity::Warning:
            return Ink::Notice;
        case Severity::Info:
            break;
    }
    return Ink::Plain;
}

// "word/document.xml:12:5: "
std::string PlaceText(const Finding& finding) {
    if (finding.entry.empty()) return {};
    std::string place = Shown(finding.entry);
    if (finding.line) place.append(":").append(std::to_string(*finding.line));
    if (finding.column) place.append(":").append(std::to_string(*finding.column));
    return place.append(": ");
}

std::string StepLine(const Finding& stop) {
    const bool isLast = stop.id == FindingId::LastTargetMissing || stop.id == FindingId::LastIsExternal;
    return std::string("opening stopped at the ") + StepText(stop.step) +
           (isLast ? " (the last one decides)" : "");
}

// All findings of an id and a severity stand together, the most severe first.
using Group = std::vector<const Finding*>;

std::vector<Group> GroupsOf(const std::vector<Finding>& findings) {
    std::vector<Group> groups;
    std::map<std::pair<FindingId, Severity>, std::size_t> places;
    for (const Finding& finding : findings) {
        const auto [place, isNew] = places.try_emplace({finding.id, finding.severity}, groups.size());
        if (isNew) groups.emplace_back();
        groups[place->second].push_back(&finding);
    }
    return groups;
}

std::uint64_t CountOf(const FindingCounts& counts, const Finding& finding) {
    const auto found = counts.find({finding.id, finding.severity});
    return found == counts.end() ? 0 : found->second;
}

std::size_t ShownOf(const Group& group, bool isAll) {
    return isAll ? group.size() : std::min(group.size(), kMostShown);
}

// "word/document.xml: header (3)"
std::string ItemText(const FindingItem& item) {
    std::string text = item.entry.empty() ? std::string() : Shown(item.entry);
    if (!text.empty() && !item.name.empty()) text += ": ";
    if (!item.name.empty()) text += Shown(item.name);
    return item.count ? text + " (" + GroupedDigits(*item.count) + ")" : text;
}

// What a cause has no room for.
void WriteItems(const std::string& lead, const Finding& finding, Output& out) {
    if (finding.namesAllItems) return;
    for (const FindingItem& item : finding.items) out.WriteLine(lead + ItemText(item));
    const std::uint64_t more = finding.itemCount - finding.items.size();
    if (more != 0) out.WriteLine(lead + "and " + GroupedDigits(more) + " more");
}

void WriteGroup(const Group& group, std::uint64_t count, bool isAll, Output& out) {
    const Finding& first = *group.front();
    const std::size_t shown = ShownOf(group, isAll);
    const std::string indent(2 + kSeverityWidth + 1, ' ');
    for (std::size_t i = 0; i < shown; ++i) {
        const std::string severity = Padded(SeverityText(first.severity), kSeverityWidth);
        out.WriteLine("  " + Inked(InkOf(first.severity), severity) + " " + IdText(first.id) + "  " +
                      PlaceText(*group[i]) + group[i]->cause);
        if (isAll) WriteItems(indent + Padded("", kIdWidth) + "  ", *group[i], out);
    }
    if (count > shown) {
        out.WriteLine(indent + Padded("", kIdWidth) + "  and " + GroupedDigits(count - shown) +
                      " more");
    }
    if (first.severity == Severity::Info) return;
    out.WriteLine(indent + Inked(Ink::Faint, Padded("hint", kIdWidth) + "  " + first.hint));
}

std::string SummaryText(const FindingCounts& counts) {
    const std::uint64_t errors = CountOf(counts, Severity::Error);
    const std::uint64_t warnings = CountOf(counts, Severity::Warning);
    const std::uint64_t infos = CountOf(counts, Severity::Info);
    const std::uint64_t all = errors + warnings + infos;
    if (all == 0) return "no findings";
    return Counted(all, "finding: ", "findings: ") + Counted(errors, "error", "errors") + ", " +
           Counted(warnings, "warning", "warnings") + ", " + GroupedDigits(infos) + " info";
}

}  // namespace

std::uint64_t CountOf(const FindingCounts& counts, Severity severity) {
    std::uint64_t total = 0;
    for (const auto& [kind, count] : counts) total += kind.second == severity ? count : 0;
    return total;
}

std::string ReasonText(const Finding& finding) {
    return IdText(finding.id) + " " + PlaceText(finding) + finding.cause;
}

void WriteReport(const std::string& fileName, const CheckReport& report, bool isAll, Output& out) {
    out.WriteLine(Inked(Ink::Strong, PrintableLocal(fileName)) + ": " +
                  (report.opens ? Inked(Ink::Good, "opens") : Inked(Ink::Bad, "does not open")));
    out.WriteLine("");
    if (const Finding* stop = report.Stop()) out.WriteLine("  " + StepLine(*stop));
    for (const Group& group : GroupsOf(report.findings)) {
        WriteGroup(group, CountOf(report.counts, *group.front()), isAll, out);
    }
    if (!report.findings.empty()) out.WriteLine("");
    out.WriteLine(SummaryText(report.counts));
}

void WriteBriefReport(const std::string& fileName, const CheckReport& report, bool isAll, Output& out) {
    const std::string name = Inked(Ink::Strong, PrintableLocal(fileName)) + ": ";
    if (!report.opens && report.Stop() == nullptr) {
        out.WriteLine(name + Inked(Ink::Bad, "does not open"));
    }
    for (const Group& group : GroupsOf(report.findings)) {
        const Finding& first = *group.front();
        if (first.severity == Severity::Info && !isAll) continue;
        const std::string lead =
            name + Inked(InkOf(first.severity), SeverityText(first.severity)) + " ";
        const std::size_t shown = ShownOf(group, isAll);
        for (std::size_t i = 0; i < shown; ++i) {
            const Finding& finding = *group[i];
            out.WriteLine(lead + IdText(finding.id) + " " +
                          (finding.stopsOpening ? "does not open: " : "") + PlaceText(finding) +
                          finding.cause);
            if (isAll) WriteItems(lead + IdText(first.id) + "   ", finding, out);
        }
        const std::uint64_t count = CountOf(report.counts, first);
        if (count <= shown) continue;
        out.WriteLine(lead + IdText(first.id) + " and " + GroupedDigits(count - shown) + " more");
    }
}

}  // namespace vexpa_tool
