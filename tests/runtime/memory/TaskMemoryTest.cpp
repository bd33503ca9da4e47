#include <gtest/gtest.h>

#include "tests/support/FailingMalloc.h"
#include "vexpa/platform/Runtime.h"

namespace {

TEST(TaskMemory, OfNoBytesHasAnAddress) {
    void* memory = _XCoTaskMemAlloc(0);
    EXPECT_NE(memory, nullptr);
    _XCoTaskMemFree(memory);
}

TEST(TaskMemory, IsNullWhenMemoryIsExhausted) {
    const vexpa_test::FailingMalloc failing;
    EXPECT_EQ(_XCoTaskMemAlloc(8), nullptr);
}

TEST(TaskMemory, FreeingNullDoesNothing) {
    _XCoTaskMemFree(nullptr);
}

}  // namespace
