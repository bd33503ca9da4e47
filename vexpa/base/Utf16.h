// vexpa/base/Utf16.h - crossing between the two types of a UTF-16 code unit.
//
// Public signatures say `const unsigned short*`, as compiled callers know them; inside,
// text is char16_t. The two types mean the same and may not alias, so this header alone
// crosses, and it reads a caller's units as bytes.
//
// Errors   None but that of the standard library, out of memory: CopyText allocates.
// Threads  Any thread at any time.
#ifndef VEXPA_BASE_UTF16_H_
#define VEXPA_BASE_UTF16_H_

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace tarn {

static_assert(sizeof(char16_t) == sizeof(unsigned short), "a code unit is 16 bits wide");

// [borrowed] The same text under the type that public signatures use. The result points into the
// argument: to be passed on, or read by code that knows only its own type.
inline const unsigned short* ToUnits(const char16_t* text) noexcept {
    return reinterpret_cast<const unsigned short*>(text);
}
// [borrowed] The way back.
inline const char16_t* FromUnits(const unsigned short* text) noexcept {
    return reinterpret_cast<const char16_t*>(text);
}

// The length of a caller's NUL-terminated text in code units; null is the empty text.
inline std::size_t TextLength(const unsigned short* text) noexcept {
    if (text == nullptr) return 0;
    using AnyUnit __attribute__((__may_alias__)) = unsigned short;
    const AnyUnit* const units = text;
    // In steps that compilers unroll: Transform measures a URI of some sixty units for every
    // attribute.
    constexpr std::size_t kStep = 8;
    for (std::size_t length = 0;; length += kStep) {
        for (std::size_t i = 0; i < kStep; ++i) {
            if (units[length + i] == 0) return length + i;
        }
    }
}

// A caller's NUL-terminated text, in place; null is the empty text. For code that reads the
// units as bytes (memcmp, memcpy).
inline std::u16string_view ViewText(const unsigned short* text) noexcept {
    return {FromUnits(text), TextLength(text)};
}

// A copy of a caller's NUL-terminated text; null is the empty text.
inline std::u16string CopyText(const unsigned short* text) {
    const std::size_t length = TextLength(text);
    std::u16string copy(length, u'\0');
    if (text != nullptr) std::memcpy(copy.data(), text, length * sizeof(char16_t));
    return copy;
}
inline std::u16string CopyText(const char16_t* text) {
    return CopyText(ToUnits(text));
}

}  // namespace tarn

#endif  // VEXPA_BASE_UTF16_H_
