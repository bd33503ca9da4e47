#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include "vexpa/zip/EntryNameSet.h"
#include "vexpa/zip/EntryNameSetBlock.h"

namespace {

using lumo::Compression::Zip::EntryNameSet;
using lumo::Compression::Zip::HashEntryName;

// Whether the set took the name; what it refuses is freed here.
bool Insert(EntryNameSet& set, const std::u16string& name) {
    BSTR text = _XSysAllocString(name.c_str());
    if (set.Insert(text)) return true;
    _XSysFreeString(text);
    return false;
}

std::u16string Numbered(int i) {
    const std::string digits = std::to_string(i);
    return u"part" + std::u16string(digits.begin(), digits.end());
}

// One of 2^bits names that share a hash: 1 more in a unit equals 16 more in the next one.
std::u16string Colliding(unsigned number, int bits) {
    std::u16string name;
    for (int bit = 0; bit < bits; ++bit) name += (number >> bit & 1) != 0 ? u"1 " : u"00";
    return name;
}

TEST(HashEntryName, IsTheElfHashOfTheFoldedUnits) {
    EXPECT_EQ(HashEntryName(u""), 0u);
    EXPECT_EQ(HashEntryName(u"A"), 0x41u);
    EXPECT_EQ(HashEntryName(u"a"), 0x41u);
    // 0x41 * 16 + 0x42
    EXPECT_EQ(HashEntryName(u"ab"), 0x452u);
    // By hand: six give 0x4555551; the seventh makes 0x45555551, whose top 4 is folded in
    // at bit 4 and cleared, the eighth 0x55555151, whose top 5 goes the same way.
    EXPECT_EQ(HashEntryName(u"AAAAAA"), 0x4555551u);
    EXPECT_EQ(HashEntryName(u"AAAAAAA"), 0x5555511u);
    EXPECT_EQ(HashEntryName(u"AAAAAAAA"), 0x5555101u);
}

TEST(HashEntryName, FoldsOnlyAsciiLetters) {
    EXPECT_EQ(HashEntryName(u"\u00e4"), 0xe4u);
    EXPECT_EQ(HashEntryName(u"{"), 0x7bu);
    EXPECT_EQ(HashEntryName(u"`"), 0x60u);
    EXPECT_EQ(HashEntryName(u"z"), 0x5au);
}

TEST(EntryNameSet, HoldsANameOncePerSpellingWithoutRegardToCase) {
    EntryNameSet set;
    EXPECT_TRUE(Insert(set, u"word/document.xml"));
    EXPECT_FALSE(Insert(set, u"word/document.xml"));
    EXPECT_FALSE(Insert(set, u"Word/DOCUMENT.xml"));
    EXPECT_TRUE(Insert(set, u"word/document.xm"));
    EXPECT_EQ(set.GetCount(), 2u);
    EXPECT_TRUE(set.Contains(u"WORD/document.XML"));
    EXPECT_FALSE(set.Contains(u"word/styles.xml"));
}

TEST(EntryNameSet, HoldsTheEmptyName) {
    EntryNameSet set;
    EXPECT_FALSE(set.Contains(u""));
    EXPECT_TRUE(Insert(set, u""));
    EXPECT_TRUE(set.Contains(u""));
}

TEST(EntryNameSet, StartsWithSixteenBucketsAndGrowsByFours) {
    EntryNameSet set;
    EXPECT_EQ(set.GetBucketCount(), 16u);
    std::vector<std::size_t> steps;
    for (int i = 0; i < 1025; ++i) {
        const std::size_t before = set.GetBucketCount();
        ASSERT_TRUE(Insert(set, Numbered(i)));
        ASSERT_LE(set.GetCount(), set.GetBucketCount());
        if (set.GetBucketCount() != before) steps.push_back(set.GetCount());
    }
    EXPECT_EQ(steps, (std::vector<std::size_t>{17, 65, 257, 1025}));
    EXPECT_EQ(set.GetBucketCount(), 4096u);
}

TEST(EntryNameSet, FindsEveryNameAfterGrowing) {
    EntryNameSet set;
    for (int i = 0; i < 5000; ++i) ASSERT_TRUE(Insert(set, Numbered(i)));
    for (int i = 0; i < 5000; ++i) ASSERT_TRUE(set.Contains(Numbered(i).c_str()));
    EXPECT_FALSE(set.Contains(Numbered(5000).c_str()));
}

TEST(EntryNameSet, KeepsNamesApartThatShareAHash) {
    ASSERT_EQ(HashEntryName(Colliding(0, 3)), HashEntryName(Colliding(5, 3)));
    EntryNameSet set;
    for (unsigned i = 0; i < 8; ++i) ASSERT_TRUE(Insert(set, Colliding(i, 3)));
    for (unsigned i = 0; i < 8; ++i) ASSERT_FALSE(Insert(set, Colliding(i, 3)));
    EXPECT_EQ(set.GetCount(), 8u);
}

// In the order of their names these come in the reverse order of their hashes, all of which
// belong into the first of sixteen buckets.
TEST(EntryNameSet, FindsEveryNameOfABucketWhateverOrderTheyCameIn) {
    std::vector<std::u16string> names;
    for (char16_t i = 0; i < 5; ++i) {
        names.push_back(static_cast<char16_t>(u'g' - i) + std::u16string(i + 1U, u'@'));
        ASSERT_EQ(HashEntryName(names.back()) % 16, 0u);
    }
    ASSERT_TRUE(std::is_sorted(names.begin(), names.end(), [](const auto& a, const auto& b) {
        return HashEntryName(a) < HashEntryName(b);
    }));
    ASSERT_TRUE(std::is_sorted(names.rbegin(), names.rend()));
    std::vector<int> order(names.size());
    std::iota(order.begin(), order.end(), 0);
    do {
        EntryNameSet set;
        for (const int i : order) ASSERT_TRUE(Insert(set, names[static_cast<std::size_t>(i)]));
        for (const std::u16string& name : names) ASSERT_TRUE(set.Contains(name.c_str()));
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST(EntryNameSet, KeepsABucketInTheOrderOfItsHashes) {
    EntryNameSet set;
    for (char16_t i = 5; i-- > 0;) {
        ASSERT_TRUE(Insert(set, static_cast<char16_t>(u'g' - i) + std::u16string(i + 1U, u'@')));
    }
    const EntryNameSet::Block* bucket = set.GetBucket(0);
    ASSERT_EQ(bucket->GetCount(), 5u);
    const EntryNameSet::Pair* pairs = bucket->GetPairs();
    EXPECT_TRUE(
        std::is_sorted(pairs, pairs + 5, [](const auto& a, const auto& b) { return a.hash < b.hash; }));
}

TEST(EntryNameSet, DoublesABlockOnlyWhenItIsFull) {
    EntryNameSet set;
    const std::size_t place = HashEntryName(Colliding(0, 3)) % set.GetBucketCount();
    ASSERT_EQ(set.GetBucket(place), nullptr);
    const EntryNameSet::Block* before = nullptr;
    constexpr std::uint32_t kCapacities[] = {1, 2, 4, 4, 8, 8, 8, 8};
    for (unsigned i = 0; i < 8; ++i) {
        ASSERT_TRUE(Insert(set, Colliding(i, 3)));
        const EntryNameSet::Block* block = set.GetBucket(place);
        EXPECT_EQ(block->GetCapacity(), kCapacities[i]) << i;
        if (i > 0 && kCapacities[i] == kCapacities[i - 1]) {
            EXPECT_EQ(block, before) << i;
        }
        before = block;
    }
}

TEST(EntryNameSet, TakesNamesForTwoThatDifferInTheCaseOfLettersOutsideAscii) {
    ASSERT_EQ(_Xu2_stricmp(u"\u00c4", u"\u00e4"), 0);
    EntryNameSet set;
    EXPECT_TRUE(Insert(set, u"\u00c4"));
    EXPECT_TRUE(Insert(set, u"\u00e4"));
    EXPECT_EQ(set.GetCount(), 2u);
}

TEST(EntryNameSet, TakesABucketOfMoreThanASmallBlockHolds) {
    EntryNameSet set;
    constexpr unsigned kNames = 33'000;  // a block of 32768 is large already, and gets full
    for (unsigned i = 0; i < kNames; ++i) ASSERT_TRUE(Insert(set, Colliding(i, 16)));
    EXPECT_EQ(set.GetCount(), kNames);
    for (unsigned i = 0; i < kNames; i += 97) ASSERT_TRUE(set.Contains(Colliding(i, 16).c_str()));
    EXPECT_FALSE(Insert(set, Colliding(kNames - 1, 16)));
}

TEST(EntryNameSet, HasNoBucketsAfterClear) {
    EntryNameSet set;
    for (int i = 0; i < 16; ++i) ASSERT_TRUE(Insert(set, Numbered(i)));
    ASSERT_EQ(set.GetBucketCount(), 16u);
    set.Clear();
    for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(set.GetBucket(i), nullptr) << i;
}

TEST(EntryNameSet, IsEmptyAgainAfterClear) {
    EntryNameSet set;
    for (int i = 0; i < 100; ++i) ASSERT_TRUE(Insert(set, Numbered(i)));
    set.Clear();
    EXPECT_EQ(set.GetCount(), 0u);
    EXPECT_EQ(set.GetBucketCount(), 16u);
    for (int i = 0; i < 100; ++i) ASSERT_FALSE(set.Contains(Numbered(i).c_str()));
    for (int i = 0; i < 100; ++i) ASSERT_TRUE(Insert(set, Numbered(i)));
}

}  // namespace
