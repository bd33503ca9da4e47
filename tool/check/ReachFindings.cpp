// VX410: what no relationship leads to.

#include <set>
#include <string>

#include "tool/check/Groups.h"
#include "tool/check/PartNames.h"
#include "tool/check/Shown.h"

namespace vexpa_tool {

namespace {

// Folders, content types and relationship streams are no parts.
bool IsPartEntry(std::string_view name) {
    return !name.ends_with('/') && name != kContentTypesEntry && !SourceOf(name);
}

}  // namespace

void CheckReach(const Subject& subject, Findings& findings) {
    // Where the relationships cannot be read, nothing is reached, and that is told of.
    if (!subject.relationships || subject.model == nullptr) return;
    std::set<std::string> reached;
    for (const tarn::opc::Part* part : subject.parts) reached.insert(EntryNameOf(part->GetName()));

    ShownList names;
    for (const ContainerEntry& entry : subject.container->Entries()) {
        const std::string name(entry.name);
        const bool isFirst = subject.Find(name) == &entry;
        if (isFirst && IsPartEntry(name) && reached.count(name) == 0) names.Add(name);
    }
    if (names.Count() == 0) return;
    findings.Add(FindingId::UnreachedEntry, [&](Finding& finding) {
        finding.cause =
            "no relationship leads to " + Counted(names.Count(), "entry: ", "entries: ") + names.Text();
    });
}

}  // namespace vexpa_tool
