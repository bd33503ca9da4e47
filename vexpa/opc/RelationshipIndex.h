// vexpa/opc/RelationshipIndex.h - the relationships of one source, by Id and by type.
#ifndef VEXPA_OPC_RELATIONSHIPINDEX_H_
#define VEXPA_OPC_RELATIONSHIPINDEX_H_

#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "vexpa/base/Noncopyable.h"
#include "vexpa/base/UnitOrder.h"
#include "vexpa/opc/RelationshipImpl.h"

namespace tarn::opc {

using OwnedObjects = std::vector<std::unique_ptr<Object>>;

// Both maps keep the first relationship of a key, since documents name one thing twice and
// mean the first. The map by Id owns what it holds.
class RelationshipIndex : Noncopyable {
public:
    ~RelationshipIndex() { Clear(); }

    // Files a relationship under its Id and under its folded type, each unless taken. One
    // whose Id is taken goes to `refused`: it may stand in the index by type all the same,
    // so it has to live as long as the index.
    void File(std::unique_ptr<RelationshipImpl> relationship, OwnedObjects& refused);

    const RelationshipMap& ById() const noexcept { return relationshipsById_; }

    // The look-ups of the public interfaces.
    Relationship* FindById(const unsigned short* id) const;
    Relationship* FindByType(RelationshipTypeId type, RelationshipCursor* cursor) const;
    RelationshipRange FindRange(const unsigned short* type) const;

    void Clear() noexcept;

private:
    RelationshipMap relationshipsById_;
    // By folded type, which the relationship has. Does not own.
    std::map<std::u16string_view, Relationship*, UnitLess> relationshipsByType_;
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_RELATIONSHIPINDEX_H_
