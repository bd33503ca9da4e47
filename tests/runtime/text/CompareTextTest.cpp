#include <gtest/gtest.h>

#include "vexpa/platform/Runtime.h"

namespace {

struct Comparison {
    const char* shows;
    const char16_t* a;
    const char16_t* b;
    int sign;
};

const Comparison kComparisons[] = {
    {"equal texts", u"external", u"external", 0},
    {"letters of either case", u"External", u"EXTERNAL", 0},
    {"letters outside ASCII", u"\u00C9t\u00C9", u"\u00E9T\u00E9", 0},
    {"Greek final sigma is a sigma", u"\u03C2", u"\u03A3", 0},
    {"a sign between the cases is no letter", u"_", u"\u007F", -1},
    {"a sharp s is one unit and never two", u"\u00DF", u"ss", 1},
    {"a prefix comes first", u"external", u"externals", -1},
    {"and the longer text after it", u"externals", u"external", 1},
    {"order is that of the folded letters", u"B", u"a", 1},
    {"an accented letter is another letter", u"e", u"\u00E9", -1},
    {"the empty text comes first", u"", u"a", -1},
    {"two empty texts", u"", u"", 0},
    {"null is the empty text", nullptr, u"", 0},
    {"null comes first", nullptr, u"a", -1},
    {"null comes first, on the other side", u"a", nullptr, 1},
};

TEST(StrICmp, OrdersTextsWithoutRegardToCase) {
    for (const Comparison& row : kComparisons) {
        SCOPED_TRACE(row.shows);
        const int order = _Xu2_stricmp(row.a, row.b);
        EXPECT_EQ((order > 0) - (order < 0), row.sign);
    }
}

TEST(StrChr, FindsTheFirstUnit) {
    const char16_t text[] = u"a/b/c";
    EXPECT_EQ(_Xu2_strchr(text, u'/'), text + 1);
}

TEST(StrChr, IsNullForAUnitThatIsNotThere) {
    EXPECT_EQ(_Xu2_strchr(u"abc", u'/'), nullptr);
}

TEST(StrChr, TakesTheTerminatorForAUnitOfTheText) {
    const char16_t text[] = u"abc";
    EXPECT_EQ(_Xu2_strchr(text, 0), text + 3);
}

TEST(StrChr, FindsNothingInNull) {
    EXPECT_EQ(_Xu2_strchr(nullptr, 0), nullptr);
}

}  // namespace
