#include "tool/check/ReportJson.h"

#include <utility>

#include "tool/check/FindingTable.h"
#include "tool/check/ReportText.h"

namespace vexpa_tool {

namespace {

Json TextOrNull(const std::string& text) {
    return text.empty() ? Json() : Json(text);
}

Json NumberOrNull(const std::optional<std::uint64_t>& number) {
    return number ? Json(*number) : Json();
}

Json ItemsJson(const std::vector<FindingItem>& items) {
    Json list = Json::array();
    for (const FindingItem& item : items) {
        list.push_back({{"entry", TextOrNull(item.entry)},
                        {"name", TextOrNull(item.name)},
                        {"count", NumberOrNull(item.count)}});
    }
    return list;
}

Json CountsJson(const FindingCounts& counts) {
    Json json;
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Info}) {
        json[SeverityText(severity)] = CountOf(counts, severity);
    }
    return json;
}

}  // namespace

Json EmptyReportJson() {
    return {{"stopped_at", nullptr},
            {"counts", CountsJson({})},
            {"omitted", 0},
            {"findings", Json::array()}};
}

Json FindingJson(const Finding& finding) {
    Json json;
    json["id"] = IdText(finding.id);
    json["severity"] = SeverityText(finding.severity);
    json["step"] = StepText(finding.step);
    json["stops_opening"] = finding.stopsOpening;
    json["entry"] = TextOrNull(finding.entry);
    json["relationship"] = TextOrNull(finding.relationship);
    json["target"] = TextOrNull(finding.target);
    json["offset"] = NumberOrNull(finding.offset);
    json["line"] = NumberOrNull(finding.line);
    json["column"] = NumberOrNull(finding.column);
    json["cause"] = finding.cause;
    json["hint"] = finding.hint;
    json["items"] = ItemsJson(finding.items);
    json["items_omitted"] = finding.itemCount - finding.items.size();
    return json;
}

void FillReportJson(const CheckReport& report, Json& json) {
    std::uint64_t all = 0;
    for (const auto& [kind, count] : report.counts) all += count;
    json["opened"] = report.opens;
    if (const Finding* stop = report.Stop()) json["stopped_at"] = StepText(stop->step);
    json["counts"] = CountsJson(report.counts);
    json["omitted"] = all - report.findings.size();
    for (const Finding& finding : report.findings) json["findings"].push_back(FindingJson(finding));
}

}  // namespace vexpa_tool
