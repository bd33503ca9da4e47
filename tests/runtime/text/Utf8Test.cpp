#include <gtest/gtest.h>

#include "runtime/text/Utf8.h"

namespace {

using namespace vexpa_runtime;

TEST(Utf8, AcceptsWellFormedTextOnly) {
    struct Row {
        const char* what;
        std::string_view bytes;
        bool valid;
    };
    const Row rows[] = {
        {"nothing", "", true},
        {"ASCII", "word/document.xml", true},
        {"two bytes, the lowest", "\xC2\x80", true},
        {"two bytes, overlong", "\xC1\xBF", false},
        {"three bytes, the lowest", "\xE0\xA0\x80", true},
        {"three bytes, overlong", "\xE0\x9F\xBF", false},
        {"the character before the surrogates", "\xED\x9F\xBF", true},
        {"a surrogate", "\xED\xA0\x80", false},
        {"four bytes, the lowest", "\xF0\x90\x80\x80", true},
        {"four bytes, overlong", "\xF0\x8F\xBF\xBF", false},
        {"the last character", "\xF4\x8F\xBF\xBF", true},
        {"above the last character", "\xF4\x90\x80\x80", false},
        {"a lead byte of no length", "\xF8\x88\x80\x80\x80", false},
        {"a lone trail byte", "a\x80", false},
        {"a cut sequence at the end", "\xE2\x82", false},
        {"a broken sequence", "\xE2\x82z", false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(IsUtf8(row.bytes), row.valid);
    }
}

TEST(Utf8, GoesToUtf16AndBack) {
    const std::string text = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z";
    std::u16string utf16;
    AppendUtf16(utf16, text);
    EXPECT_EQ(utf16, u"a\u00E9\u20AC\U0001F600z");
    EXPECT_EQ(Utf8FromUtf16(utf16), text);
}

TEST(Utf8, SubstitutesLoneSurrogates) {
    const char16_t text[] = {u'a', 0xD83D, u'b', 0xDE00, 0xD83D, 0};
    EXPECT_EQ(Utf8FromUtf16(text),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD\xEF\xBF\xBD");
}

}  // namespace
