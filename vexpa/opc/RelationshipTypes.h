// vexpa/opc/RelationshipTypes.h - from type URI to id and back.
#ifndef VEXPA_OPC_RELATIONSHIPTYPES_H_
#define VEXPA_OPC_RELATIONSHIPTYPES_H_

#include <string_view>

#include "vexpa/opc/RelationshipTypeId.h"

namespace tarn::opc {

// The id of a type that NormalizeRelationshipType has folded, or RelTypeUnknown.
RelationshipTypeId FindRelationshipTypeId(std::u16string_view normalizedType);

// The folded type URI of an id, NUL-terminated and of static storage; empty outside the table.
std::u16string_view FindRelationshipTypeUri(RelationshipTypeId id);

}  // namespace tarn::opc

#endif  // VEXPA_OPC_RELATIONSHIPTYPES_H_
