#include "tool/model/PackageDifference.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "tool/model/EntryNames.h"
#include "tool/model/RelationshipQuery.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

using Names = std::set<std::u16string>;

// What relationships and content types are read from is compared as that.
Names ComparedNames(const ComparedPackage& one) {
    Names names;
    for (std::u16string& name : PartNames(one.file)) {
        if (!IsPackageEntry(name)) names.insert(std::move(name));
    }
    return names;
}

Names CommonNames(const ComparedPackage& a, const ComparedPackage& b) {
    const Names before = ComparedNames(a), after = ComparedNames(b);
    Names common;
    std::set_intersection(before.begin(), before.end(), after.begin(), after.end(),
                          std::inserter(common, common.end()));
    return common;
}

opc::Part* PartOf(const ComparedPackage& one, const std::u16string& name) {
    return one.package.GetPart(opc::PartUri(name.c_str()));
}

bool IsSame(const opc::Relationship& a, const opc::Relationship& b) {
    return tarn::CopyText(a.GetType()) == tarn::CopyText(b.GetType()) &&
           a.GetTargetMode() == b.GetTargetMode() &&
           a.GetResolvedTarget().name == b.GetResolvedTarget().name;
}

using Source = RelationshipSource;

// The package, and each part that both have.
template <class Visit>
void ForEachSource(const ComparedPackage& a, const ComparedPackage& b, const Visit& visit) {
    visit({}, {&a.package, nullptr}, {&b.package, nullptr});
    for (const std::u16string& name : CommonNames(a, b)) {
        opc::Part* before = PartOf(a, name);
        opc::Part* after = PartOf(b, name);
        if (before == nullptr || after == nullptr) continue;
        visit(name, {&a.package, before}, {&b.package, after});
    }
}

// Whether `before`, the first of its type, still is there, and `after` has become the first. That of
// one which went another takes the place is plain to see.
bool IsDisplaced(const opc::Relationship& before, const opc::Relationship& after,
                 const RelationshipSource& now) {
    const opc::RelationshipMap& relationships = now.Relationships();
    const auto same = relationships.find(tarn::CopyText(before.GetId()));
    return same != relationships.end() && same->second != &after &&
           SearchTypeId(*same->second) == SearchTypeId(before) &&
           before.GetResolvedTarget().name != after.GetResolvedTarget().name;
}

// Both maps are in the order of the Ids.
void CompareMaps(const std::u16string& source, const opc::RelationshipMap& before,
                 const opc::RelationshipMap& after, std::vector<RelationshipDifference>& differences) {
    auto a = before.begin();
    auto b = after.begin();
    while (a != before.end() || b != after.end()) {
        if (b == after.end() || (a != before.end() && a->first < b->first)) {
            differences.push_back({Change::Went, source, a->first, a->second, nullptr});
            ++a;
        } else if (a == before.end() || b->first < a->first) {
            differences.push_back({Change::Came, source, b->first, nullptr, b->second});
            ++b;
        } else {
            if (!IsSame(*a->second, *b->second)) {
                differences.push_back({Change::Changed, source, a->first, a->second, b->second});
            }
            ++a;
            ++b;
        }
    }
}

}  // namespace

std::vector<PartDifference> CompareParts(const ComparedPackage& a, const ComparedPackage& b) {
    const Names before = ComparedNames(a), after = ComparedNames(b);
    Names all = before;
    all.insert(after.begin(), after.end());
    PartReader readerA(a.file), readerB(b.file);
    const auto digest = [](PartReader& reader, opc::Part* part) {
        return part == nullptr ? std::nullopt : reader.Digest(*part);
    };
    std::vector<PartDifference> differences;
    for (const std::u16string& name : all) {
        const bool isInA = before.contains(name), isInB = after.contains(name);
        PartDifference one{isInA ? isInB ? Change::Changed : Change::Went : Change::Came, name,
                           isInA ? digest(readerA, PartOf(a, name)) : std::nullopt,
                           isInB ? digest(readerB, PartOf(b, name)) : std::nullopt};
        one.isUnreadable = (isInA && !one.before) || (isInB && !one.after);
        const bool isSame = isInA && isInB && !one.isUnreadable &&
                            one.before->size == one.after->size &&
                            one.before->sha256 == one.after->sha256;
        if (!isSame) differences.push_back(std::move(one));
    }
    return differences;
}

std::vector<RelationshipDifference> CompareRelationships(const ComparedPackage& a,
                                                         const ComparedPackage& b) {
    std::vector<RelationshipDifference> differences;
    ForEachSource(a, b, [&](const std::u16string& name, const Source& before, const Source& after) {
        CompareMaps(name, before.Relationships(), after.Relationships(), differences);
    });
    return differences;
}

std::vector<FirstDifference> CompareFirsts(const ComparedPackage& a, const ComparedPackage& b) {
    std::vector<FirstDifference> differences;
    ForEachSource(a, b, [&](const std::u16string& name, const Source& before, const Source& after) {
        std::set<opc::RelationshipTypeId> types;
        for (const auto& [id, relationship] : before.Relationships()) {
            const opc::RelationshipTypeId type = SearchTypeId(*relationship);
            if (!types.insert(type).second) continue;
            const opc::Relationship* first = before.FirstOfType(type);
            const opc::Relationship* now = after.FirstOfType(type);
            if (first != nullptr && now != nullptr && IsDisplaced(*first, *now, after))
                differences.push_back({name, first, now});
        }
    });
    return differences;
}

std::vector<TypeDifference> CompareTypes(const ComparedPackage& a, const ComparedPackage& b) {
    std::vector<TypeDifference> differences;
    for (const std::u16string& name : CommonNames(a, b)) {
        const opc::Part* before = PartOf(a, name);
        const opc::Part* after = PartOf(b, name);
        if (before == nullptr || after == nullptr) continue;
        TypeDifference one{name, tarn::CopyText(before->GetContentType()),
                           tarn::CopyText(after->GetContentType())};
        if (one.before != one.after) differences.push_back(std::move(one));
    }
    return differences;
}

}  // namespace vexpa_tool
