#include "tool/text/JsonText.h"

#include <cstdio>
#include <string_view>

#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

void AppendEscaped(char32_t character, std::string& json) {
    std::u16string units;
    AppendUtf16(character, units);
    for (const char16_t unit : units) {
        char text[8];
        std::snprintf(text, sizeof text, "\\u%04x", static_cast<unsigned>(unit));
        json += text;
    }
}

std::string Escaped(const std::string& plain) {
    std::string safe;
    safe.reserve(plain.size());
    for (std::string_view rest = plain; !rest.empty();) {
        const std::string_view before = rest;
        const char32_t character = TakeUtf8(rest);
        // A line feed stands between the members, never inside a text.
        if (character != U'\n' && IsUnsafeToPrint(character)) {
            AppendEscaped(character, safe);
        } else {
            safe += before.substr(0, before.size() - rest.size());
        }
    }
    return safe;
}

}  // namespace

std::string JsonText(const Json& json) {
    return Escaped(json.dump(2));
}

std::string JsonLine(const Json& json) {
    return Escaped(json.dump());
}

}  // namespace vexpa_tool
