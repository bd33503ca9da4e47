// What a thread has of its own, and until when.
#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <type_traits>

#include "runtime/NeverDestroyed.h"
#include "runtime/ThreadsOwn.h"

namespace {

using vexpa_runtime::NeverDestroyed;
using vexpa_runtime::ThreadsOwn;

std::atomic<int> made = 0;
std::atomic<int> ended = 0;

struct Number {
    Number() noexcept { ++made; }
    ~Number() { ++ended; }
    int value = 0;
};

TEST(ThreadsOwn, IsTheSameForAllCallsOfAThread) {
    ThreadsOwn<Number>().value = 7;
    EXPECT_EQ(ThreadsOwn<Number>().value, 7);
}

TEST(ThreadsOwn, IsAnotherOneForAnotherThread) {
    ThreadsOwn<Number>().value = 7;
    int others = -1;
    std::thread([&others] { others = ThreadsOwn<Number>().value++; }).join();
    EXPECT_EQ(others, 0);
    EXPECT_EQ(ThreadsOwn<Number>().value, 7);
}

TEST(ThreadsOwn, EndsWithItsThread) {
    const int before = ended;
    std::thread([] { ThreadsOwn<Number>(); }).join();
    EXPECT_EQ(ended, before + 1);
}

struct LooksAtTheEnd {
    int* seen = nullptr;
    ~LooksAtTheEnd() {
        if (seen != nullptr) *seen = ThreadsOwn<Number>().value;
    }
};
thread_local LooksAtTheEnd looksAtTheEnd;

TEST(ThreadsOwn, OutlivesAThreadLocalObjectThatWasThereBefore) {
    int seen = 0;
    std::thread([&seen] {
        looksAtTheEnd.seen = &seen;
        ThreadsOwn<Number>().value = 7;
    }).join();
    EXPECT_EQ(seen, 7);
}

// Which of two keys a thread comes to first is not said.
TEST(ThreadsOwn, MayBeAskedForWhereAnotherKeyEnds) {
    ThreadsOwn<Number>();  // so that its key is the older one
    pthread_key_t key = 0;
    ASSERT_EQ(
        pthread_key_create(
            &key, [](void* times) { *static_cast<int*>(times) += 1 + ThreadsOwn<Number>().value; }),
        0);
    const int alive = made - ended;
    int times = 0;
    std::thread([&times, key] {
        pthread_setspecific(key, &times);
        ThreadsOwn<Number>();
    }).join();
    pthread_key_delete(key);
    EXPECT_EQ(times, 1);
    EXPECT_EQ(made - ended, alive) << "one that was made for it has not ended";
}

TEST(ThreadsOwn, OutlivesAStaticObjectThatWasThereBefore) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    struct Late {
        ~Late() { std::fprintf(stderr, "it is %d", ThreadsOwn<Number>().value); }
    };
    const auto useAndExit = [] {
        static const Late late;
        ThreadsOwn<Number>().value = 7;
        std::exit(0);  // NOLINT(concurrency-mt-unsafe): there is one thread
    };
    EXPECT_EXIT(useAndExit(), ::testing::ExitedWithCode(0), "it is 7");
}

TEST(NeverDestroyed, HoldsAnObjectThatNothingEnds) {
    NeverDestroyed<Number> number;
    number.Get().value = 7;
    EXPECT_EQ(number.Get().value, 7);
    EXPECT_TRUE(std::is_trivially_destructible_v<NeverDestroyed<std::string>>);
}

}  // namespace
