#include <gtest/gtest.h>

#include "vexpa/base/Utf16.h"

namespace {

using namespace tarn;

TEST(CopyText, OfNullIsEmpty) {
    EXPECT_EQ(CopyText(static_cast<const unsigned short*>(nullptr)), u"");
    EXPECT_EQ(CopyText(static_cast<const char16_t*>(nullptr)), u"");
}

TEST(CopyText, TakesTheUnitsUpToTheZero) {
    const unsigned short units[] = {'a', 0xD83D, 0xDE00, 0xDC00, 0, 'b'};
    EXPECT_EQ(CopyText(units), (std::u16string{u'a', 0xD83D, 0xDE00, 0xDC00}));
}

TEST(ToUnits, AndBackIsTheSamePlace) {
    const char16_t* text = u"text";
    EXPECT_EQ(FromUnits(ToUnits(text)), text);
}

}  // namespace
