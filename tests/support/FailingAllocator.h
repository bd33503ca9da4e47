// tests/support/FailingAllocator.h - makes the n-th allocation of a program fail.
//
// A program that links vexpa_failing_allocator has its operator new and delete.
#ifndef VEXPA_TESTS_SUPPORT_FAILINGALLOCATOR_H_
#define VEXPA_TESTS_SUPPORT_FAILINGALLOCATOR_H_

#include <new>

namespace vexpa_test {

// While it lives, `successes` allocations of this thread succeed, the next one fails, and all
// later ones succeed again.
class FailingAllocator {
public:
    explicit FailingAllocator(long successes);
    ~FailingAllocator();
    FailingAllocator(const FailingAllocator&) = delete;
    FailingAllocator& operator=(const FailingAllocator&) = delete;

    bool HasFailed() const;
};

long LiveAllocations();
long Allocations();  // made so far

// Runs `action` with its first allocation failing, then its second and so on, until none is
// left to fail; calls `afterFailure` each time one was. Answers how often that was.
template <class Action, class AfterFailure>
long FailEachAllocation(const Action& action, const AfterFailure& afterFailure) {
    for (long successes = 0;; ++successes) {
        bool hasFailed = false;
        {
            const FailingAllocator allocator(successes);
            try {
                action();
                hasFailed = allocator.HasFailed();
            } catch (const std::bad_alloc&) {
                hasFailed = true;
            }
        }
        if (!hasFailed) return successes;
        afterFailure();
    }
}

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_SUPPORT_FAILINGALLOCATOR_H_
