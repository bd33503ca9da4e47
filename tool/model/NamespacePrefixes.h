// tool/model/NamespacePrefixes.h - the prefixes that people know namespaces by.
#ifndef VEXPA_TOOL_MODEL_NAMESPACEPREFIXES_H_
#define VEXPA_TOOL_MODEL_NAMESPACEPREFIXES_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vexpa_tool {

struct NamespacePrefix {
    std::u16string_view prefix;
    std::uint32_t namespaceId;  // the high 16 bits of its tokens
    std::u16string_view uri;    // which other prefixes may have as well
};

inline constexpr std::size_t kNamespacePrefixCount = 44;

// In the order in which the library registers them. Written by vexpa/xmlfx/make_token_table.py.
extern const std::array<NamespacePrefix, kNamespacePrefixCount> kNamespacePrefixes;

// [borrowed] Null for a prefix outside the list.
const NamespacePrefix* FindPrefix(std::u16string_view prefix);

// xml:space and the like belong to XML itself: nobody needs a token for them.
bool IsXmlNamespace(std::u16string_view uri);

// The prefix of a namespace, the one for this token's part of it where there are several;
// empty when the library does not know the namespace. The shortest, which is how documents
// have it, for a token of none of them.
std::u16string_view PrefixOf(std::u16string_view uri, std::uint32_t token);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_NAMESPACEPREFIXES_H_
