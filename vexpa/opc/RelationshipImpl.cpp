#include "vexpa/opc/RelationshipImpl.h"

#include <utility>

#include "vexpa/base/DeleteIfExists.h"
#include "vexpa/base/Utf16.h"
#include "vexpa/opc/TargetResolution.h"

namespace tarn::opc {

RelationshipImpl::RelationshipImpl(const char16_t* id, const char16_t* type, const char16_t* source,
                                   const char16_t* target, const char16_t* targetMode)
    : RelationshipImpl(id, type, std::make_shared<const PartUri>(source), target, targetMode) {}

RelationshipImpl::RelationshipImpl(const char16_t* id, const char16_t* type,
                                   std::shared_ptr<const PartUri> source, const char16_t* target,
                                   const char16_t* targetMode)
    : targetMode_(ParseTargetMode(targetMode)),
      id_(CopyText(id)),
      type_(CopyText(type)),
      source_(std::move(source)),
      target_(target),
      resolvedTarget_(ResolveTarget(source_->name, target_.name).c_str()) {}

void RelationshipImpl::Release() {
    DeleteIfExists(this);
}

const unsigned short* RelationshipImpl::GetId() const {
    return ToUnits(id_.c_str());
}

RelationshipTypeId RelationshipImpl::GetTypeId() const {
    return GetRelationshipTypeId(type_.c_str());
}

const unsigned short* RelationshipImpl::GetType() const {
    return ToUnits(type_.c_str());
}

}  // namespace tarn::opc
