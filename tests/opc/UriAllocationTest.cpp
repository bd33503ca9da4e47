// Task memory that runs out: what a name loses, and that nothing leaks.
#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <string>

#include "runtime/Runtime.h"
#include "vexpa/opc/PartUri.h"
#include "vexpa/opc/UriComponents.h"
#include "vexpa/opc/UriParser.h"

namespace {

int allocationsLeft = std::numeric_limits<int>::max();
int blocksHeld = 0;

}  // namespace

// The program's own definitions take the place of the runtime's.
void* _XCoTaskMemAlloc(std::size_t size) {
    if (allocationsLeft == 0) return nullptr;
    --allocationsLeft;
    ++blocksHeld;
    return std::malloc(size == 0 ? 1 : size);
}

void _XCoTaskMemFree(void* memory) {
    if (memory == nullptr) return;
    --blocksHeld;
    std::free(memory);
}

namespace {

using namespace tarn::opc;

class TaskMemory : public testing::Test {
protected:
    TaskMemory() { blocksHeld = 0; }
    ~TaskMemory() override { allocationsLeft = std::numeric_limits<int>::max(); }
};

TEST_F(TaskMemory, EveryFailureLeavesTheNameAloneAndNothingBehind) {
    constexpr int kAllocations = 7;  // the record and six components
    for (int left = 0; left < kAllocations; ++left) {
        SCOPED_TRACE(left);
        allocationsLeft = left;
        const PartUri uri(u"s://u@h:1/p?q#f");
        EXPECT_EQ(uri.name, u"s://u@h:1/p?q#f");
        EXPECT_EQ(uri.scheme + uri.userInfo + uri.host + uri.path + uri.query + uri.fragment, u"");
        EXPECT_EQ(uri.port, 0u);
        EXPECT_EQ(blocksHeld, 0);
    }
    allocationsLeft = kAllocations;
    const PartUri uri(u"s://u@h:1/p?q#f");
    EXPECT_EQ(uri.fragment, u"f");
    EXPECT_EQ(allocationsLeft, 0);
    EXPECT_EQ(blocksHeld, 0);
}

TEST_F(TaskMemory, AFailureIsNoReasonToReadTheTextAnotherWay) {
    for (int left = 1; left < 3; ++left) {
        SCOPED_TRACE(left);
        allocationsLeft = left;
        EXPECT_EQ(PartUri(u"a:b").path, u"");
    }
}

TEST_F(TaskMemory, AFailureLeavesTheRecordWithoutComponents) {
    allocationsLeft = 3;
    const ScratchUriComponents uri;
    EXPECT_EQ(ParseUri("s://u@h:1/p", *uri), UriStatus::OutOfMemory);
    EXPECT_EQ(uri->scheme, nullptr);
    EXPECT_EQ(uri->host, nullptr);
    EXPECT_EQ(uri->port, 0u);
    EXPECT_EQ(blocksHeld, 1);
}

TEST_F(TaskMemory, ANameThatDoesNotParseLeavesNothingBehind) {
    EXPECT_EQ(PartUri(u"http://u@h:1/p?q#f{").path, u"");
    EXPECT_EQ(blocksHeld, 0);
}

}  // namespace
