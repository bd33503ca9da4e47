// tool/model/NameLookup.h - looks the vocabulary up by what a person types.
#ifndef VEXPA_TOOL_MODEL_NAMELOOKUP_H_
#define VEXPA_TOOL_MODEL_NAMELOOKUP_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tool/model/Vocabulary.h"

namespace vexpa_tool {

struct VocabularyName {
    std::uint32_t token;
    std::u16string_view uri;
    std::u16string_view name;
};

// What `name` stands for: "w:val" with the usual prefix, "{uri}val", "val" in every
// namespace that has it, in the order of the namespaces; "0x00010001" is a token: the name that
// it leads back to, and then those that share it on the way there. Empty when
// the library does not know it. The answer refers to `name`.
std::vector<VocabularyName> LookUp(const Vocabulary& vocabulary, std::u16string_view name);

// Whether the text can only be a token, which no name begins like; and whether it is one.
bool LooksLikeToken(std::u16string_view text);
bool IsToken(std::u16string_view text);

// "w:val"; "{uri}val" for a namespace without a usual prefix.
std::u16string QualifiedName(const VocabularyName& name);

// "0x00010001"
std::string TokenText(std::uint32_t token);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_NAMELOOKUP_H_
