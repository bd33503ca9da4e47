#include "tool/model/NamespacePrefixes.h"

#include <algorithm>

namespace vexpa_tool {

const NamespacePrefix* FindPrefix(std::u16string_view prefix) {
    const auto found = std::find_if(kNamespacePrefixes.begin(), kNamespacePrefixes.end(),
                                    [&](const NamespacePrefix& row) { return row.prefix == prefix; });
    return found == kNamespacePrefixes.end() ? nullptr : &*found;
}

bool IsXmlNamespace(std::u16string_view uri) {
    return uri == u"http://www.w3.org/XML/1998/namespace";
}

std::u16string_view PrefixOf(std::u16string_view uri, std::uint32_t token) {
    std::u16string_view shortest;
    for (const NamespacePrefix& row : kNamespacePrefixes) {
        if (row.uri != uri) continue;
        if (row.namespaceId == token >> 16) return row.prefix;
        if (shortest.empty() || row.prefix.size() < shortest.size()) shortest = row.prefix;
    }
    return shortest;
}

}  // namespace vexpa_tool
