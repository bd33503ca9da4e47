#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "vexpa/base/Utf8.h"

namespace {

using namespace std::string_view_literals;
using namespace tarn;

TEST(Utf8, OfWellFormedTextIsTheSameText) {
    struct Row {
        const char* what;
        std::u16string_view utf16;
        std::string_view utf8;
    };
    const Row rows[] = {
        {"nothing", u"", ""},
        {"ASCII", u"word/document.xml", "word/document.xml"},
        {"a NUL is a character", u"a\0b"sv, "a\0b"sv},
        {"the last of one byte", u"\x7F", "\x7F"},
        {"the first of two bytes", u"\x80", "\xC2\x80"},
        {"the last of two bytes", u"\x7FF", "\xDF\xBF"},
        {"the first of three bytes", u"\x800", "\xE0\xA0\x80"},
        {"before the surrogates", u"\xD7FF", "\xED\x9F\xBF"},
        {"behind the surrogates", u"\xE000", "\xEE\x80\x80"},
        {"the replacement character itself", u"\xFFFD", "\xEF\xBF\xBD"},
        {"the last of three bytes", u"\xFFFF", "\xEF\xBF\xBF"},
        {"the first pair", u"\xD800\xDC00", "\xF0\x90\x80\x80"},
        {"the last pair", u"\xDBFF\xDFFF", "\xF4\x8F\xBF\xBF"},
        {"several of each", u"a\xE9\x20AC\xD83D\xDE00z", "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(ToUtf8(row.utf16), row.utf8);
        EXPECT_EQ(FromUtf8(row.utf8), row.utf16);
    }
}

TEST(ToUtf8, ReplacesEachLoneSurrogate) {
    struct Row {
        const char* what;
        std::u16string_view utf16;
        std::string_view utf8;
    };
    const Row rows[] = {
        {"a lead at the end", u"a\xD800", "a\xEF\xBF\xBD"},
        {"a lead before a letter",
         u"\xDBFF"
         u"a",
         "\xEF\xBF\xBD"
         "a"},
        {"a lead before a pair", u"\xD83D\xD83D\xDE00", "\xEF\xBF\xBD\xF0\x9F\x98\x80"},
        {"a trail", u"\xDC00", "\xEF\xBF\xBD"},
        {"a trail behind a pair", u"\xD83D\xDE00\xDFFF", "\xF0\x9F\x98\x80\xEF\xBF\xBD"},
        {"a pair the wrong way round", u"\xDE00\xD83D", "\xEF\xBF\xBD\xEF\xBF\xBD"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(ToUtf8(row.utf16), row.utf8);
    }
}

TEST(ToUtf8, TakesATextAsTheInterfacesHandItOut) {
    EXPECT_EQ(ToUtf8(ToUnits(u"caf\xE9")), "caf\xC3\xA9");
    EXPECT_EQ(ToUtf8(static_cast<const unsigned short*>(nullptr)), "");
    EXPECT_EQ(ToUtf8(static_cast<const char16_t*>(nullptr)), "");
}

// The rows with several characters are those of the Unicode Standard, tables 3-8 to 3-11.
TEST(FromUtf8, ReplacesWhatCouldBeginACharacterAsOne) {
    struct Row {
        const char* what;
        std::string_view utf8;
        std::u16string_view utf16;
    };
    const Row rows[] = {
        {"a trail alone", "a\x80z", u"a\xFFFDz"},
        {"bytes that never occur", "\xFE\xFF\xF5", u"\xFFFD\xFFFD\xFFFD"},
        {"a cut sequence at the end", "\xF0\x9F\x98", u"\xFFFD"},
        {"a lead at the end", "a\xC3", u"a\xFFFD"},
        {"a cut sequence before a letter", "\xE2\x82z", u"\xFFFDz"},
        {"a cut sequence before a NUL", "\xE2\0"sv, u"\xFFFD\0"sv},
        {"longer than need be", "\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41",
         u"\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\x41"},
        {"surrogates", "\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41",
         u"\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\x41"},
        {"beyond the last character", "\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42",
         u"\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD\x41\xFFFD\xFFFD\x42"},
        {"cut sequences", "\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41", u"\xFFFD\xFFFD\xFFFD\xFFFD\x41"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(FromUtf8(row.utf8), row.utf16);
    }
}

TEST(Utf8, OfEveryCharacterComesBack) {
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (character == 0xD800) character = 0xE000;
        std::u16string text(1, static_cast<char16_t>(character));
        if (character > 0xFFFF) {
            text = {static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)),
                    static_cast<char16_t>(0xDC00 + (character & 0x3FF))};
        }
        ASSERT_EQ(FromUtf8(ToUtf8(text)), text) << std::hex << static_cast<unsigned>(character);
    }
}

}  // namespace
