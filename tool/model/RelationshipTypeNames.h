// tool/model/RelationshipTypeNames.h - the enumerator that stands for a relationship type.
#ifndef VEXPA_TOOL_MODEL_RELATIONSHIPTYPENAMES_H_
#define VEXPA_TOOL_MODEL_RELATIONSHIPTYPENAMES_H_

#include <array>
#include <cstddef>

#include "vexpa/opc/RelationshipTypeId.h"

namespace vexpa_tool {

// Written by vexpa/opc/make_relationship_types.py, as are the names.
inline constexpr std::size_t kRelationshipTypeNameCount = 60;

// By id.
extern const std::array<const char*, kRelationshipTypeNameCount> kRelationshipTypeNames;

// "RelTypeOfficeDocument"; "RelTypeUnknown" for every id outside the list.
const char* RelationshipTypeName(tarn::opc::RelationshipTypeId id);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_RELATIONSHIPTYPENAMES_H_
