// vexpa/opc/RelationshipTypeTable.h - the known relationship types, a row each.
#ifndef VEXPA_OPC_RELATIONSHIPTYPETABLE_H_
#define VEXPA_OPC_RELATIONSHIPTYPETABLE_H_

#include <array>
#include <cstddef>
#include <string_view>

#include "vexpa/opc/RelationshipTypeId.h"

namespace tarn::opc {

// Kept: 41 to 48 are no types of relationships, but their numbers are published.
// (RelationshipTypes.KeepTheNumbersThatCallersKnow)
struct RelationshipTypeRow {
    std::u16string_view uri;  // NUL-terminated, in lower case as a normalised type is
    RelationshipTypeId id;
};

// Written by make_relationship_types.py, as are the rows.
inline constexpr std::size_t kRelationshipTypeCount = 60;

// Each row stands at the place of its id.
extern const std::array<RelationshipTypeRow, kRelationshipTypeCount> kRelationshipTypeRows;

}  // namespace tarn::opc

#endif  // VEXPA_OPC_RELATIONSHIPTYPETABLE_H_
