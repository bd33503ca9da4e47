// tool/model/RelationshipTree.h - the relationships of a package as the lines of a tree.
#ifndef VEXPA_TOOL_MODEL_RELATIONSHIPTREE_H_
#define VEXPA_TOOL_MODEL_RELATIONSHIPTREE_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "vexpa/opc/Package.h"

namespace vexpa_tool {

// What a line says about the target of its relationship.
enum class TargetKind {
    Part,      // its relationships follow, unless that is too deep
    Above,     // a part that an earlier line has shown
    Cycle,     // a part that leads here
    Missing,   // internal, without a part
    External,  // not looked for
};

struct TreeLine {
    std::string lead;  // the branches up to this line
    const tarn::opc::Relationship* relationship;
    tarn::opc::Part* part;  // null without a part
    TargetKind kind;
    std::size_t level;                           // 1 for the relationships of the package
    const tarn::opc::RelationshipMap* siblings;  // this relationship's map
    std::size_t hidden;  // relationships of the part that are too deep to follow
};

// Where a tree begins and ends.
struct TreeLimits {
    tarn::opc::Part* from = nullptr;  // null for the package
    std::size_t depth = SIZE_MAX;     // levels
};

using TreeLineSink = std::function<void(const TreeLine& line)>;

// Branches beyond this level are told by number, so that a chain of 100,000 parts is not
// drawn as a triangle.
inline constexpr std::size_t kDrawnLevels = 16;

// Goes through the relationships in depth, in the order of the Ids. The relationships of a
// part follow the first line that leads to it and is not too deep, so there are no more lines
// than relationships.
void WalkTree(tarn::opc::Package& package, const TreeLimits& limits, const TreeLineSink& sink);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_RELATIONSHIPTREE_H_
