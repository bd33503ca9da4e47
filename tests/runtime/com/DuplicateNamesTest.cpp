#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/runtime/com/Blocks.h"
#include "tests/runtime/com/CompoundBytes.h"
#include "tests/runtime/com/CompoundWalk.h"

namespace vexpa_test {
namespace {

RawEntry Root() {
    return {u"Root Entry", 5, kNoEntry, kNoEntry, 1};
}

// Two elements side by side.
std::string Twins(RawEntry first, const RawEntry& second) {
    first.right = 2;
    return RawCompoundBytes({Root(), first, second});
}

// Two storages of one name at each level, of which one holds the next level.
std::string NestedTwins(std::uint32_t levels, bool inTheFirst) {
    std::vector<RawEntry> directory{Root()};
    for (std::uint32_t level = 1; level <= levels; ++level) {
        RawEntry first{u"D", 1};
        RawEntry second{u"D", 1};
        first.right = 2 * level;
        if (level < levels) (inTheFirst ? first : second).child = 2 * level + 1;
        directory.push_back(first);
        directory.push_back(second);
    }
    return RawCompoundBytes(directory);
}

TEST(DuplicateNames, AreListedOnce) {
    struct Row {
        const char* shows;
        RawEntry first;
        RawEntry second;
        std::size_t elements;
    };
    const Row rows[] = {
        {"two names", {u"A"}, {u"B"}, 2},
        {"one name", {u"A"}, {u"A"}, 1},
        {"case does not tell them apart", {u"Name"}, {u"nAmE"}, 1},
        {"nor beyond ASCII", {u"\u00C4\u0416"}, {u"\u00E4\u0436"}, 1},
        {"no letter becomes two", {u"\u00DF"}, {u"SS"}, 2},
        {"blanks count", {u"A"}, {u"A "}, 2},
        {"a stream and a storage", {u"A", 2}, {u"A", 1}, 1},
        {"two storages", {u"A", 1}, {u"a", 1}, 1},
        {"no names", {u""}, {u""}, 1},
        {"names that are no text", {u"\xD800z"}, {u"\xD800y"}, 1},
        {"names that end alike", {std::u16string(u"A\0x", 3)}, {std::u16string(u"A\0y", 3)}, 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        const CompoundWalk walk = WalkBytes(Twins(row.first, row.second));
        EXPECT_TRUE(walk.opened);
        EXPECT_EQ(walk.streams + walk.storages, row.elements);
        EXPECT_EQ(walk.damaged, 0u);
    }
}

// Met twice at each level, the innermost storage would be opened a thousand million times.
TEST(DuplicateNames, CostAWalkNothing) {
    for (const std::uint32_t levels : {3u, 10u, 30u, 500u}) {
        SCOPED_TRACE(levels);
        const std::size_t first = WalkBytes(NestedTwins(levels, true)).storages;
        const std::size_t second = WalkBytes(NestedTwins(levels, false)).storages;
        // Which of the two is found is libgsf's affair.
        ASSERT_EQ(std::min(first, second), 1u);
        ASSERT_EQ(std::max(first, second), levels);
    }
}

}  // namespace
}  // namespace vexpa_test
