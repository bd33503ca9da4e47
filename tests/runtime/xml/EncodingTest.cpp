#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/runtime/xml/Dom.h"

namespace vexpa_test {
namespace {

using Texts = std::vector<std::u16string>;
enum class Order { kLittle, kBig };

std::string Utf16Bytes(std::u16string_view text, Order order) {
    std::string bytes;
    for (const char16_t unit : text) {
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8);
        bytes += order == Order::kLittle ? low : high;
        bytes += order == Order::kLittle ? high : low;
    }
    return bytes;
}

std::string Declared(const std::string& encoding, std::string_view value) {
    return "<?xml version='1.0' encoding='" + encoding + "'?><a x='" + std::string(value) + "'/>";
}

TEST(Encoding, ReadsUtf8WithAndWithoutAByteOrderMark) {
    for (const std::string mark : {"", "\xEF\xBB\xBF"}) {
        ComPtr<IDomDocument> document = Parsed(mark + "<a x='\xE2\x82\xAC'/>");
        EXPECT_EQ(Values(*document.Get(), u"a", u"x"), Texts{u"\u20AC"});
    }
}

TEST(Encoding, ReadsUtf16OfEitherOrder) {
    for (const Order order : {Order::kLittle, Order::kBig}) {
        SCOPED_TRACE(order == Order::kLittle);
        for (const std::u16string head : {u"\uFEFF", u"\uFEFF<?xml version='1.0' encoding='UTF-16'?>",
                                          u"<?xml version='1.0' encoding='UTF-16'?>"}) {
            ComPtr<IDomDocument> document =
                Parsed(Utf16Bytes(head + u"<\u00E9 x='\u20AC\U0001D11E'/>", order));
            EXPECT_EQ(Values(*document.Get(), u"\u00E9", u"x"), Texts{u"\u20AC\U0001D11E"});
        }
    }
}

TEST(Encoding, RefusesHalfACharacterInUtf16) {
    const std::u16string lone = u"\uFEFF<a x='?'/>";
    for (const char16_t half : {char16_t{0xD834}, char16_t{0xDD1E}}) {
        std::u16string text = lone;
        text[text.find(u'?')] = half;
        EXPECT_EQ(ParseResult(Utf16Bytes(text, Order::kLittle)), E_FAIL);
    }
}

TEST(Encoding, ReadsSingleByteCodePages) {
    struct Row {
        const char* encoding;
        std::string_view bytes;
        const char16_t* text;
    };
    const Row rows[] = {
        {"ISO-8859-1", "\xE9\xA4", u"\u00E9\u00A4"},
        {"US-ASCII", "e", u"e"},
        {"windows-1252", "\x80\xE9\x99", u"\u20AC\u00E9\u2122"},
        {"WINDOWS-1252", "\x80", u"\u20AC"},
        {"windows-1251", "\xC4\xE0", u"\u0414\u0430"},
        {"ISO-8859-15", "\xA4", u"\u20AC"},
        {"KOI8-R", "\xE4\xC1", u"\u0414\u0430"},
        {"cp1250", "\xE8", u"\u010D"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.encoding);
        ComPtr<IDomDocument> document = Parsed(Declared(row.encoding, row.bytes));
        EXPECT_EQ(Values(*document.Get(), u"a", u"x"), Texts{row.text});
    }
}

TEST(Encoding, RefusesWhatItDoesNotKnow) {
    for (const char* encoding :
         {"no-such-encoding", "UTF-7", "UTF-32", "Shift_JIS", "windows-31j", "cp932", "ibm-943", "Big5",
          "GB18030", "EUC-JP", "ISO-2022-JP", "EBCDIC-CP-US", "ibm037", "windows-9999",
          "cp-------------------------------------------------1"}) {
        SCOPED_TRACE(encoding);
        EXPECT_EQ(ParseResult(Declared(encoding, "a")), E_FAIL);
    }
}

TEST(Encoding, RefusesABomThatTheDeclarationContradicts) {
    EXPECT_EQ(ParseResult(Utf16Bytes(u"\uFEFF<?xml version='1.0' encoding='UTF-8'?><a/>", Order::kBig)),
              E_FAIL);
}

}  // namespace
}  // namespace vexpa_test
