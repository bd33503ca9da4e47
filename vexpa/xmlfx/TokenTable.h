// vexpa/xmlfx/TokenTable.h - the vocabulary as static data: names and their tokens.
#ifndef VEXPA_XMLFX_TOKENTABLE_H_
#define VEXPA_XMLFX_TOKENTABLE_H_

#include <cstdint>

namespace tarn::xmlfx {

// One local name. Its token has the namespace's id in the high and the name's index in the
// low 16 bits. Published tokens never change: callers compile them in.
struct NameEntry {
    const char16_t* name;
    std::uint32_t token;
};

// One namespace URI with one list of names. A list may name another namespace's id; the registry
// settles that.
//
// Kept: the empty URI has three lists and that of variant types two, each with an id of its own;
// one list has four rows twice; nine lists have "space" for their only name, so that their
// namespaces are known. Ids 20 and 40 and some indices are not used.
// (Registry.TheEmptyUriHoldsTheUnionOfItsThreeLists,
// Registry.TheVariantTypesUriHoldsTheUnionOfItsTwoLists, Registry.ADoubleRowGivesOneEntry,
// Registry.PackageElementNamesHaveTokensUnderTheEmptyUriOnly,
// Registry.UnusedIndicesHaveNoName)
struct NamespaceRegistration {
    const char16_t* uri;
    const NameEntry* names;
    std::uint32_t nameCount;
};

inline constexpr std::uint32_t kNamespaceRegistrationCount = 44;

// In registration order, which decides who comes first when a name or token repeats. Ready
// before any code runs.
extern const NamespaceRegistration kNamespaceRegistrations[kNamespaceRegistrationCount];

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_TOKENTABLE_H_
