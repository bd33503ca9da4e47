#include "tool/check/StartTag.h"

namespace vexpa_tool {

std::string_view LocalName(std::string_view name) {
    return name.substr(name.find(':') + 1);  // npos + 1 is 0
}

std::optional<std::string> AttributeOf(const XmlStartTag& tag, std::string_view name) {
    for (const char* const* at = tag.attributes; *at != nullptr; at += 2) {
        if (*at == name) return at[1];
    }
    return std::nullopt;
}

bool IsRoot(const XmlStartTag& tag, std::string_view localName, std::string_view uri) {
    const std::string_view name = tag.name;
    if (LocalName(name) != localName) return false;
    const std::size_t colon = name.find(':');
    const std::string declaration =
        colon == name.npos ? "xmlns" : "xmlns:" + std::string(name.substr(0, colon));
    return AttributeOf(tag, declaration) == uri;
}

}  // namespace vexpa_tool
