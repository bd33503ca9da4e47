#include "tool/model/PartWalk.h"

#include <cstddef>
#include <unordered_set>

namespace vexpa_tool {

namespace opc = tarn::opc;

opc::Part* TargetPart(opc::Package& package, const opc::Relationship& relationship) {
    if (relationship.GetTargetMode() == opc::TargetModeExternal) return nullptr;
    return package.GetPart(relationship.GetResolvedTarget());
}

std::vector<opc::Part*> ReachedParts(opc::Package& package) {
    std::vector<opc::Part*> parts;
    std::unordered_set<opc::Part*> seen;
    const auto reach = [&](const opc::RelationshipMap& relationships) {
        for (const auto& [id, relationship] : relationships) {
            opc::Part* part = TargetPart(package, *relationship);
            if (part != nullptr && seen.insert(part).second) parts.push_back(part);
        }
    };
    reach(package.GetRelationships());
    // The list grows while it is gone through.
    for (std::size_t next = 0; next < parts.size();) reach(parts[next++]->GetRelationships());
    return parts;
}

}  // namespace vexpa_tool
