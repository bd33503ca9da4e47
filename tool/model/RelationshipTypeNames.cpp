#include "tool/model/RelationshipTypeNames.h"

namespace vexpa_tool {

const char* RelationshipTypeName(tarn::opc::RelationshipTypeId id) {
    return id < kRelationshipTypeNames.size() ? kRelationshipTypeNames[id] : "RelTypeUnknown";
}

}  // namespace vexpa_tool
