// vexpa/opc/Relationship.h - one relationship of a package or of a part.
#ifndef VEXPA_OPC_RELATIONSHIP_H_
#define VEXPA_OPC_RELATIONSHIP_H_

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "vexpa/base/Object.h"
#include "vexpa/opc/PartUri.h"
#include "vexpa/opc/RelationshipTypeId.h"
#include "vexpa/opc/TargetMode.h"

namespace tarn::opc {

// A link from the package or from a part to a part, or to something outside
// (ECMA-376 Part 2, relationships). It never changes once it is made.
//
// Lifetime  The package or part that read it owns it. A Relationship, and every string and
//           reference it hands out, is valid until the package is closed or released.
// Errors    None: what a document left out is an empty text.
// Threads   One thread at a time for a package and everything that came from it.
//
// The order of the virtual members is the binary interface: nothing is inserted,
// moved or removed. tests/abi/SlotOrderTest.cpp fails when it changes.
class Relationship : public Object {
public:
    // [borrowed] The Id as written; never null.
    virtual const unsigned short* GetId() const = 0;

    // The known type, in any mixture of case; RelTypeUnknown for any other.
    // A thumbnail answers RelTypeCustomProperties: ask GetType when the two must be told apart.
    virtual RelationshipTypeId GetTypeId() const = 0;

    // [borrowed] The type URI as written; never null.
    virtual const unsigned short* GetType() const = 0;

    // The target as a part name, resolved against the source part: what to give to
    // Package::GetPart. An absolute URI stays as it is.
    virtual const PartUri& GetResolvedTarget() const = 0;

    // The part that holds the relationship; empty for one of the package.
    virtual const PartUri& GetSource() const = 0;

    // Whether the target is a part of the package or something outside it.
    virtual TargetMode GetTargetMode() const = 0;

    // The target as written.
    virtual const PartUri& GetTarget() const = 0;
};

// [borrowed] Relationships by Id, in the order of code units: rId10 stands before rId2. They belong
// to the package or part that hands out the map.
using RelationshipMap = std::map<std::u16string, Relationship*, std::less<>>;

// What GetRelationshipByType can fill in besides its result. The caller's own record; the
// relationship in it lasts as long as any other.
struct RelationshipCursor {
    Relationship* current;    // [borrowed] the result once more; null when there is none
    std::uintptr_t position;  // 0
};

// Where the relationships of a type stand in the index by type: at most one does, and exactly when
// `first` is not `next`. For a type that is not there, both are the one that follows in the index,
// or null at its end. The relationships last as long as any other.
struct RelationshipRange {
    // Whether there is none of this type.
    bool IsEmpty() const noexcept { return first == next; }

    Relationship* first;  // [borrowed] the one of this type, if there is one
    Relationship* next;   // [borrowed] the one just after the range, null at the end of the index
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_RELATIONSHIP_H_
