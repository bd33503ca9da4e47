#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

#include "runtime/memory/PagePool.h"

namespace {

using vexpa_runtime::PagePool;

constexpr std::size_t kMegabyte = 1 << 20;

TEST(PagePool, GivesZerosAtFirst) {
    PagePool pool(kMegabyte);
    const auto [run, isZero] = pool.Take(100'000);
    ASSERT_GE(run.size(), 100'000U);
    EXPECT_TRUE(isZero);
    EXPECT_TRUE(std::all_of(run.begin(), run.end(), [](std::byte b) { return b == std::byte{0}; }));
    pool.Give(run);
}

TEST(PagePool, GivesARunAgainAndSaysThatItsBytesAreNotZero) {
    PagePool pool(kMegabyte);
    const auto first = pool.Take(100'000);
    pool.Give(first.run);
    const auto again = pool.Take(99'000);  // rounded to the same size
    EXPECT_EQ(again.run.data(), first.run.data());
    EXPECT_FALSE(again.isZero);
    pool.Give(again.run);
}

TEST(PagePool, WastesAnEighthAtMost) {
    PagePool pool(0);
    for (const std::size_t size : {std::size_t{65'536}, std::size_t{65'537}, std::size_t{1'500'000},
                                   3 * kMegabyte + 1, 33 * kMegabyte}) {
        SCOPED_TRACE(size);
        const auto taken = pool.Take(size);
        EXPECT_GE(taken.run.size(), size);
        EXPECT_LE(taken.run.size(), size + size / 8 + 4096);
        taken.run.back() = std::byte{1};
        pool.Give(taken.run);
    }
}

TEST(PagePool, BeginsLargeRunsWhereHugePagesCan) {
    PagePool pool(0);
    const auto taken = pool.Take(5 * kMegabyte);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(taken.run.data()) % (2 * kMegabyte), 0U);
    pool.Give(taken.run);
}

TEST(PagePool, KeepsNoMoreThanItMayAndTheLatest) {
    PagePool pool(3 * kMegabyte);
    const auto oldest = pool.Take(kMegabyte);
    const auto later = pool.Take(kMegabyte);
    const auto large = pool.Take(2 * kMegabyte);
    const auto tooLarge = pool.Take(4 * kMegabyte);
    for (const auto& taken : {oldest, later, large, tooLarge}) pool.Give(taken.run);
    EXPECT_EQ(pool.BytesKept(), 3 * kMegabyte);
    const auto found = pool.Take(kMegabyte);
    EXPECT_EQ(found.run.data(), later.run.data());
    pool.Give(found.run);
}

TEST(PagePool, KeepsAFewRunsHoweverSmall) {
    PagePool pool(kMegabyte);
    std::vector<PagePool::Run> runs;
    for (int i = 0; i < 100; ++i) runs.push_back(pool.Take(4'096).run);
    for (const PagePool::Run& run : runs) pool.Give(run);
    EXPECT_EQ(pool.BytesKept(), 64U * 4'096);
}

TEST(PagePool, OfASizeThatNoMemoryHasGivesNothing) {
    PagePool pool(0);
    EXPECT_TRUE(pool.Take(std::numeric_limits<std::size_t>::max()).run.empty());
    EXPECT_TRUE(pool.Take(std::size_t{1} << 60).run.empty());
}

}  // namespace
