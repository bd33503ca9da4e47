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

// One namespace URI with one list of names. A URI may have several lists, and a list may
// name another namespace's id or the same name twice; the registry settles that.
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
