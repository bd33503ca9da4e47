// tests/support/FailingMalloc.h - makes one call of malloc, calloc or realloc fail.
//
// For the program that links vexpa_failing_malloc and the objects that make the calls: the
// linker wraps them there. What shared libraries take is not counted.
#ifndef VEXPA_TESTS_SUPPORT_FAILINGMALLOC_H_
#define VEXPA_TESTS_SUPPORT_FAILINGMALLOC_H_

namespace vexpa_test {

// While it lives, `successes` of these calls by this thread succeed, the next one fails, and
// all later ones succeed again.
class FailingMalloc {
public:
    explicit FailingMalloc(long successes = 0);
    ~FailingMalloc();
    FailingMalloc(const FailingMalloc&) = delete;
    FailingMalloc& operator=(const FailingMalloc&) = delete;

    bool HasFailed() const;
};

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_SUPPORT_FAILINGMALLOC_H_
