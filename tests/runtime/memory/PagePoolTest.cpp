#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

#include "runtime/memory/PagePool.h"
#include "tests/support/FailingMalloc.h"

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
    const auto again = pool.Take(92'000);  // an eighth less at most
    EXPECT_EQ(again.run.data(), first.run.data());
    EXPECT_FALSE(again.isZero);
    pool.Give(again.run);
}

TEST(PagePool, GivesNoRunAgainThatIsTooSmallOrMuchTooLarge) {
    PagePool pool(kMegabyte);
    const auto first = pool.Take(100'000);
    pool.Give(first.run);
    for (const std::size_t size : {first.run.size() + 1, std::size_t{80'000}}) {
        const auto other = pool.Take(size);
        EXPECT_TRUE(other.isZero);
        EXPECT_GE(other.run.size(), size);
    }
    EXPECT_EQ(pool.BytesKept(), first.run.size());
}

TEST(PagePool, MakesARunNoLargerThanItsLastPage) {
    PagePool pool(0);
    for (const std::size_t size : {std::size_t{65'536}, std::size_t{65'537}, std::size_t{1'500'000},
                                   3 * kMegabyte + 1, 33 * kMegabyte}) {
        SCOPED_TRACE(size);
        const auto taken = pool.Take(size);
        EXPECT_GE(taken.run.size(), size);
        EXPECT_LT(taken.run.size(), size + 4096);
        taken.run.front() = taken.run.back() = std::byte{1};
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

TEST(PagePool, KeepsNothingOnceItIsEmptied) {
    PagePool pool(kMegabyte);
    pool.Give(pool.Take(100'000).run);
    EXPECT_NE(pool.BytesKept(), 0U);
    pool.Empty();
    EXPECT_EQ(pool.BytesKept(), 0U);
    EXPECT_TRUE(pool.Take(100'000).isZero);
}

TEST(PagePool, GivesNothingWhenTheSystemHasNoPages) {
    PagePool pool(0);
    for (const std::size_t size : {100'000UL, 3 * kMegabyte}) {
        SCOPED_TRACE(size);
        for (long calls = 0;; ++calls) {
            const vexpa_test::FailingMalloc failing(calls);
            const PagePool::Run run = pool.Take(size).run;
            EXPECT_EQ(run.empty(), failing.HasFailed());
            pool.Give(run);
            if (failing.HasFailed()) continue;
            EXPECT_GT(calls, 0);
            break;
        }
    }
}

TEST(PagePool, OfASizeThatNoMemoryHasGivesNothing) {
    PagePool pool(0);
    EXPECT_TRUE(pool.Take(std::numeric_limits<std::size_t>::max()).run.empty());
    EXPECT_TRUE(pool.Take(std::size_t{1} << 60).run.empty());
}

}  // namespace
