// tool/model/StrictTypes.h - the relationship types of Strict documents.
#ifndef VEXPA_TOOL_MODEL_STRICTTYPES_H_
#define VEXPA_TOOL_MODEL_STRICTTYPES_H_

#include "vexpa/opc/Relationship.h"

namespace vexpa_tool {

// Whether the type is one of those; letter case does not matter.
bool IsStrictType(const tarn::opc::Relationship& relationship);

// The library's number for the type, for one of a Strict document the number of the Transitional
// type that means the same: what to go by where it matters what a relationship is for.
tarn::opc::RelationshipTypeId MeantType(const tarn::opc::Relationship& relationship);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_STRICTTYPES_H_
