#include <gtest/gtest.h>

#include <QString>

#include "vexpa/base/LocalText.h"

namespace {

using namespace tarn;

TEST(LocalText, IsWhatTheCodecsGiveForEveryUnit) {
    for (unsigned int unit = 1; unit <= 0xFFFF; ++unit) {
        const char16_t text[] = {u'a', static_cast<char16_t>(unit), u'b'};
        ASSERT_EQ(ToLocalText({text, 3}), QString::fromUtf16(text, 3).toLocal8Bit()) << unit;
    }
}

TEST(LocalText, OfEveryByteIsWhatTheCodecsGive) {
    for (int byte = 1; byte < 256; ++byte) {
        const std::string text{'a', static_cast<char>(byte), 'b'};
        ASSERT_EQ(FromLocalText(text), QString::fromLocal8Bit(text.c_str()).toStdU16String()) << byte;
    }
}

TEST(LocalText, OfNothingIsNothing) {
    EXPECT_EQ(ToLocalText(u""), "");
    EXPECT_EQ(FromLocalText(""), u"");
}

}  // namespace
