// tests/growth/Work.h - counts the operations that the product takes, in place of seconds.
#ifndef VEXPA_TESTS_GROWTH_WORK_H_
#define VEXPA_TESTS_GROWTH_WORK_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace vexpa_test {

// What one run took. The product's code is compiled a second time for this program so that it
// reports every edge between its basic blocks; of what it calls in the libraries underneath, the
// bytes count that it gives them to go over (see Work.cpp).
struct Work {
    std::uint64_t edges = 0;
    std::uint64_t bytes = 0;
    std::uint64_t allocations = 0;
    std::uint64_t allocatedBytes = 0;
};

Work Measured(const std::function<void()>& run);

// The product's clock is an hour ahead, so that files are as if written long ago; while one of
// these lives, it is an hour slow.
class FilesOfTheFuture {
public:
    FilesOfTheFuture();
    ~FilesOfTheFuture();
    FilesOfTheFuture(const FilesOfTheFuture&) = delete;
    FilesOfTheFuture& operator=(const FilesOfTheFuture&) = delete;
};

// Makes inputs of a size, and answers what to do with one. Making them is not measured.
using Making = std::function<std::function<void()>(std::size_t size)>;

// Runs inputs of `size` and of four times that size. Of each kind of work the larger may take
// 5.8 times as much: n log n passes, and what grows like the square takes sixteen times as much.
// What an input of size 1 takes is taken off first.
void ExpectNoFasterGrowthThanSize(std::size_t size, const Making& make);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_GROWTH_WORK_H_
