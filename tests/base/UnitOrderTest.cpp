#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "vexpa/base/UnitOrder.h"

using namespace std::string_view_literals;
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

TEST(UnitLess, OrdersTextsByTheirUnits) {
    struct Row {
        const char* shows;
        std::u16string_view lesser;
        std::u16string_view greater;
    };
    const Row rows[] = {
        {"nothing is before all else", u"", u"a"},
        {"a text is before those that it begins", u"word/document", u"word/document.xml"},
        {"units count, not characters", u"\U0001F600", u"\uFF5E"},
        {"units have no sign", u"abc\u0001", u"abc\u8000"},
        {"a NUL is a unit as any other", u"a\0b"sv, u"a\0c"sv},
        {"a NUL is no end", u"a"sv, u"a\0"sv},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_TRUE(UnitLess()(row.lesser, row.greater));
        EXPECT_FALSE(UnitLess()(row.greater, row.lesser));
        EXPECT_FALSE(UnitLess()(row.lesser, row.lesser));
        EXPECT_FALSE(UnitLess()(row.greater, row.greater));
    }
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
