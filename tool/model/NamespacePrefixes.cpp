#include "tool/model/NamespacePrefixes.h"

#include <algorithm>

namespace vexpa_tool {

const NamespacePrefix* FindPrefix(std::u16string_view prefix) {
    const auto found = std::find_if(kNamespacePrefixes.begin(), kNamespacePrefixes.end(),
                                    [&](const NamespacePrefix& row) { return row.prefix == prefix; });
    return found == kNamespacePrefixes.end() ? nullptr : &*found;
}

std::u16string_view PrefixOf(std::u16string_view uri, std::uint32_t token) {
    std::u16string_view first;
    for (const NamespacePrefix& row : kNamespacePrefixes) {
        if (row.uri != uri) continue;
        if (row.namespaceId == token >> 16) return row.prefix;
        if (first.empty()) first = row.prefix;
    }
    return first;
}

}  // namespace vexpa_tool
