#include "tool/text/Unicode.h"

#include <QString>
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cwchar>
#include <iterator>

#include "runtime/text/Utf8.h"

namespace vexpa_tool {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool escapesBeyondAscii = false;

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

std::size_t EscapeDigits(char16_t letter) {
    return letter == u'x' ? 2 : letter == u'u' ? 4 : letter == u'U' ? 8 : 0;
}

int HexDigit(char16_t unit) {
    if (unit >= u'0' && unit <= u'9') return unit - u'0';
    return unit >= u'a' && unit <= u'f' ? unit - u'a' + 10 : -1;
}

// Takes an escape off the text; false when it does not begin with one.
bool TakeEscape(std::u16string_view& text, char32_t& character) {
    if (text.size() < 2 || text[0] != u'\\') return false;
    const std::size_t digits = EscapeDigits(text[1]);
    if (digits == 0 || text.size() < 2 + digits) return false;
    std::uint32_t value = 0;
    for (const char16_t unit : text.substr(2, digits)) {
        const int digit = HexDigit(unit);
        if (digit < 0) return false;
        value = value * 16 + static_cast<std::uint32_t>(digit);
    }
    if (value > 0x10FFFF) return false;
    character = value;
    text.remove_prefix(2 + digits);
    return true;
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
    vexpa_runtime::AppendUtf8(utf8, character);
}

void AppendUtf16(char32_t character, std::u16string& text) {
    vexpa_runtime::WriteCharacter(character, std::back_inserter(text));
}

bool IsUnsafeToPrint(char32_t character) {
    if (character < 0x20 || IsBetween(0x7F, character, 0x9F)) return true;
    if (character == 0x061C || character == 0x200E || character == 0x200F) return true;
    if (IsBetween(0x2028, character, 0x202E) || IsBetween(0x2066, character, 0x2069)) return true;
    return IsBetween(0xFDD0, character, 0xFDEF) || (character & 0xFFFE) == 0xFFFE;
}

std::string_view TakeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

std::string PrintableLine(std::string_view bytes) {
    const std::u16string text =
        QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size())).toStdU16String();
    std::string printable;
    for (std::u16string_view rest = text;;) {
        const std::size_t tab = rest.find(u'\t');
        printable += Printable(rest.substr(0, tab));
        if (tab == std::u16string_view::npos) return printable;
        printable += '\t';
        rest.remove_prefix(tab + 1);
    }
}

void EscapeBeyondAscii(bool escape) {
    escapesBeyondAscii = escape;
}

std::string Printable(std::u16string_view text) {
    std::string printable;
    printable.reserve(text.size());
    while (!text.empty()) {
        const char32_t character = TakeCharacter(text);
        if (IsUnsafeToPrint(character) || (escapesBeyondAscii && character > 0x7E)) {
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

std::u16string Unescaped(std::u16string_view printable) {
    std::u16string text;
    while (!printable.empty()) {
        char32_t character = 0;
        if (TakeEscape(printable, character)) {
            AppendUtf16(character, text);
        } else {
            text += printable.front();
            printable.remove_prefix(1);
        }
    }
    return text;
}

std::size_t DisplayWidth(std::string_view printable) {
    std::size_t width = 0;
    while (!printable.empty()) {
        // Printable leaves no escape character, so this one begins or ends an ink.
        if (printable.front() == '\x1b') {
            printable.remove_prefix(std::min(printable.find('m') + 1, printable.size()));
            continue;
        }
        const int columns = wcwidth(static_cast<wchar_t>(TakeUtf8(printable)));
        width += columns < 0 ? 1 : static_cast<std::size_t>(columns);
    }
    return width;
}

}  // namespace vexpa_tool
