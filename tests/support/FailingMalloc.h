// tests/support/FailingMalloc.h - makes the n-th allocation of the C kind fail.
//
// A program that links vexpa_failing_malloc has its malloc, calloc, realloc, posix_memalign and
// free wrapped, the calls that get pages from the system too, and what Expat and libdeflate allocate
// comes from there, too. GLib is left alone: it ends the process when memory runs out. So is Qt, whose
// allocations nobody can reach.
#ifndef VEXPA_TESTS_SUPPORT_FAILINGMALLOC_H_
#define VEXPA_TESTS_SUPPORT_FAILINGMALLOC_H_

#include <cstddef>

namespace vexpa_test {

// While it lives, `successes` allocations of this thread succeed, the next one fails, and all
// later ones succeed again.
class FailingMalloc {
public:
    explicit FailingMalloc(long successes = 0);
    ~FailingMalloc();
    FailingMalloc(const FailingMalloc&) = delete;
    FailingMalloc& operator=(const FailingMalloc&) = delete;

    bool HasFailed() const;
};

std::size_t LiveBlocks();

// Every block has a number, counted up. Frees those from `first` on that are still there; how
// many they were.
std::size_t NextBlock();
std::size_t FreeBlocksSince(std::size_t first);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_SUPPORT_FAILINGMALLOC_H_
