#include "tool/check/RepeatedTypes.h"

#include <algorithm>

#include "tool/check/PartNames.h"
#include "tool/check/Shown.h"
#include "tool/model/RelationshipQuery.h"
#include "tool/text/Size.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

constexpr std::size_t kMostWords = 6;

}  // namespace

void RepeatedTypes::Look(const CheckedSource& source) {
    std::map<opc::RelationshipTypeId, std::vector<const opc::Relationship*>> types;
    for (const opc::Relationship* one : source.relationships) {
        const opc::RelationshipTypeId type = SearchTypeId(*one);
        if (type != opc::RelTypeUnknown) types[type].push_back(one);
    }
    for (const auto& [id, relationships] : types) {
        if (relationships.size() > 1) Add(source, *relationships.front(), relationships.size());
    }
}

void RepeatedTypes::Report(Findings& findings) const {
    if (types_.empty()) return;
    findings.Add(FindingId::RepeatedType, [&](Finding& finding) {
        const CheckedSource* only = OnlySource();
        if (only != nullptr) finding.entry = only->entry;
        if (only != nullptr) finding.step = StepThatReads(*only);
        ShownList list(kMostWords);
        for (const auto& [type, uses] : types_) {
            const std::string& word = type.first;
            list.Add(word + " (" + UsesText(uses, only != nullptr) + ")");
            if (uses.size() > 1) finding.namesAllItems = false;
            for (const Use& use : uses) findings.AddItem(finding, {use.source->entry, word, use.count});
        }
        finding.cause = "a look-up by type finds only the first of: " + list.Text();
        finding.namesAllItems = finding.namesAllItems && list.IsWhole();
    });
}

void RepeatedTypes::Add(const CheckedSource& source, const opc::Relationship& first,
                        std::uint64_t count) {
    const opc::RelationshipTypeId type = SearchTypeId(first);
    const auto [word, isNew] = words_.try_emplace(type, TypeTail(first));
    types_[{word->second, type}].push_back({&source, count});
}

// "3", "3 in word/document.xml", "up to 3 in 2 parts, first in word/document.xml"
std::string RepeatedTypes::UsesText(const Uses& uses, bool isSourceKnown) {
    std::uint64_t most = 0;
    for (const Use& use : uses) most = std::max(most, use.count);
    std::string text = (uses.size() == 1 ? "" : "up to ") + GroupedDigits(most);
    if (isSourceKnown) return text;
    text += " in ";
    if (uses.size() > 1) text += GroupedDigits(uses.size()) + " parts, first in ";
    return text + Shown(uses.front().source->entry);
}

// Null when there are several.
const CheckedSource* RepeatedTypes::OnlySource() const {
    const CheckedSource* source = types_.begin()->second.front().source;
    const bool isOnly = std::all_of(types_.begin(), types_.end(), [&](const auto& type) {
        return type.second.size() == 1 && type.second.front().source == source;
    });
    return isOnly ? source : nullptr;
}

}  // namespace vexpa_tool
