#include "vexpa/opc/RelationshipIndex.h"

#include <utility>

#include "vexpa/base/Utf16.h"

namespace tarn::opc {

// Kept: of a repeated Id only the first is found by it; another may be the first of its type.
// (RelationshipStream.OfARepeatedIdKeepsTheFirstAndFindsBothByType,
// RelationshipStream.OfARepeatedIdAndTypeFindsOnlyTheFirst,
// PackageClose.LeavesNothingOfRelationshipsThatHaveOneId)
void RelationshipIndex::File(std::unique_ptr<RelationshipImpl> relationship, OwnedObjects& refused) {
    RelationshipImpl* filed = relationship.get();
    const bool isNew = relationshipsById_.try_emplace(CopyText(filed->GetId()), filed).second;
    if (isNew) {
        static_cast<void>(relationship.release());
    } else {
        refused.push_back(std::move(relationship));
    }
    // Kept: one relationship a type, the first.
    // (RelationshipStream.OfARepeatedTypeGivesTheFirstInDocumentOrder)
    relationshipsByType_.try_emplace(filed->FoldedType(), filed);
}

// Kept: null is the empty text, so it finds the relationship without an Id.
// (RelationshipById.OfANullIdIsTheOneWithoutId)
Relationship* RelationshipIndex::FindById(const unsigned short* id) const {
    const auto found = relationshipsById_.find(CopyText(id));
    return found == relationshipsById_.end() ? nullptr : found->second;
}

Relationship* RelationshipIndex::FindByType(RelationshipTypeId type, RelationshipCursor* cursor) const {
    // Kept: an id outside the table asks for the empty type, and finds a relationship that
    // was written without one. (RelationshipByType.OfAnUnknownIdFindsTheEmptyType)
    const auto found = relationshipsByType_.find(FromUnits(GetRelationshipTypeUri(type)));
    Relationship* result = found == relationshipsByType_.end() ? nullptr : found->second;
    // Kept: the second word is 0, as there is no next one. (RelationshipByType.FillsTheCursor)
    if (cursor != nullptr) *cursor = {result, 0};
    return result;
}

// Kept: the caller has folded the type, and gets the one after the range as well.
// (RelationshipsByType.AreNotFoundUnderATypeThatIsNotFolded,
// RelationshipsByType.GiveTheOneOfTheTypeAndTheOneAfterIt,
// RelationshipsByType.OfAnAbsentTypeGiveOneAndTheSameTwice)
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
