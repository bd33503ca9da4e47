#include <gtest/gtest.h>

#include <QString>

#include "vexpa/base/LocalText.h"

namespace {

using namespace tarn;

TEST(LocalText, IsWhatTheCodecsGiveForEveryUnit) {
    for (unsigned int unit = 1; unit <= 0xFFFF; ++unit) {
        const char16_t text[] = {u'a', static_cast<char16_t>(unit), u'b'};
        ASSERT_EQ(LocalText({text, 3}).View(), QString::fromUtf16(text, 3).toLocal8Bit().toStdString())
            << unit;
    }
}

TEST(LocalText, OfEveryByteIsWhatTheCodecsGive) {
    for (int byte = 1; byte < 256; ++byte) {
        const std::string text{'a', static_cast<char>(byte), 'b'};
        ASSERT_EQ(FromLocalText(text), QString::fromLocal8Bit(text.c_str()).toStdU16String()) << byte;
    }
}

TEST(LocalText, OfNothingIsNothing) {
    EXPECT_EQ(LocalText(u"").View(), "");
    EXPECT_EQ(FromLocalText(""), u"");
}

TEST(LocalText, EndsInANulAtEveryLength) {
    for (const std::size_t size : {0U, 1U, 254U, 255U, 256U, 257U, 100000U}) {
        LocalText text(std::u16string(size, u'x'));
        EXPECT_EQ(text.View(), std::string(size, 'x')) << size;
        EXPECT_EQ(text.Data()[size], 0) << size;
    }
}

}  // namespace
