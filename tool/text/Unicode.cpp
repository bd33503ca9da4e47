#include "tool/text/Unicode.h"

#include <algorithm>
#include <cstdio>
#include <cwchar>

namespace vexpa_tool {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

bool IsBetween(char32_t first, char32_t character, char32_t last) {
    return first <= character && character <= last;
}

std::string Escaped(char32_t character) {
    const char* format = character <= 0xFF ? "\\x%02x" : character <= 0xFFFF ? "\\u%04x" : "\\U%08x";
    char text[16];
    std::snprintf(text, sizeof text, format, static_cast<unsigned>(character));
    return text;
}

}  // namespace

char32_t TakeCharacter(std::u16string_view& text) {
    const char32_t unit = text.front();
    text.remove_prefix(1);
    if (IsLowSurrogate(unit)) return kReplacement;
    if (!IsHighSurrogate(unit)) return unit;
    if (text.empty() || !IsLowSurrogate(text.front())) return kReplacement;

    const char32_t low = text.front();
    text.remove_prefix(1);
    return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
}

char32_t TakeUtf8(std::string_view& utf8) {
    const auto lead = static_cast<unsigned char>(utf8.front());
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length && i < utf8.size(); ++i) {
        character = (character << 6) | (static_cast<unsigned char>(utf8[i]) & 0x3F);
    }
    utf8.remove_prefix(std::min(length, utf8.size()));
    return character;
}

void AppendUtf8(char32_t character, std::string& utf8) {
    const auto append = [&utf8](char32_t byte) { utf8.push_back(static_cast<char>(byte)); };
    if (character < 0x80) return append(character);
    if (character < 0x800) {
        append(0xC0 | (character >> 6));
    } else if (character < 0x10000) {
        append(0xE0 | (character >> 12));
        append(0x80 | ((character >> 6) & 0x3F));
    } else {
        append(0xF0 | (character >> 18));
        append(0x80 | ((character >> 12) & 0x3F));
        append(0x80 | ((character >> 6) & 0x3F));
    }
    append(0x80 | (character & 0x3F));
}

void AppendUtf16(char32_t character, std::u16string& text) {
    if (character < 0x10000) {
        text.push_back(static_cast<char16_t>(character));
        return;
    }
    text.push_back(static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
}

std::string ToUtf8(std::u16string_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    while (!text.empty()) AppendUtf8(TakeCharacter(text), utf8);
    return utf8;
}

std::u16string FromUtf8(std::string_view utf8) {
    std::u16string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) AppendUtf16(TakeUtf8(utf8), text);
    return text;
}

bool IsUnsafeToPrint(char32_t character) {
    if (character < 0x20 || IsBetween(0x7F, character, 0x9F)) return true;
    if (character == 0x061C || character == 0x200E || character == 0x200F) return true;
    if (IsBetween(0x2028, character, 0x202E) || IsBetween(0x2066, character, 0x2069)) return true;
    return IsBetween(0xFDD0, character, 0xFDEF) || (character & 0xFFFE) == 0xFFFE;
}

std::string Printable(std::u16string_view text) {
    std::string printable;
    printable.reserve(text.size());
    while (!text.empty()) {
        const char32_t character = TakeCharacter(text);
        if (IsUnsafeToPrint(character)) {
            printable += Escaped(character);
        } else {
            AppendUtf8(character, printable);
        }
    }
    return printable;
}

std::string PrintableOrQuotes(std::u16string_view text) {
    return text.empty() ? "\"\"" : Printable(text);
}

std::size_t DisplayWidth(std::string_view printable) {
    std::size_t width = 0;
    while (!printable.empty()) {
        const int columns = wcwidth(static_cast<wchar_t>(TakeUtf8(printable)));
        width += columns < 0 ? 1 : static_cast<std::size_t>(columns);
    }
    return width;
}

}  // namespace vexpa_tool
