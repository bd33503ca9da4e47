#include "vexpa/opc/UriEscape.h"

namespace tarn::opc {

namespace {

// The value of a hexadecimal digit, or -1.
int HexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

}  // namespace

bool IsUriEscape(std::string_view text, std::size_t at) {
    return text.size() - at >= kUriEscapeSize && text[at] == '%' && HexValue(text[at + 1]) >= 0 &&
           HexValue(text[at + 2]) >= 0;
}

void PercentDecode(std::string_view text, char* out) {
    for (std::size_t at = 0; at < text.size(); ++out) {
        if (IsUriEscape(text, at)) {
            *out = static_cast<char>(HexValue(text[at + 1]) * 16 + HexValue(text[at + 2]));
            at += kUriEscapeSize;
        } else {
            *out = text[at++];
        }
    }
    *out = '\0';
}

}  // namespace tarn::opc
