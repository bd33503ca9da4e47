// Relationship types: folded, and looked up both ways.
#include "fuzz/FuzzTarget.h"
#include "vexpa/opc/NormalizeRelationshipType.h"
#include "vexpa/opc/RelationshipTypes.h"

using namespace tarn::opc;
using vexpa_fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string type = vexpa_fuzz::Units(vexpa_fuzz::Bytes(data, size));
    const std::u16string folded = NormalizeRelationshipType(type);
    Require(folded.size() <= type.size(), "folding adds nothing");
    Require(NormalizeRelationshipType(folded) == folded, "folding twice changes nothing");

    const RelationshipTypeId id = FindRelationshipTypeId(folded);
    if (type.find(u'\0') == std::u16string::npos)
        Require(GetRelationshipTypeId(type.c_str()) == id, "the call folds what it is given");
    if (id == RelTypeUnknown) return 0;
    // A thumbnail answers the id of custom properties, whose own URI is another.
    Require(FindRelationshipTypeUri(id) == folded || id == RelTypeCustomProperties,
            "a known type is the URI of its id");
    return 0;
}
