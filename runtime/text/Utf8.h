// runtime/text/Utf8.h - UTF-8 from and to UTF-16, and character by character.
#ifndef VEXPA_RUNTIME_TEXT_UTF8_H_
#define VEXPA_RUNTIME_TEXT_UTF8_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace vexpa_runtime {

constexpr char32_t kReplacementCharacter = 0xFFFD;

bool IsAscii(std::string_view text) noexcept;

// Strictly: no overlong forms, no surrogates, nothing above U+10FFFF.
bool IsUtf8(std::string_view text) noexcept;

// The character at text[at], and `at` moved behind it. The text must be valid UTF-8.
char32_t NextCharacter(std::string_view text, std::size_t& at) noexcept;

void AppendUtf8(std::string& out, char32_t character);

// Writes the one or two units of `character` to `out`, and answers where they end.
template <class Out>
Out WriteCharacter(char32_t character, Out out) {
    if (character < 0x10000) {
        *out++ = static_cast<char16_t>(character);
    } else {
        *out++ = static_cast<char16_t>(0xD7C0 + (character >> 10));
        *out++ = static_cast<char16_t>(0xDC00 + (character & 0x3FF));
    }
    return out;
}

// Appends `text`, which must be valid UTF-8.
void AppendUtf16(std::u16string& out, std::string_view text);

// Lone surrogates become U+FFFD.
std::string Utf8FromUtf16(std::u16string_view text);

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_TEXT_UTF8_H_
