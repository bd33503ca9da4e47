// tests/support/EightThreads.h - the same on several threads that begin together.
#ifndef VEXPA_TESTS_SUPPORT_EIGHTTHREADS_H_
#define VEXPA_TESTS_SUPPORT_EIGHTTHREADS_H_

#include <latch>
#include <thread>
#include <vector>

namespace vexpa_test {

constexpr unsigned kThreads = 8;

// Calls action(0) to action(7), each on a thread of its own, and waits for them.
template <class Action>
void OnEightThreads(const Action& action) {
    std::latch start(kThreads);
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < kThreads; ++i) {
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            action(i);
        });
    }
    for (std::thread& thread : threads) thread.join();
}

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_SUPPORT_EIGHTTHREADS_H_
