#include <gtest/gtest.h>

#include <string>

#include "tests/opc/PackageFile.h"
#include "tests/opc/PackageWalk.h"
#include "tests/support/FailingAllocator.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

std::u16string Sample(const char* name) {
    return Utf16(std::string(VEXPA_SOURCE_DIR) + "/samples/" + name);
}

class OutOfMemory : public testing::TestWithParam<const char*> {};

TEST_P(OutOfMemory, AnywhereInAWalkLeavesNothingBehind) {
    const std::u16string path = Sample(GetParam());
    const std::size_t parts = OpenAndWalk(path);
    ASSERT_GT(parts, 0u);
    const long before = LiveAllocations();
    const long failures =
        FailEachAllocation([&] { OpenAndWalk(path); }, [&] { EXPECT_EQ(LiveAllocations(), before); });
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
        // A part that was loaded without its relationships stays so, so there may be fewer.
        EXPECT_LE(Walk(*package), parts);
        EXPECT_GT(Walk(*package), 0u);
        if (!hasFailed) break;
    }
}

INSTANTIATE_TEST_SUITE_P(OfSamples, OutOfMemory, testing::Values("report.docx", "ledger.xlsx"));

}  // namespace
