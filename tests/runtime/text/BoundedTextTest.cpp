#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <string>

#include "vexpa/platform/Runtime.h"

namespace {

TEST(StrLen, CountsUnitsNotCharacters) {
    EXPECT_EQ(u_strlen(u"a\U0001F600"), 3u);
    EXPECT_EQ(u_strlen(u""), 0u);
}

TEST(StrLen, IsZeroForNull) {
    EXPECT_EQ(u_strlen(nullptr), 0u);
}

TEST(StrNLen, StopsAtTheLimitOfATextWithoutAnEnd) {
    const std::array<char16_t, 3> units = {u'a', u'b', u'c'};
    EXPECT_EQ(u_strnlen_s(units.data(), units.size()), 3u);
}

TEST(StrNLen, StopsAtTheEndOfTheText) {
    EXPECT_EQ(u_strnlen_s(u"ab", 4096), 2u);
}

TEST(StrNLen, IsZeroForNull) {
    EXPECT_EQ(u_strnlen_s(nullptr, 10), 0u);
}

TEST(StrCat, AppendsATextThatFitsExactly) {
    char16_t text[6] = u"ab";
    EXPECT_EQ(u_strcat_s(text, 6, u"cde"), 0);
    EXPECT_EQ(std::u16string(text), u"abcde");
}

TEST(StrCat, EmptiesTheDestinationWhenTheResultIsOneUnitTooLong) {
    char16_t text[6] = u"ab";
    EXPECT_EQ(u_strcat_s(text, 6, u"cdef"), ERANGE);
    EXPECT_EQ(std::u16string(text), u"");
}

TEST(StrCat, RefusesADestinationWithoutAnEnd) {
    char16_t text[2] = {u'a', u'b'};
    EXPECT_EQ(u_strcat_s(text, 2, u""), EINVAL);
    EXPECT_EQ(text[0], 0);
}

TEST(StrCat, EmptiesTheDestinationForANullSource) {
    char16_t text[6] = u"ab";
    EXPECT_EQ(u_strcat_s(text, 6, nullptr), EINVAL);
    EXPECT_EQ(std::u16string(text), u"");
}

TEST(StrCat, RefusesNoDestination) {
    char16_t text[2] = u"a";
    EXPECT_EQ(u_strcat_s(nullptr, 2, u"b"), EINVAL);
    EXPECT_EQ(u_strcat_s(text, 0, u"b"), EINVAL);
    EXPECT_EQ(text[0], u'a');
}

TEST(MemCpy, CopiesBytesThatFitExactly) {
    char bytes[4] = "...";
    EXPECT_EQ(vmemcpy_s(bytes, 4, "abc", 4), 0);
    EXPECT_STREQ(bytes, "abc");
}

TEST(MemCpy, ClearsTheDestinationWhenTheBytesDoNotFit) {
    char bytes[4] = "...";
    EXPECT_EQ(vmemcpy_s(bytes, 4, "abcd", 5), ERANGE);
    EXPECT_EQ(std::string(bytes, 4), std::string(4, '\0'));
}

TEST(MemCpy, ClearsTheDestinationForANullSource) {
    char bytes[4] = "...";
    EXPECT_EQ(vmemcpy_s(bytes, 4, nullptr, 2), EINVAL);
    EXPECT_EQ(std::string(bytes, 4), std::string(4, '\0'));
}

TEST(MemCpy, RefusesANullDestination) {
    EXPECT_EQ(vmemcpy_s(nullptr, 4, "abc", 3), EINVAL);
}

TEST(MemCpy, HasNothingToDoForNoBytes) {
    char bytes[4] = "...";
    EXPECT_EQ(vmemcpy_s(bytes, 4, nullptr, 0), 0);
    EXPECT_STREQ(bytes, "...");
}

}  // namespace
