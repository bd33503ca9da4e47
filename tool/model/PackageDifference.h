// tool/model/PackageDifference.h - what came, went and changed between two packages.
#ifndef VEXPA_TOOL_MODEL_PACKAGEDIFFERENCE_H_
#define VEXPA_TOOL_MODEL_PACKAGEDIFFERENCE_H_

#include <optional>
#include <string>
#include <vector>

#include "tool/InputFile.h"
#include "tool/model/PartReader.h"
#include "vexpa/opc/Package.h"

namespace vexpa_tool {

enum class Change { Came, Went, Changed };

struct PartDifference {
    Change change;
    std::u16string name;
    std::optional<PartDigest> before;  // empty also for a part that cannot be read
    std::optional<PartDigest> after;

    // A part that cannot be read on either side may have changed or not.
    bool isUnreadable = false;
};

struct RelationshipDifference {
    Change change;
    std::u16string source;  // empty for the package
    std::u16string id;
    const tarn::opc::Relationship* before;  // [borrowed] null for one that came
    const tarn::opc::Relationship* after;   // [borrowed] null for one that went
};

// Another relationship is the first of its type, though the former one is still there; and it leads
// elsewhere.
struct FirstDifference {
    std::u16string source;                  // empty for the package
    const tarn::opc::Relationship* before;  // [borrowed]
    const tarn::opc::Relationship* after;   // [borrowed]
};

struct TypeDifference {
    std::u16string name;
    std::u16string before;
    std::u16string after;
};

// An open package and the file that it came from.
struct ComparedPackage {
    const InputFile& file;
    tarn::opc::Package& package;
};

// Parts are compared by name and bytes, those that no relationship leads to included; in the
// order of the names.
std::vector<PartDifference> CompareParts(const ComparedPackage& a, const ComparedPackage& b);

// Relationships by source and Id: type, mode and where they lead to. Those of a part that came
// or went come and go with it.
std::vector<RelationshipDifference> CompareRelationships(const ComparedPackage& a,
                                                         const ComparedPackage& b);

// What the look-up by type answers, where that is not told already: a relationship may only have moved
// in its stream.
std::vector<FirstDifference> CompareFirsts(const ComparedPackage& a, const ComparedPackage& b);

// Of the parts that both have.
std::vector<TypeDifference> CompareTypes(const ComparedPackage& a, const ComparedPackage& b);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_PACKAGEDIFFERENCE_H_
