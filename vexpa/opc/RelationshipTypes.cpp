#include "vexpa/opc/RelationshipTypes.h"

#include <algorithm>
#include <array>

#include "vexpa/opc/NormalizeRelationshipType.h"
#include "vexpa/opc/RelationshipTypeTable.h"

namespace tarn::opc {

namespace {

// The rows in the order of their URIs. It has nothing to end, as a static object of the caller's may
// still ask when the process ends.
using TypeIndex = std::array<const RelationshipTypeRow*, kRelationshipTypeCount>;

TypeIndex MakeTypeIndex() {
    TypeIndex index;
    std::transform(kRelationshipTypeRows.begin(), kRelationshipTypeRows.end(), index.begin(),
                   [](const RelationshipTypeRow& row) { return &row; });
    std::sort(index.begin(), index.end(), [](const auto* a, const auto* b) { return a->uri < b->uri; });
    return index;
}

}  // namespace

RelationshipTypeId FindRelationshipTypeId(std::u16string_view normalizedType) {
    static const TypeIndex index = MakeTypeIndex();
    const auto found =
        std::lower_bound(index.begin(), index.end(), normalizedType,
                         [](const RelationshipTypeRow* row, auto type) { return row->uri < type; });
    if (found == index.end() || (*found)->uri != normalizedType) return RelTypeUnknown;
    // Kept: a thumbnail answers 33, the id of custom properties; only a search uses 34.
    // (RelationshipTypes.ThumbnailTypeAnswers33)
    return (*found)->id == RelTypeThumbnail ? RelTypeCustomProperties : (*found)->id;
}

std::u16string_view FindRelationshipTypeUri(RelationshipTypeId id) {
    return id < kRelationshipTypeCount ? kRelationshipTypeRows[id].uri : u"";
}

RelationshipTypeId GetRelationshipTypeId(const unsigned short* type) {
    return FindRelationshipTypeId(NormalizeRelationshipType(CopyText(type)));
}

const unsigned short* GetRelationshipTypeUri(RelationshipTypeId id) {
    return ToUnits(FindRelationshipTypeUri(id).data());
}

}  // namespace tarn::opc
