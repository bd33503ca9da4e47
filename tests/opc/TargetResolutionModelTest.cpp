// The resolution once more, step by step and search by search, against the one that counts.
#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

#include "tests/opc/ResolveTarget.h"
#include "tests/opc/TargetResolutionModel.h"

namespace {

using vexpa_test::ResolveTarget;
using vexpa_test::resolution_model::ResolveSlowly;

std::u16string RandomText(std::mt19937& random, std::size_t most) {
    static const std::array<std::u16string, 12> kPieces = {u"/", u"/", u"\\", u"..",  u"../", u".",
                                                           u"a", u"b", u":",  u"ab/", u"%2E", u"#"};
    std::u16string text;
    for (std::size_t i = random() % (most + 1); i > 0; --i) text += kPieces[random() % kPieces.size()];
    return text;
}

TEST(ResolveTarget, AgreesWithTheSearchesMadeOneByOne) {
    std::mt19937 random(20240229);
    for (int i = 0; i < 200000; ++i) {
        const std::u16string source = RandomText(random, 9);
        const std::u16string target = RandomText(random, 9);
        ASSERT_EQ(ResolveTarget(source, target), ResolveSlowly(source, target))
            << "source " << testing::PrintToString(source) << ", target "
            << testing::PrintToString(target);
    }
}

TEST(ResolveTarget, AgreesWithTheSearchesAroundTheEndOfTheBuffer) {
    std::mt19937 random(4096);
    for (std::size_t length = 4080; length < 4112; ++length) {
        std::u16string source(length, u'a');
        for (int i = 0; i < 40; ++i) source[random() % length] = u'/';
        for (int i = 0; i < 20; ++i) {
            source[length - 1 - random() % 8] = u'/';
            const std::u16string target = RandomText(random, 60);
            ASSERT_EQ(ResolveTarget(source, target), ResolveSlowly(source, target))
                << "length " << length << ", target " << testing::PrintToString(target);
        }
    }
}

}  // namespace
