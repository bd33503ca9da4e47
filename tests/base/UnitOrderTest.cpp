#include <gtest/gtest.h>

#include <string>

#include "vexpa/base/UnitOrder.h"

using tarn::CommonLength;
using tarn::UnitLess;

namespace {

// Texts of every length up to a few steps of the comparison, and what they differ in.
constexpr std::size_t kLongest = 13;

std::u16string TextOf(std::size_t length) {
    std::u16string text(length, u'\0');
    for (std::size_t i = 0; i < length; ++i) text[i] = static_cast<char16_t>(u'a' + i);
    return text;
}

}  // namespace

TEST(CommonLength, IsThePlaceOfTheFirstDifferenceWhereverItIs) {
    for (std::size_t length = 1; length <= kLongest; ++length) {
        for (std::size_t at = 0; at < length; ++at) {
            std::u16string other = TextOf(length);
            other[at] ^= 1;
            EXPECT_EQ(CommonLength(TextOf(length), other), at) << "of " << length;
        }
    }
}

TEST(CommonLength, OfATextAndItsBeginningIsAllOfTheBeginning) {
    for (std::size_t length = 0; length <= kLongest; ++length) {
        for (std::size_t begin = 0; begin <= length; ++begin) {
            EXPECT_EQ(CommonLength(TextOf(length), TextOf(begin)), begin);
            EXPECT_EQ(CommonLength(TextOf(begin), TextOf(length)), begin);
        }
    }
}

TEST(UnitLess, OrdersATextBeforeThoseThatItBegins) {
    EXPECT_TRUE(UnitLess()(u"", u"a"));
    EXPECT_TRUE(UnitLess()(u"word/document", u"word/document.xml"));
    EXPECT_FALSE(UnitLess()(u"word/document.xml", u"word/document"));
}

TEST(UnitLess, OfATextAndItselfIsFalse) {
    EXPECT_FALSE(UnitLess()(u"", u""));
    EXPECT_FALSE(UnitLess()(u"word/document.xml", u"word/document.xml"));
}

// U+FF5E stands above the surrogates that write U+1F600, a character beyond it.
TEST(UnitLess, OrdersByUnitsNotByCharacters) {
    EXPECT_TRUE(UnitLess()(u"\U0001F600", u"\uFF5E"));
    EXPECT_FALSE(UnitLess()(u"\uFF5E", u"\U0001F600"));
}

TEST(UnitLess, TakesUnitsForUnsigned) {
    EXPECT_TRUE(UnitLess()(u"abc\u0001", u"abc\u8000"));
    EXPECT_FALSE(UnitLess()(u"abc\u8000", u"abc\u0001"));
}

TEST(UnitLess, ComparesBeyondANul) {
    using namespace std::string_view_literals;
    EXPECT_TRUE(UnitLess()(u"a\0b"sv, u"a\0c"sv));
    EXPECT_TRUE(UnitLess()(u"a"sv, u"a\0"sv));
}

TEST(UnitLess, AgreesWithTheStandardOrderOnTextsOfTwoUnits) {
    const std::u16string units = u"\u0001a\u00FF\u0100\u8000\uFFFF";
    for (const char16_t first : units) {
        for (const char16_t second : units) {
            for (std::size_t before = 0; before < 6; ++before) {
                const std::u16string a = std::u16string(before, u'x') + first + second;
                const std::u16string b = std::u16string(before, u'x') + second + first;
                EXPECT_EQ(UnitLess()(a, b), a < b);
            }
        }
    }
}
