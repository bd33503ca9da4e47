#include "vexpa/opc/RelationshipIndex.h"

#include <utility>

#include "vexpa/base/Utf16.h"
#include "vexpa/opc/NormalizeRelationshipType.h"

namespace tarn::opc {

// Kept: of a repeated Id only the first is found by it; another may be the first of its type.
// (RelationshipStream.OfARepeatedIdKeepsTheFirstAndFindsBothByType,
// RelationshipStream.OfARepeatedIdAndTypeFindsOnlyTheFirst,
// PackageClose.LeavesNothingOfRelationshipsThatHaveOneId)
void RelationshipIndex::File(std::unique_ptr<Relationship> relationship, OwnedObjects& refused) {
    Relationship* filed = relationship.get();
    const bool isNew = relationshipsById_.try_emplace(CopyText(filed->GetId()), filed).second;
    if (isNew) {
        static_cast<void>(relationship.release());
    } else {
        refused.push_back(std::move(relationship));
    }
    FileByType(filed);
}

// Kept: one relationship a type, the first.
// (RelationshipStream.OfARepeatedTypeGivesTheFirstInDocumentOrder)
//
// Relationships of one type mostly follow each other, and folding a type takes longer than seeing
// that it is the one that was folded last.
void RelationshipIndex::FileByType(Relationship* relationship) {
    const std::u16string_view type = FromUnits(relationship->GetType());
    if (!relationshipsByType_.empty() && type == lastType_) return;
    relationshipsByType_.try_emplace(NormalizeRelationshipType(type), relationship);
    lastType_ = type;
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
    const auto [begin, end] = relationshipsByType_.equal_range(CopyText(type));
    const auto at = [this](auto place) {
        return place == relationshipsByType_.end() ? nullptr : place->second;
    };
    return {at(begin), at(end)};
}

void RelationshipIndex::Clear() noexcept {
    relationshipsByType_.clear();
    lastType_.clear();
    RelationshipMap owned;
    owned.swap(relationshipsById_);
    for (const auto& entry : owned) delete entry.second;
}

}  // namespace tarn::opc
