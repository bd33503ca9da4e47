#include "runtime/text/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace vexpa_runtime {

namespace {

std::uint8_t Byte(std::string_view text, std::size_t at) {
    return static_cast<std::uint8_t>(text[at]);
}

bool IsLead(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsTrail(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// Bytes of the well-formed sequence at text[at], 0 when there is none (RFC 3629, section 4).
std::size_t SequenceLength(std::string_view text, std::size_t at) {
    const std::uint8_t first = Byte(text, at);
    if (first < 0x80) return 1;
    if (first < 0xC2 || first > 0xF4) return 0;
    const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (text.size() - at < length) return 0;

    std::uint8_t low = 0x80, high = 0xBF;
    if (first == 0xE0) low = 0xA0;
    if (first == 0xED) high = 0x9F;
    if (first == 0xF0) low = 0x90;
    if (first == 0xF4) high = 0x8F;
    if (Byte(text, at + 1) < low || Byte(text, at + 1) > high) return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if ((Byte(text, at + i) & 0xC0) != 0x80) return 0;
    }
    return length;
}

}  // namespace

bool IsAscii(std::string_view text) noexcept {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<std::uint8_t>(c) < 0x80; });
}

bool IsUtf8(std::string_view text) noexcept {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = SequenceLength(text, at);
        if (length == 0) return false;
        at += length;
    }
    return true;
}

char32_t NextCharacter(std::string_view text, std::size_t& at) noexcept {
    const char32_t first = Byte(text, at++);
    if (first < 0x80) return first;
    const int more = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    char32_t character = first & (0x3FU >> more);
    for (int i = 0; i < more; ++i) character = character << 6 | (Byte(text, at++) & 0x3FU);
    return character;
}

void AppendUtf8(std::string& out, char32_t character) {
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    const auto putRest = [&put](char32_t bits) { put(0x80 | (bits & 0x3F)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0 | character >> 6);
        putRest(character);
    } else if (character < 0x10000) {
        put(0xE0 | character >> 12);
        putRest(character >> 6);
        putRest(character);
    } else {
        put(0xF0 | character >> 18);
        putRest(character >> 12);
        putRest(character >> 6);
        putRest(character);
    }
}

void AppendUtf16(std::u16string& out, std::string_view text) {
    auto end = std::back_inserter(out);
    for (std::size_t at = 0; at < text.size();) end = WriteCharacter(NextCharacter(text, at), end);
}

std::string Utf8FromUtf16(std::u16string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (IsLead(unit) && i + 1 < text.size() && IsTrail(text[i + 1])) {
            const char32_t high = unit - 0xD800U, low = text[++i] - 0xDC00U;
            AppendUtf8(out, 0x10000 + (high << 10) + low);
        } else {
            AppendUtf8(out, IsLead(unit) || IsTrail(unit) ? kReplacementCharacter : char32_t{unit});
        }
    }
    return out;
}

}  // namespace vexpa_runtime
