// runtime/zip/Utf8.h - the form in which names are kept and compared.
#ifndef VEXPA_RUNTIME_ZIP_UTF8_H_
#define VEXPA_RUNTIME_ZIP_UTF8_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace vexpa_runtime::zip {

constexpr char32_t kReplacementCharacter = 0xFFFD;

bool IsAscii(std::string_view text) noexcept;

// Strictly: no overlong forms, no surrogates, nothing above U+10FFFF.
bool IsUtf8(std::string_view text) noexcept;

// The character at text[at], and `at` moved behind it. The text must be valid UTF-8.
char32_t NextCharacter(std::string_view text, std::size_t& at) noexcept;

void AppendUtf8(std::string& out, char32_t character);
// Appends `text`, which must be valid UTF-8.
void AppendUtf16(std::u16string& out, std::string_view text);

// Lone surrogates become U+FFFD.
std::string Utf8FromUtf16(std::u16string_view text);

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_UTF8_H_
