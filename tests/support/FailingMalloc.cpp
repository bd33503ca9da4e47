#include "tests/support/FailingMalloc.h"

#include <cstddef>

namespace {

constexpr long kNever = -1;
constexpr long kHasFailed = -2;

thread_local long successesLeft = kNever;

bool Fails() {
    if (successesLeft == 0) {
        successesLeft = kHasFailed;
        return true;
    }
    if (successesLeft > 0) --successesLeft;
    return false;
}

}  // namespace

namespace vexpa_test {

FailingMalloc::FailingMalloc(long successes) {
    successesLeft = successes;
}

FailingMalloc::~FailingMalloc() {
    successesLeft = kNever;
}

bool FailingMalloc::HasFailed() const {
    return successesLeft == kHasFailed;
}

}  // namespace vexpa_test

extern "C" {

void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* memory, std::size_t size);

// Visible, as the linker sees shared libraries refer to the wrapped names, too.
__attribute__((visibility("default"))) void* __wrap_malloc(std::size_t size) {
    return Fails() ? nullptr : __real_malloc(size);
}

__attribute__((visibility("default"))) void* __wrap_calloc(std::size_t count, std::size_t size) {
    return Fails() ? nullptr : __real_calloc(count, size);
}

__attribute__((visibility("default"))) void* __wrap_realloc(void* memory, std::size_t size) {
    return Fails() ? nullptr : __real_realloc(memory, size);
}

}  // extern "C"
