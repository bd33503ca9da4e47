// vexpa/base/Utf8.h - between the UTF-16 of the interfaces and UTF-8.
//
// A document decides what is in its names and values, so nothing ill-formed is refused: it becomes
// U+FFFD, once for each lone surrogate, and in UTF-8 as the Unicode Standard recommends (3.9,
// substitution of maximal subparts). Such a text does not come back as it was: parts and
// relationships are looked up by the UTF-16 that the interfaces handed out.
//
// Errors   None but that of the standard library, out of memory.
// Threads  Any thread at any time.
#ifndef VEXPA_BASE_UTF8_H_
#define VEXPA_BASE_UTF8_H_

#include <string>
#include <string_view>

#include "vexpa/base/Utf16.h"

namespace tarn {

namespace detail {

// Stands for what is ill-formed.
inline constexpr char32_t kReplacementCharacter = 0xFFFD;

// Takes the first character off a text that is not empty.
inline char32_t TakeCharacter(std::u16string_view& text) noexcept {
    const char32_t unit = text.front();
    text.remove_prefix(1);
    if (unit < 0xD800 || unit > 0xDFFF) return unit;
    if (unit > 0xDBFF || text.empty() || (text.front() & 0xFC00) != 0xDC00)
        return kReplacementCharacter;
    const char32_t trail = text.front();
    text.remove_prefix(1);
    return 0x10000 + ((unit - 0xD800) << 10) + (trail - 0xDC00);
}

// The same for UTF-8. Of an ill-formed piece, it takes what could begin a character.
inline char32_t TakeCharacter(std::string_view& text) noexcept {
    const unsigned int lead = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    if (lead < 0x80) return lead;
    if (lead < 0xC2 || lead > 0xF4) return kReplacementCharacter;

    // After four of the leads the second byte has a narrower range. Outside it lie surrogates, what
    // is beyond U+10FFFF, and what is longer than need be.
    unsigned int least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned int most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    const int following = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    char32_t character = lead & (0x3FU >> following);
    for (int i = 0; i < following; ++i) {
        const unsigned int byte = text.empty() ? 0 : static_cast<unsigned char>(text.front());
        if (byte < least || byte > most) return kReplacementCharacter;
        text.remove_prefix(1);
        character = character << 6 | (byte & 0x3F);
        least = 0x80;
        most = 0xBF;
    }
    return character;
}

}  // namespace detail

// The text in UTF-8.
inline std::string ToUtf8(std::u16string_view text) {
    constexpr char32_t kLeads[] = {0x00, 0xC0, 0xE0, 0xF0};
    std::string utf8;
    utf8.reserve(text.size());
    while (!text.empty()) {
        const char32_t character = detail::TakeCharacter(text);
        const int following = character < 0x80      ? 0
                              : character < 0x800   ? 1
                              : character < 0x10000 ? 2
                                                    : 3;
        utf8.push_back(static_cast<char>(kLeads[following] | character >> 6 * following));
        for (int i = following - 1; i >= 0; --i) {
            utf8.push_back(static_cast<char>(0x80 | (character >> 6 * i & 0x3F)));
        }
    }
    return utf8;
}
// The same for a text as the interfaces hand it out: NUL-terminated; null is the empty text.
inline std::string ToUtf8(const unsigned short* text) {
    return ToUtf8(CopyText(text));
}
inline std::string ToUtf8(const char16_t* text) {
    return ToUtf8(ToUnits(text));
}

// The text in UTF-16.
inline std::u16string FromUtf8(std::string_view text) {
    std::u16string utf16;
    utf16.reserve(text.size());
    while (!text.empty()) {
        const char32_t character = detail::TakeCharacter(text);
        if (character < 0x10000) {
            utf16.push_back(static_cast<char16_t>(character));
            continue;
        }
        utf16.push_back(static_cast<char16_t>(0xD7C0 + (character >> 10)));
        utf16.push_back(static_cast<char16_t>(0xDC00 | (character & 0x3FF)));
    }
    return utf16;
}

}  // namespace tarn

#endif  // VEXPA_BASE_UTF8_H_
