// vexpa/opc/RelationshipImpl.h - a relationship made from the texts of its element.
#ifndef VEXPA_OPC_RELATIONSHIPIMPL_H_
#define VEXPA_OPC_RELATIONSHIPIMPL_H_

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "vexpa/opc/Relationship.h"
#include "vexpa/opc/RelationshipSource.h"
#include "vexpa/opc/TypeText.h"

namespace tarn::opc {

class RelationshipImpl : public Relationship {
public:
    // Each text may be null, which is the empty text.
    RelationshipImpl(const char16_t* id, std::shared_ptr<const TypeText> type,
                     std::shared_ptr<const RelationshipSource> source, const char16_t* target,
                     const char16_t* targetMode);

    // About how many bytes it takes, with its places in the indexes, if no other has its type.
    std::size_t MemoryUse() const noexcept;

    // [borrowed] The type in the form in which types are compared.
    std::u16string_view FoldedType() const noexcept { return type_->folded; }

    void Release() override;
    const unsigned short* GetId() const override;
    RelationshipTypeId GetTypeId() const override;
    const unsigned short* GetType() const override;
    const PartUri& GetResolvedTarget() const override {
        return resolvedTarget_ == nullptr ? target_ : *resolvedTarget_;
    }
    const PartUri& GetSource() const override { return source_->uri; }
    TargetMode GetTargetMode() const override { return targetMode_; }
    const PartUri& GetTarget() const override { return target_; }

private:
    TargetMode targetMode_;
    std::u16string id_;
    std::shared_ptr<const TypeText> type_;
    std::shared_ptr<const RelationshipSource> source_;
    PartUri target_;
    // Null where it is the target as written: that of the package, and every absolute URI.
    std::unique_ptr<const PartUri> resolvedTarget_;
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_RELATIONSHIPIMPL_H_
