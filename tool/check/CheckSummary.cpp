#include "tool/check/CheckSummary.h"

#include "tool/check/FindingTable.h"
#include "tool/check/Shown.h"
#include "tool/text/Size.h"
#include "tool/text/Table.h"

namespace vexpa_tool {

void CheckSummary::Add(const CheckReport& report) {
    const std::lock_guard lock(mutex_);
    ++(report.opens ? opened_ : refused_);
    for (const auto& [kind, count] : report.counts) ++files_[kind];
}

void CheckSummary::Write(bool isAll, Output& out) const {
    constexpr std::size_t kFilesColumn = 1;
    out.WriteLine(Counted(opened_ + refused_, "file: ", "files: ") +
                  Counted(opened_, "opens, ", "open, ") + Counted(refused_, "does not", "do not"));
    Table table;
    table.AlignRight(kFilesColumn);
    for (const auto& [kind, files] : files_) {
        const auto& [id, severity] = kind;
        if (severity == Severity::Info && !isAll) continue;
        table.Add({std::string("  ") + SeverityText(severity), GroupedDigits(files),
                   IdText(id) + "  " + KindOf(id).title});
    }
    table.WriteTo(out);
}

}  // namespace vexpa_tool
