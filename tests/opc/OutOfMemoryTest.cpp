#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "runtime/Runtime.h"
#include "tests/opc/PackageFile.h"
#include "tests/opc/PackageWalk.h"
#include "tests/support/FailingAllocator.h"

namespace {

// The extracted bytes that are out. When there is no memory for their block they are lost, and
// must be; so they are caught here. In a plain array, as this must not need memory itself.
void* bytesOut[8] = {};

void Replace(void* old, void* with) {
    for (void*& bytes : bytesOut) {
        if (bytes != old) continue;
        bytes = with;
        return;
    }
}

}  // namespace

extern "C" {
int __real_UzpUnzipToMemory(char* zip, char* entry, UzpOpts* options, UzpCB* callbacks,
                            UzpBuffer* result);
void __real_free(void* memory);

__attribute__((visibility("default"))) int __wrap_UzpUnzipToMemory(char* zip, char* entry,
                                                                   UzpOpts* options, UzpCB* callbacks,
                                                                   UzpBuffer* result) {
    const int success = __real_UzpUnzipToMemory(zip, entry, options, callbacks, result);
    if (result->strptr != nullptr) Replace(nullptr, result->strptr);
    return success;
}

__attribute__((visibility("default"))) void __wrap_free(void* memory) {
    if (memory != nullptr) Replace(memory, nullptr);
    __real_free(memory);
}
}

namespace {

using namespace tarn;
using namespace vexpa_test;

// How many extractions were lost; their bytes are freed now.
int FreeLostBytes() {
    int lost = 0;
    for (void*& bytes : bytesOut) {
        if (bytes == nullptr) continue;
        ++lost;
        std::free(bytes);
    }
    return lost;
}

std::u16string Sample(const char* name) {
    return Utf16(std::string(VEXPA_SOURCE_DIR) + "/samples/" + name);
}

// How much a package with so many relationships, all of them with the same Id, holds when it is
// closed.
long LeftAfterClose(int relationships) {
    PackageFile file = MinimalPackage();
    for (int i = 0; i < relationships; ++i) {
        file.Relationship("same", "urn:type" + std::to_string(i), "word/document.xml");
    }
    const std::u16string path = file.Write().Path16();
    const long before = LiveAllocations();
    const Handle<opc::Package> package = opc::Package::Open(path.c_str());
    EXPECT_EQ(package->GetRelationships().size(), 2U);
    EXPECT_GT(LiveAllocations(), before + relationships);
    package->Close();
    return LiveAllocations() - before;
}

TEST(PackageClose, LeavesNothingOfRelationshipsThatHaveOneId) {
    LeftAfterClose(2);  // fills what is kept for the next package
    EXPECT_EQ(LeftAfterClose(100), LeftAfterClose(2));
}

class OutOfMemory : public testing::TestWithParam<const char*> {};

TEST_P(OutOfMemory, AnywhereInAWalkLeavesNothingBehind) {
    const std::u16string path = Sample(GetParam());
    const std::size_t parts = OpenAndWalk(path);
    ASSERT_GT(parts, 0u);
    const long before = LiveAllocations();
    const auto afterFailure = [&] {
        EXPECT_EQ(LiveAllocations(), before);
        EXPECT_LE(FreeLostBytes(), 1);
    };
    const long failures = FailEachAllocation([&] { OpenAndWalk(path); }, afterFailure);
    EXPECT_GT(failures, 100);
    EXPECT_EQ(OpenAndWalk(path), parts);
}

TEST_P(OutOfMemory, WhileAPackageIsOpenLeavesItUsable) {
    const std::u16string path = Sample(GetParam());
    const std::size_t parts = OpenAndWalk(path);
    for (long successes = 0;; ++successes) {
        SCOPED_TRACE(successes);
        const Handle<opc::Package> package = opc::Package::Open(path.c_str());
        bool hasFailed = false;
        {
            const FailingAllocator allocator(successes);
            try {
                Walk(*package);
            } catch (const std::bad_alloc&) {
                // Said so, as it must.
            }
            hasFailed = allocator.HasFailed();
        }
        EXPECT_LE(FreeLostBytes(), 1);
        // A part that was loaded without its relationships stays so, so there may be fewer.
        EXPECT_LE(Walk(*package), parts);
        EXPECT_GT(Walk(*package), 0u);
        if (!hasFailed) break;
    }
}

INSTANTIATE_TEST_SUITE_P(OfSamples, OutOfMemory, testing::Values("report.docx", "ledger.xlsx"));

}  // namespace
