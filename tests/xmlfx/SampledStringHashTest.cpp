#include <gtest/gtest.h>

#include <string>

#include "vexpa/xmlfx/SampledStringHash.h"

namespace {

using tarn::xmlfx::SampledStringHash;

struct Row {
    const char* shows;
    std::u16string text;
    std::uint64_t hash;
};

// The hashes were worked out by hand: h = h * 16777619 ^ unit over the units named.
const Row kRows[] = {
    {"the empty text has the starting value", u"", 2166136261U},
    {"one unit is read", u"A", 0x00811D69050C5D5E},
    {"a unit is not sign-extended", u"\uFFFF", 0x00811D69050CA2E0},
    {"of two units the first", u"ab", 0x00811D69050C5D7E},
    {"of three the first two", u"val", 0x344658B05B770C2A},
    {"of nine the first eight", u"abcdefghi", 0x6866F776E2A37115},
    {"of ten every second, but the last two", u"abcdefghij", 0x57CF8F46DFE0ED1D},
    {"of eleven units 0, 2, 4, 6 and 8", u"abcdefghijk", 0x829E6D7F8C1544CE},
    {"of twenty every third, but the last three", u"abcdefghijklmnopqrst", 0xA61357D14CAAFCBE},
};

TEST(SampledStringHash, ReadsTheUnitsItShould) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(SampledStringHash()(row.text), row.hash);
    }
}

TEST(SampledStringHash, PassesOverTheOddUnitsOfAnElevenUnitText) {
    const SampledStringHash hash;
    const std::u16string text = u"abcdefghijk";
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::u16string other = text;
        other[i] = u'#';
        const bool read = i % 2 == 0 && i < 10;
        EXPECT_EQ(hash(other) != hash(text), read) << "unit " << i;
    }
}

TEST(SampledStringHash, PassesOverTheLastUnits) {
    const SampledStringHash hash;
    EXPECT_EQ(hash(u"ab"), hash(u"ac"));
    EXPECT_EQ(hash(u"http://a.example/namespace-1"), hash(u"http://a.example/namespace-2"));
}

}  // namespace
