#include "vexpa/opc/RelationshipImpl.h"

#include <utility>

#include "vexpa/base/DeleteIfExists.h"
#include "vexpa/base/Utf16.h"
#include "vexpa/opc/TargetResolution.h"

namespace tarn::opc {

namespace {

// The name of the part that `target` leads to from `source`, or null when it is `target` itself.
//
// Kept: the package's targets stay as written. (Relationship.OfThePackageResolvesToItsTarget)
std::unique_ptr<const PartUri> Resolved(const RelationshipSource& source, const PartUri& target) {
    if (source.uri.name.empty()) return nullptr;
    const std::u16string name = ResolveTargetFrom(source.directory, target.name);
    return name == target.name ? nullptr : std::make_unique<const PartUri>(name.c_str());
}

// The components together have at most the units of the name that they are cut from.
std::size_t UnitsOf(const PartUri& uri) {
    return 2 * uri.name.size();
}

}  // namespace

RelationshipImpl::RelationshipImpl(const char16_t* id, std::shared_ptr<const TypeText> type,
                                   std::shared_ptr<const RelationshipSource> source,
                                   const char16_t* target, const char16_t* targetMode)
    : targetMode_(ParseTargetMode(targetMode)),
      id_(CopyText(id)),
      type_(std::move(type)),
      source_(std::move(source)),
      target_(target),
      // The analyzer loses sight of the pointer on its way into the member.
      // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
      resolvedTarget_(Resolved(*source_, target_)) {}

std::size_t RelationshipImpl::MemoryUse() const noexcept {
    constexpr std::size_t kPlaces = 256;  // nodes of two maps, and what the allocator adds
    const bool isResolved = resolvedTarget_ != nullptr;
    // The Id is a key besides.
    const std::size_t units = 2 * id_.size() + type_->written.size() + type_->folded.size() +
                              UnitsOf(target_) + (isResolved ? UnitsOf(*resolvedTarget_) : 0);
    return sizeof *this + kPlaces + (isResolved ? sizeof(PartUri) : 0) + units * sizeof(char16_t);
}

void RelationshipImpl::Release() {
    DeleteIfExists(this);
}

const unsigned short* RelationshipImpl::GetId() const {
    return ToUnits(id_.c_str());
}

RelationshipTypeId RelationshipImpl::GetTypeId() const {
    return GetRelationshipTypeId(type_->written.c_str());
}

const unsigned short* RelationshipImpl::GetType() const {
    return ToUnits(type_->written.c_str());
}

}  // namespace tarn::opc
