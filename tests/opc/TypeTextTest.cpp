#include <gtest/gtest.h>

#include <string>

#include "vexpa/opc/TypeText.h"

namespace {

using tarn::opc::TypeText;
using tarn::opc::TypeTexts;

std::u16string Numbered(std::size_t i) {
    return u"Type\\" + std::u16string(i, u'I');
}

TEST(TypeText, IsKeptAsWrittenAndFolded) {
    const TypeText type(u" HTTP:\\\\Example rest");
    EXPECT_EQ(type.written, u" HTTP:\\\\Example rest");
    EXPECT_EQ(type.folded, u"http://example");
}

TEST(TypeTexts, GiveEqualTextsOneRecord) {
    TypeTexts types;
    const auto first = types.Share(u"a");
    EXPECT_NE(types.Share(u"b"), first);
    EXPECT_EQ(types.Share(std::u16string(u"a").c_str()), first);
}

TEST(TypeTexts, KeepTextsApartThatFoldToTheSame) {
    TypeTexts types;
    EXPECT_NE(types.Share(u"A"), types.Share(u"a"));
}

TEST(TypeTexts, TakeNullForTheEmptyText) {
    TypeTexts types;
    EXPECT_EQ(types.Share(nullptr), types.Share(u""));
    EXPECT_EQ(types.Share(nullptr)->written, u"");
}

TEST(TypeTexts, RememberTheSixteenAskedForLast) {
    TypeTexts types;
    const auto often = types.Share(u"often");
    const auto once = types.Share(u"once");
    for (std::size_t i = 0; i < 15; ++i) {
        types.Share(Numbered(i).c_str());
        EXPECT_EQ(types.Share(u"often"), often);
    }
    EXPECT_NE(types.Share(u"once"), once);
    EXPECT_EQ(types.Share(u"once")->written, once->written);
}

TEST(TypeTexts, OutliveWhatIsRemembered) {
    TypeTexts types;
    const auto type = types.Share(u"Type");
    for (std::size_t i = 0; i < 40; ++i)
        EXPECT_EQ(types.Share(Numbered(i).c_str())->written, Numbered(i));
    EXPECT_EQ(type->folded, u"type");
}

}  // namespace
