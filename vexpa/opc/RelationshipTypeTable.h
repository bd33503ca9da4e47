// vexpa/opc/RelationshipTypeTable.h - the known relationship types, a row each.
#ifndef VEXPA_OPC_RELATIONSHIPTYPETABLE_H_
#define VEXPA_OPC_RELATIONSHIPTYPETABLE_H_

#include <array>
#include <cstddef>

#include "vexpa/opc/RelationshipTypeId.h"

namespace tarn::opc {

// Kept: 41 to 48 are no types of relationships, but their numbers are published.
// (RelationshipTypes.KeepTheNumbersThatCallersKnow)
struct RelationshipTypeRow {
    const char16_t* uri;  // in lower case, the form that a normalised type has
    RelationshipTypeId id;
};

inline constexpr std::size_t kRelationshipTypeCount = 60;

// In the order of the ids.
extern const std::array<RelationshipTypeRow, kRelationshipTypeCount> kRelationshipTypeRows;

}  // namespace tarn::opc

#endif  // VEXPA_OPC_RELATIONSHIPTYPETABLE_H_
