// For ThreadSanitizer: runs of pages go from one thread to another.
#include <gtest/gtest.h>

#include <atomic>
#include <cstring>

#include "runtime/memory/PagePool.h"
#include "tests/support/EightThreads.h"

namespace {

using namespace vexpa_test;
using vexpa_runtime::PagePool;

constexpr std::size_t kSizes[] = {100'000, 3'000'000};

// Each writes to all of its run, so that two which had the same one would show.
TEST(PagePoolThreads, NeverHaveARunInCommon) {
    PagePool pool(8 << 20);
    std::atomic<int> wrong = 0;
    OnEightThreads([&](unsigned i) {
        for (int round = 0; round < 60; ++round) {
            const PagePool::Run run = pool.Take(kSizes[(i + static_cast<unsigned>(round)) % 2]).run;
            std::memset(run.data(), static_cast<int>(i), run.size());
            for (std::size_t at = 0; at < run.size(); at += 4'096) {
                if (run[at] != static_cast<std::byte>(i)) ++wrong;
            }
            pool.Give(run);
        }
    });
    EXPECT_EQ(wrong, 0);
    EXPECT_LE(pool.BytesKept(), 8U << 20);
}

}  // namespace
