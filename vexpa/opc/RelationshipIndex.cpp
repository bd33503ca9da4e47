#include "vexpa/opc/RelationshipIndex.h"

#include <utility>

#include "vexpa/base/Utf16.h"

namespace tarn::opc {

void RelationshipIndex::File(std::unique_ptr<RelationshipImpl> relationship, OwnedObjects& refused) {
    RelationshipImpl* filed = relationship.get();
    const bool isNew = relationshipsById_.try_emplace(CopyText(filed->GetId()), filed).second;
    if (isNew) {
        static_cast<void>(relationship.release());
    } else {
        refused.push_back(std::move(relationship));
    }
    relationshipsByType_.try_emplace(filed->FoldedType(), filed);
}

Relationship* RelationshipIndex::FindById(const unsigned short* id) const {
    const auto found = relationshipsById_.find(CopyText(id));
    return found == relationshipsById_.end() ? nullptr : found->second;
}

Relationship* RelationshipIndex::FindByType(RelationshipTypeId type, RelationshipCursor* cursor) const {
    // Kept: an id outside the table asks for the empty type, and finds a relationship that
    // was written without one. (RelationshipByType.OfAnUnknownIdFindsTheEmptyType)
    const auto found = relationshipsByType_.find(FromUnits(GetRelationshipTypeUri(type)));
    Relationship* result = found == relationshipsByType_.end() ? nullptr : found->second;
    if (cursor != nullptr) *cursor = {result, 0};
    return result;
}

RelationshipRange RelationshipIndex::FindRange(const unsigned short* type) const {
    const std::u16string folded = CopyText(type);
    const auto [begin, end] = relationshipsByType_.equal_range(folded);
    const auto at = [this](auto place) {
        return place == relationshipsByType_.end() ? nullptr : place->second;
    };
    return {at(begin), at(end)};
}

void RelationshipIndex::Clear() noexcept {
    relationshipsByType_.clear();
    RelationshipMap owned;
    owned.swap(relationshipsById_);
    for (const auto& entry : owned) delete entry.second;
}

}  // namespace tarn::opc
