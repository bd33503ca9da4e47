#include <gtest/gtest.h>

#include <string>

#include "vexpa/opc/UriEscape.h"

namespace {

struct Decoding {
    const char* shows;
    std::string text;
    std::string decoded;
};

const Decoding kDecodings[] = {
    {"an escape", "image%201.png", "image 1.png"},
    {"digits in either case", "%4a%4A%c3%A9", "JJ\xC3\xA9"},
    {"escapes in a row", "%41%42%43", "ABC"},
    {"an escaped percent sign begins no other escape", "%2541", "%41"},
    {"a percent sign before one digit stays", "%4", "%4"},
    {"a percent sign at the end stays", "100%", "100%"},
    {"a percent sign before no digits stays", "%zz", "%zz"},
    {"a percent sign before one digit and a letter stays", "%4g", "%4g"},
    {"an escape right behind such a sign", "%%41", "%A"},
    {"a zero byte", "a%00b", std::string("a\0b", 3)},
    {"nothing", "", ""},
};

TEST(PercentDecode, TurnsEscapesIntoBytes) {
    for (const Decoding& row : kDecodings) {
        SCOPED_TRACE(row.shows);
        std::string out(row.text.size() + 1, '?');
        tarn::opc::PercentDecode(row.text, out.data());
        EXPECT_EQ(out.substr(0, row.decoded.size()), row.decoded);
        EXPECT_EQ(out[row.decoded.size()], '\0');
    }
}

}  // namespace
