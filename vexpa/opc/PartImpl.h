// vexpa/opc/PartImpl.h - a part over its archive entry.
#ifndef VEXPA_OPC_PARTIMPL_H_
#define VEXPA_OPC_PARTIMPL_H_

#include <memory>
#include <string>

#include "vexpa/base/Noncopyable.h"
#include "vexpa/opc/Part.h"
#include "vexpa/opc/RelationshipIndex.h"
#include "vexpa/platform/Runtime.h"

namespace lumo::Compression::Zip {
class UnZipArchive;
}

namespace tarn::opc {

class PartImpl : public Part, Noncopyable {
public:
    // `ownEntryName` is empty where the entry has the name's key for its name. `contentType` and
    // `archive` are the package's. The archive may be null: a part without one has no data.
    PartImpl(const PartUri& name, std::u16string ownEntryName, const char16_t* contentType,
             lumo::Compression::Zip::UnZipArchive* archive);
    ~PartImpl() override;

    // For the reader of the part's relationship stream.
    RelationshipIndex& Relationships() noexcept { return relationships_; }

    void Release() override;
    void Close() override;
    const PartUri& GetName() const override { return name_; }
    const unsigned short* GetContentType() const override;
    Relationship* GetRelationshipById(const unsigned short* id) override;
    Relationship* GetRelationshipByType(RelationshipTypeId type, RelationshipCursor* cursor) override;
    const RelationshipMap& GetRelationships() const override { return relationships_.ById(); }
    RelationshipRange GetRelationshipsByType(const unsigned short* type) override;
    bool HasRelationship(const unsigned short* id) override;
    PartData* LoadData() override;
    HRESULT GetStream(IStream** out) override;
    HRESULT GetStorage(IStorage** out) override;
    std::int64_t GetEntryValue() override;

private:
    const char16_t* EntryName() const noexcept;
    HRESULT ExtractEntry(HGBL* block);
    HRESULT MakeStream(IStream** out);

    PartUri name_;
    std::u16string ownEntryName_;
    const char16_t* contentType_;
    RelationshipIndex relationships_;
    lumo::Compression::Zip::UnZipArchive* archive_;
    PartData data_{};
    IStream* stream_ = nullptr;  // data_.dataStream once more, without a reference of its own
    IStorage* storage_ = nullptr;
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_PARTIMPL_H_
