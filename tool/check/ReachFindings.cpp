// VX410: what no relationship leads to.

#include <set>
#include <string>
#include <vector>

#include "tool/check/Groups.h"
#include "tool/check/PartNames.h"
#include "tool/check/Shown.h"
#include "tool/model/MainPart.h"

namespace vexpa_tool {

namespace {

// Folders, content types and relationship streams are no parts.
bool IsPartEntry(std::string_view name) {
    return !name.ends_with('/') && name != kContentTypesEntry && !SourceOf(name);
}

// A document of pages, whose XML names the pages and fonts (ECMA-388).
bool IsFixedLayout(tarn::opc::Package& package) {
    const tarn::opc::Relationship* main = MainRelationship(package);
    return main != nullptr && FoldedCase(TypeTail(*main)) == "fixedrepresentation";
}

}  // namespace

void CheckReach(const Subject& subject, Findings& findings) {
    // Where the relationships cannot be read, nothing is reached, and that is told of.
    if (!subject.relationships || subject.model == nullptr) return;
    std::set<std::string> reached;
    for (const tarn::opc::Part* part : subject.parts) reached.insert(EntryNameOf(part->GetName()));

    ShownList names;
    std::vector<const ContainerEntry*> entries;
    for (const ContainerEntry& entry : subject.container->Entries()) {
        const std::string name(entry.name);
        const bool isFirst = subject.Find(name) == &entry;
        if (!isFirst || !IsPartEntry(name) || reached.count(name) != 0) continue;
        names.Add(name);
        entries.push_back(&entry);
    }
    if (entries.empty()) return;
    findings.Add(FindingId::UnreachedEntry, [&](Finding& finding) {
        finding.cause =
            "no relationship leads to " + Counted(names.Count(), "entry: ", "entries: ") + names.Text();
        if (IsFixedLayout(*subject.model)) {
            finding.cause += "; in a fixed-layout document the XML refers to pages by name";
            finding.hint = "look for the names in the XML of the document and its pages";
        }
        finding.namesAllItems = names.IsWhole();
        for (const ContainerEntry* entry : entries)
            findings.AddItem(finding, {std::string(entry->name)});
    });
}

}  // namespace vexpa_tool
