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

std::string NamespaceOfRoot(const XmlStartTag& tag) {
    const std::string_view name = tag.name;
    const std::size_t colon = name.find(':');
    const std::string declaration =
        colon == name.npos ? "xmlns" : "xmlns:" + std::string(name.substr(0, colon));
    return AttributeOf(tag, declaration).value_or("");
}

}  // namespace vexpa_tool
