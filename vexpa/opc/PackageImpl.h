// vexpa/opc/PackageImpl.h - an open package over its zip archive.
#ifndef VEXPA_OPC_PACKAGEIMPL_H_
#define VEXPA_OPC_PACKAGEIMPL_H_

#include <cstddef>
#include <map>
#include <memory>
#include <memory_resource>
#include <string>
#include <vector>

#include "vexpa/base/Noncopyable.h"
#include "vexpa/base/UnitOrder.h"
#include "vexpa/opc/ContentTypes.h"
#include "vexpa/opc/Package.h"
#include "vexpa/opc/PartImpl.h"
#include "vexpa/opc/RelationshipAllowance.h"
#include "vexpa/opc/RelationshipIndex.h"
#include "vexpa/opc/SpellingAllowance.h"
#include "vexpa/opc/TypeText.h"
#include "vexpa/zip/UnZipArchive.h"

namespace tarn::opc {

class PackageImpl : public Package, Noncopyable {
public:
    explicit PackageImpl(RelationshipAllowance allowance = RelationshipAllowance());
    ~PackageImpl() override;

    // The steps of opening, in this order and once; each result is negative on failure.
    HRESULT OpenArchive(const char16_t* path);
    HRESULT ReadContentTypes();
    HRESULT ReopenArchive();
    HRESULT ReadPackageRelationships();

    void Release() override;
    void Close() override;
    Part* GetPart(const PartUri& name) override;
    bool PartExists(const PartUri& name) override;
    const RelationshipMap& GetRelationships() const override { return relationships_.ById(); }
    Relationship* GetRelationshipById(const unsigned short* id) override;
    Relationship* GetRelationshipByType(RelationshipTypeId type, RelationshipCursor* cursor) override;
    RelationshipRange GetRelationshipsByType(const unsigned short* type) override;
    bool HasRelationshipById(const unsigned short* id) override;
    Part* FindPart(const unsigned short* name) override;
    // Kept: no copy and no share; the slots are published. (PackageClone.IsEmptyEitherWay)
    Handle<Package> Clone() override { return {}; }
    Handle<Object> ShallowClone() override { return {}; }

private:
    // By key, where the part stands in parts_. Beyond the end of the list there is none, as in a
    // closed package: Close empties only the list.
    using PartsByName = std::pmr::map<std::pmr::u16string, std::size_t, UnitLess>;

    HRESULT OpenEntry(const char16_t* entryName, IStream** stream);
    PartImpl* LoadedAt(PartsByName::const_iterator place, std::u16string_view key) const;
    bool MayLoad(std::u16string_view key);
    PartImpl* LoadPart(const PartUri& name, std::u16string_view key, PartsByName::const_iterator place);
    void ReadPartRelationships(PartImpl& part);

    lumo::Compression::Zip::UnZipArchive archive_;
    OwnedObjects ownedObjects_;  // relationships that their Id map refused
    RelationshipAllowance allowance_;
    SpellingAllowance spellings_;
    TypeTexts types_;
    // Nodes side by side, freed at once; the default resource may end before the package does.
    std::pmr::monotonic_buffer_resource indexMemory_{std::pmr::new_delete_resource()};
    PartsByName partsByName_{&indexMemory_};
    std::vector<std::unique_ptr<PartImpl>> parts_;
    RelationshipIndex relationships_;
    std::u16string packagePath_;
    ContentTypes contentTypes_;
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_PACKAGEIMPL_H_
