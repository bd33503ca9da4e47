// vexpa/opc/ContentTypes.h - which content type a package states for a part.
#ifndef VEXPA_OPC_CONTENTTYPES_H_
#define VEXPA_OPC_CONTENTTYPES_H_

#include <map>
#include <string>
#include <string_view>

#include "vexpa/base/UnitOrder.h"
#include "vexpa/opc/PartUri.h"

struct IDomDocument;

namespace tarn::opc {

// Orders part names by code unit, and compares a bare name with the names in a map.
//
// Kept: with case, though ECMA-376 Part 2 says without. (ContentTypes.OverridesAreComparedWithCase)
struct PartNameLess {
    using is_transparent = void;
    bool operator()(const PartUri& a, const PartUri& b) const noexcept {
        return UnitLess()(a.name, b.name);
    }
    bool operator()(const PartUri& a, std::u16string_view b) const noexcept {
        return UnitLess()(a.name, b);
    }
    bool operator()(std::u16string_view a, const PartUri& b) const noexcept {
        return UnitLess()(a, b.name);
    }
};

// The two tables of [Content_Types].xml (ECMA-376 Part 2, content types). Values are kept
// as written, and the first of equal keys wins.
struct ContentTypes {
    // By part name less its leading separator.
    std::map<PartUri, std::u16string, PartNameLess> overrideContentTypes;
    // Kept: by extension exactly as written. No dot is removed, so one written with it is never
    // found, and case matters. (ContentTypes.AnExtensionWithADotNeverMatches,
    // ContentTypes.ExtensionsThatDifferInCaseAreTwo)
    std::map<std::u16string, std::u16string, UnitLess> defaultContentTypes;

    // Adds the Override elements of the document, then its Default elements. One that
    // lacks an attribute is skipped.
    void Read(IDomDocument& document);

    // [borrowed] The content type of a part by its key; empty when the package states none. It is
    // as long as the package likes, so parts do not have copies of it.
    const char16_t* Find(std::u16string_view key) const;
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_CONTENTTYPES_H_
