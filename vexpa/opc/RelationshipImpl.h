// vexpa/opc/RelationshipImpl.h - a relationship made from the texts of its element.
#ifndef VEXPA_OPC_RELATIONSHIPIMPL_H_
#define VEXPA_OPC_RELATIONSHIPIMPL_H_

#include <memory>
#include <string>

#include "vexpa/opc/Relationship.h"

namespace tarn::opc {

class RelationshipImpl : public Relationship {
public:
    // Each text may be null, which is the empty text; `source` is empty for the package.
    RelationshipImpl(const char16_t* id, const char16_t* type, const char16_t* source,
                     const char16_t* target, const char16_t* targetMode);

    // The relationships of one stream share their source: its name may be thousands of units
    // long, and a short element each is enough for a million relationships.
    RelationshipImpl(const char16_t* id, const char16_t* type, std::shared_ptr<const PartUri> source,
                     const char16_t* target, const char16_t* targetMode);

    void Release() override;
    const unsigned short* GetId() const override;
    RelationshipTypeId GetTypeId() const override;
    const unsigned short* GetType() const override;
    const PartUri& GetResolvedTarget() const override { return resolvedTarget_; }
    const PartUri& GetSource() const override { return *source_; }
    TargetMode GetTargetMode() const override { return targetMode_; }
    const PartUri& GetTarget() const override { return target_; }

private:
    TargetMode targetMode_;
    std::u16string id_;
    std::u16string type_;
    std::shared_ptr<const PartUri> source_;
    PartUri target_;
    PartUri resolvedTarget_;
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_RELATIONSHIPIMPL_H_
