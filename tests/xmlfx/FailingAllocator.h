// tests/xmlfx/FailingAllocator.h - makes the n-th allocation of a program fail.
//
// A program that links FailingAllocator.cpp has its operator new and delete.
#ifndef VEXPA_TESTS_XMLFX_FAILINGALLOCATOR_H_
#define VEXPA_TESTS_XMLFX_FAILINGALLOCATOR_H_

#include <new>

namespace vexpa_test {

// After `successes` more allocations one fails, and all later ones succeed again.
void FailAllocationAfter(long successes);
void LetAllocationsSucceed();

long LiveAllocations();
long Allocations();  // made so far

// Runs `action` with its first allocation failing, then its second and so on, until it
// gets through; calls `afterFailure` each time it did not. Answers how often that was.
template <class Action, class AfterFailure>
long FailEachAllocation(const Action& action, const AfterFailure& afterFailure) {
    for (long successes = 0;; ++successes) {
        FailAllocationAfter(successes);
        try {
            action();
            LetAllocationsSucceed();
            return successes;
        } catch (const std::bad_alloc&) {
            LetAllocationsSucceed();
            afterFailure();
        }
    }
}

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_XMLFX_FAILINGALLOCATOR_H_
