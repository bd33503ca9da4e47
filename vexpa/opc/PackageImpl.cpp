#include "vexpa/opc/PackageImpl.h"

#include "vexpa/base/DeleteIfExists.h"
#include "vexpa/opc/PartNameKey.h"

namespace tarn::opc {

PackageImpl::PackageImpl(RelationshipAllowance allowance) : allowance_(allowance) {}

PackageImpl::~PackageImpl() {
    PackageImpl::Close();
}

void PackageImpl::Release() {
    DeleteIfExists(this);
}

void PackageImpl::Close() {
    ownedObjects_.clear();
    relationships_.Clear();
    parts_.clear();  // a part that ends closes itself
    types_ = TypeTexts();
    archive_.Close();
}

bool PackageImpl::PartExists(const PartUri& name) {
    // Kept: the first unit goes without a look, so docProps/core.xml is asked for as
    // ocProps/core.xml. (PartExists.LosesARealFirstCharacter)
    return archive_.HasEntry(name.name.empty() ? u"" : name.name.c_str() + 1);
}

Relationship* PackageImpl::GetRelationshipById(const unsigned short* id) {
    return relationships_.FindById(id);
}

Relationship* PackageImpl::GetRelationshipByType(RelationshipTypeId type, RelationshipCursor* cursor) {
    return relationships_.FindByType(type, cursor);
}

RelationshipRange PackageImpl::GetRelationshipsByType(const unsigned short* type) {
    return relationships_.FindRange(type);
}

bool PackageImpl::HasRelationshipById(const unsigned short* id) {
    return GetRelationshipById(id) != nullptr;
}

Part* PackageImpl::FindPart(const unsigned short* name) {
    const PartUri uri(name);
    const std::u16string_view key = PartNameKey(uri.name);
    return LoadedAt(partsByName_.lower_bound(key), key);
}

// The part at the first place that is not before the key, if it has the key.
PartImpl* PackageImpl::LoadedAt(PartsByName::const_iterator place, std::u16string_view key) const {
    if (place == partsByName_.end() || UnitLess()(key, place->first)) return nullptr;
    return place->second < parts_.size() ? parts_[place->second].get() : nullptr;
}

}  // namespace tarn::opc
