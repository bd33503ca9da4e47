// tests/support/HeapMeter.h - measures what a program takes from the heap.
//
// A program that links vexpa_heap_meter has every allocation counted, those of the libraries
// underneath included, and the pages that the product itself asks the system for.
#ifndef VEXPA_TESTS_SUPPORT_HEAPMETER_H_
#define VEXPA_TESTS_SUPPORT_HEAPMETER_H_

#include <cstddef>

namespace vexpa_test {

// What all threads have taken since it was made. One at a time.
class HeapMeter {
public:
    HeapMeter();

    // Bytes held now, and at most at any moment, beyond those that were held at the start.
    std::size_t Live() const;
    std::size_t Peak() const;

    std::size_t Largest() const;  // bytes of the largest single allocation
    std::size_t Count() const;    // allocations, without pages
    std::size_t Bytes() const;    // of all of these together, whether freed or not

private:
    std::size_t liveBefore_;
    std::size_t countBefore_;
    std::size_t bytesBefore_;
};

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_SUPPORT_HEAPMETER_H_
