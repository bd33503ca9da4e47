// Task memory that runs out: what a name loses, and that nothing leaks.
#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <string>

#include "vexpa/opc/PartUri.h"
#include "vexpa/opc/UriComponents.h"
#include "vexpa/opc/UriParser.h"
#include "vexpa/platform/Runtime.h"

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

struct Name {
    const char* shows;
    const char16_t* text;
    int allocations;  // the record, and its components
};
constexpr Name kNames[] = {
    {"a server", u"s://u@h:1/p?q#f", 1 + 6},
    {"a registry name", u"s://a:b:c/p?q#f", 1 + 5},
    {"an opaque text", u"s:o#f", 1 + 3},
};

TEST_F(TaskMemory, EveryFailureLeavesTheNameAloneAndNothingBehind) {
    for (const Name& name : kNames) {
        for (int left = 0; left < name.allocations; ++left) {
            SCOPED_TRACE(std::string(name.shows) + ", " + std::to_string(left));
            allocationsLeft = left;
            const PartUri uri(name.text);
            EXPECT_EQ(uri.name, name.text);
            EXPECT_EQ(uri.scheme + uri.opaque + uri.userInfo + uri.host + uri.registryName + uri.path +
                          uri.query + uri.fragment,
                      u"");
            EXPECT_EQ(uri.port, 0u);
            EXPECT_EQ(blocksHeld, 0);
        }
    }
}

TEST_F(TaskMemory, EachComponentTakesOneAllocation) {
    for (const Name& name : kNames) {
        SCOPED_TRACE(name.shows);
        allocationsLeft = name.allocations;
        EXPECT_EQ(PartUri(name.text).fragment, u"f");
        EXPECT_EQ(allocationsLeft, 0);
        EXPECT_EQ(blocksHeld, 0);
    }
}

TEST_F(TaskMemory, APlainPathNeedsTheRecordAsWell) {
    allocationsLeft = 0;
    EXPECT_EQ(PartUri(u"/word/document.xml").path, u"");
    allocationsLeft = 1;
    EXPECT_EQ(PartUri(u"/word/document.xml").path, u"/word/document.xml");
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
