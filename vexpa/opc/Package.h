// vexpa/opc/Package.h - an Office Open XML package: where everything starts.
#ifndef VEXPA_OPC_PACKAGE_H_
#define VEXPA_OPC_PACKAGE_H_

#include "vexpa/base/Export.h"
#include "vexpa/base/Handle.h"
#include "vexpa/base/Object.h"
#include "vexpa/base/ShallowCloneable.h"
#include "vexpa/base/Utf16.h"
#include "vexpa/opc/Part.h"
#include "vexpa/opc/PartUri.h"
#include "vexpa/opc/Relationship.h"
#include "vexpa/opc/RelationshipTypeId.h"

namespace tarn::opc {

// An open package (ECMA-376 Part 2): its relationships and, through them, its parts.
//
//     const tarn::Library library;  // once, before anything else: vexpa/base/Lifecycle.h
//     Handle<opc::Package> package = opc::Package::Open(u"report.docx");
//     if (!package) return;  // not readable, or no package
//     opc::Relationship* start = package->GetRelationshipByType(opc::RelTypeOfficeDocument);
//     opc::Part* document = start ? package->GetPart(start->GetResolvedTarget()) : nullptr;
//
// Part names  'word/document.xml' and '/word/document.xml' are the same part: one leading
//           '/' or '\' does not count. Otherwise names are compared exactly, case included.
// Lifetime  Releasing the handle closes the package and ends every part and relationship.
//           Streams and storages outlive it as long as the caller holds them. No file is
//           kept open: bytes are read from the path when they are asked for.
// Errors    A look-up answers null or an empty handle for "not there". Only the standard
//           library throws (out of memory).
// Threads   One thread at a time for a package and everything that came from it; different
//           packages may be used from different threads, also while a thread or the process
//           ends. The child of a fork, where other threads of its parent may have been in a call,
//           calls nothing of the library before exec: a lock may be held.
//
// The order of the virtual members is the binary interface: nothing is inserted,
// moved or removed. tests/abi/SlotOrderTest.cpp fails when it changes.
class Package : public Object, public ShallowCloneable {
public:
    // [owned] Opens the package at `path`, NUL-terminated UTF-16. The path passes through the
    // 8-bit encoding of the process locale: what that cannot say is not found. It may
    // be gone when static objects end: from then on only ASCII is found, in paths and part names.
    //
    // Empty when `path` is a null pointer of either type, when the file is not readable or is no
    // zip archive, when [Content_Types].xml or _rels/.rels is missing, damaged or malformed, when
    // the last relationship of the package has no part, when the relationships of the package would
    // take more than 512 MiB, or when the platform has no memory. A failure is not remembered.
    // `flags` has no effect.
    [[nodiscard]] VEXPA_API static Handle<Package> Open(const unsigned short* path, unsigned int flags);

    // Ends all parts and relationships and closes the archive. Look-ups then find nothing;
    // there is no way to open the package again.
    virtual void Close() = 0;

    // [borrowed] The part of this name, loaded with its relationships on first use; null
    // when the archive has no such entry. '\' is read as '/', so one entry can be reached under
    // several names: at most 16 spellings with '\' for each entry, and null for further ones.
    //
    // A relationship stream that is missing or cannot be read leaves the part without. Once the
    // relationships of the package and its parts take 512 MiB, or their streams hold 16 MiB of
    // other text, a part that is loaded later gets only the first of its own, or none.
    virtual Part* GetPart(const PartUri& name) = 0;

    // Whether the archive has an entry for this name, which must begin with '/'.
    // The first unit is dropped unseen: without the slash, a real character is lost.
    virtual bool PartExists(const PartUri& name) = 0;

    // The relationships of the package itself, by Id.
    virtual const RelationshipMap& GetRelationships() const = 0;

    // [borrowed] The relationship with exactly this Id (case matters), or null.
    virtual Relationship* GetRelationshipById(const unsigned short* id) = 0;

    // [borrowed] The first relationship of this type in document order, or null.
    // `cursor` may be null.
    virtual Relationship* GetRelationshipByType(RelationshipTypeId type,
                                                RelationshipCursor* cursor) = 0;

    // The range of the index by type whose key is exactly `type`: a type URI in lower case
    // with slashes, as GetRelationshipTypeUri gives it.
    virtual RelationshipRange GetRelationshipsByType(const unsigned short* type) = 0;

    // Whether GetRelationshipById would find one.
    virtual bool HasRelationshipById(const unsigned short* id) = 0;

    // [borrowed] The part of this name if it is loaded already, else null. It only looks among
    // the loaded parts, and reads nothing: GetPart loads one.
    virtual Part* FindPart(const unsigned short* name) = 0;

    // [owned] Empty: a package cannot be copied. Nor can it be shared: ShallowClone is empty, too.
    virtual Handle<Package> Clone() = 0;

    // [owned] For callers whose text is char16_t.
    [[nodiscard]] static Handle<Package> Open(const char16_t* path) { return Open(ToUnits(path), 0); }
    [[nodiscard]] static Handle<Package> Open(const char16_t* path, unsigned int flags) {
        return Open(ToUnits(path), flags);
    }

    // [borrowed] For callers whose text is char16_t: what the operation of the name answers.
    Relationship* GetRelationshipById(const char16_t* id) { return GetRelationshipById(ToUnits(id)); }
    Relationship* GetRelationshipByType(RelationshipTypeId type) {
        return GetRelationshipByType(type, nullptr);
    }
    RelationshipRange GetRelationshipsByType(const char16_t* type) {
        return GetRelationshipsByType(ToUnits(type));
    }
    bool HasRelationshipById(const char16_t* id) { return HasRelationshipById(ToUnits(id)); }
    Part* GetPart(const char16_t* name) { return GetPart(PartUri(name)); }
    Part* FindPart(const char16_t* name) { return FindPart(ToUnits(name)); }
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_PACKAGE_H_
