#include "tool/container/SpelledName.h"

#include <string_view>

#include "runtime/text/Utf8.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

std::string SpelledName(const Container& container, const ContainerEntry& entry) {
    std::string_view listed = entry.name;
    const std::string raw = container.RawName(entry);
    if (raw.find('\0') == std::string::npos) return std::string(listed);
    // Each character of the bytes, in UTF-8 or a code page of bytes, has become one of the name.
    const bool isUtf8 = vexpa_runtime::IsUtf8(raw);
    std::string spelled;
    for (std::string_view rest = raw; !rest.empty() && !listed.empty();) {
        const char32_t character = TakeUtf8(listed);
        AppendUtf8(rest.front() == '\0' ? U'\0' : character, spelled);
        if (isUtf8) {
            TakeUtf8(rest);
        } else {
            rest.remove_prefix(1);
        }
    }
    return spelled;
}

}  // namespace vexpa_tool
