// vexpa/opc/Part.h - one part of an open package.
#ifndef VEXPA_OPC_PART_H_
#define VEXPA_OPC_PART_H_

#include <cstdint>

#include "vexpa/base/Object.h"
#include "vexpa/base/Result.h"
#include "vexpa/base/Utf16.h"
#include "vexpa/opc/PartUri.h"
#include "vexpa/opc/Relationship.h"
#include "vexpa/opc/RelationshipTypeId.h"

namespace tarn::opc {

// A part's loaded data. Callers read it through Part::GetStream; the record is here because
// LoadData hands it out. It is the part's, and lasts as long.
struct PartData {
    std::uint8_t* bytes;      // null: the bytes are the stream's
    std::uint32_t length;     // of `bytes`
    std::uint32_t ownsBytes;  // non-zero: the part frees `bytes` with delete[]
    IStream* dataStream;      // [borrowed] null until the entry was extracted
    std::uint8_t* position;   // where `bytes` was when the stream was made
    std::uint8_t* end;        // the same
};

// A part's name, content type, relationships and data.
//
// Lifetime  The package owns its parts. A Part, and every string and reference it hands
//           out, is valid until the package is closed or released. Streams and storages
//           outlive the part as long as the caller holds them.
// Errors    A look-up answers null for "not there". An operation with an out argument
//           answers an HRESULT: when the platform has no memory for an entry, that is E_FAIL.
//           What the library allocates for itself throws std::bad_alloc.
// Threads   One thread at a time for a package and everything that came from it.
//
// The order of the virtual members is the binary interface: nothing is inserted,
// moved or removed. tests/abi/SlotOrderTest.cpp fails when it changes.
class Part : public Object {
public:
    // Gives up the relationships and the storage; the stream stays. The package calls it.
    virtual void Close() = 0;

    // The name as it was first asked for, with or without its leading '/'.
    virtual const PartUri& GetName() const = 0;

    // [borrowed] Never null; empty when the package states no content type for the part.
    virtual const unsigned short* GetContentType() const = 0;

    // [borrowed] The relationship with exactly this Id (case matters), or null.
    virtual Relationship* GetRelationshipById(const unsigned short* id) = 0;

    // [borrowed] The first relationship of this type in document order, or null. Where a
    // type can occur several times (headers, images), go through GetRelationships instead.
    // `cursor` may be null.
    virtual Relationship* GetRelationshipByType(RelationshipTypeId type,
                                                RelationshipCursor* cursor) = 0;

    // All relationships, by Id.
    virtual const RelationshipMap& GetRelationships() const = 0;

    // The range of the index by type whose key is exactly `type`: a type URI in lower case
    // with slashes, as GetRelationshipTypeUri gives it.
    virtual RelationshipRange GetRelationshipsByType(const unsigned short* type) = 0;

    // Whether GetRelationshipById would find one.
    virtual bool HasRelationship(const unsigned short* id) = 0;

    // Extracts the entry into a stream unless that is done already. [borrowed] The record;
    // its dataStream stays null when the entry cannot be extracted.
    virtual PartData* LoadData() = 0;

    // [shared] Stores the part's bytes in *out as a stream; the caller releases it.
    //
    // The entry is extracted on the first call and kept. Every caller gets the same
    // stream, hence the same seek position: seek to the start before reading. A failed
    // extraction is not remembered, so a later call tries again.
    //
    //   S_OK          *out is the stream; an empty entry gives an empty stream
    //   E_INVALIDARG  out is null
    //   E_FAIL        the entry is missing, damaged, encrypted or beyond the limits, or there is
    //                 no memory for it; *out is null
    [[nodiscard]] virtual HRESULT GetStream(IStream** out) = 0;

    // [shared] Stores the compound file that the part holds in *out; the caller releases it.
    //
    // The entry is extracted once more, independently of the stream, and the storage is
    // kept until Close. A failure is not remembered.
    //
    //   S_OK          *out is the storage
    //   E_INVALIDARG  out is null
    //   E_FAIL        the entry cannot be extracted, or there is no memory for it: *out is null;
    //                 or it cannot be opened as a compound file: *out is untouched
    [[nodiscard]] virtual HRESULT GetStorage(IStorage** out) = 0;

    // 0: the value that the archive keeps for each entry and nothing sets.
    virtual std::int64_t GetEntryValue() = 0;

    // [borrowed] For callers whose text is char16_t: what the operation of the name answers.
    Relationship* GetRelationshipById(const char16_t* id) { return GetRelationshipById(ToUnits(id)); }
    RelationshipRange GetRelationshipsByType(const char16_t* type) {
        return GetRelationshipsByType(ToUnits(type));
    }
    bool HasRelationship(const char16_t* id) { return HasRelationship(ToUnits(id)); }
    Relationship* GetRelationshipByType(RelationshipTypeId type) {
        return GetRelationshipByType(type, nullptr);
    }
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_PART_H_
