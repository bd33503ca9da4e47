#include "vexpa/opc/RelationshipTypes.h"

#include <map>

#include "vexpa/opc/NormalizeRelationshipType.h"
#include "vexpa/opc/RelationshipTypeTable.h"

namespace tarn::opc {

namespace {

using TypeIndex = std::map<std::u16string_view, RelationshipTypeId>;
using TypeNameIndex = std::map<RelationshipTypeId, std::u16string_view>;

TypeIndex MakeTypeIndex() {
    TypeIndex index;
    for (const RelationshipTypeRow& row : kRelationshipTypeRows) {
        // Kept: a thumbnail answers 33, the id of custom properties; only a search uses 34.
        // (ThumbnailTypeAnswers33)
        const bool isThumbnail = row.id == RelTypeThumbnail;
        index.emplace(row.uri, isThumbnail ? RelTypeCustomProperties : row.id);
    }
    return index;
}

TypeNameIndex MakeTypeNameIndex() {
    TypeNameIndex index;
    for (const RelationshipTypeRow& row : kRelationshipTypeRows) index.emplace(row.id, row.uri);
    return index;
}

}  // namespace

// Each index is filled as part of the one guarded step that creates it, so that no thread
// ever searches one that is still being filled.

RelationshipTypeId FindRelationshipTypeId(std::u16string_view normalizedType) {
    static const TypeIndex index = MakeTypeIndex();
    const auto found = index.find(normalizedType);
    return found == index.end() ? RelTypeUnknown : found->second;
}

std::u16string_view FindRelationshipTypeUri(RelationshipTypeId id) {
    static const TypeNameIndex index = MakeTypeNameIndex();
    const auto found = index.find(id);
    return found == index.end() ? u"" : found->second;
}

RelationshipTypeId GetRelationshipTypeId(const unsigned short* type) {
    return FindRelationshipTypeId(NormalizeRelationshipType(CopyText(type)));
}

const unsigned short* GetRelationshipTypeUri(RelationshipTypeId id) {
    return ToUnits(FindRelationshipTypeUri(id).data());
}

}  // namespace tarn::opc
