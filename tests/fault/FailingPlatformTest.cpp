// Every scenario with each of its platform calls failing in turn.
#include <gtest/gtest.h>

#include <new>

#include "tests/fault/Scenario.h"
#include "tests/support/FaultRuntime.h"

namespace {

using namespace vexpa_test;

class FailingPlatformIn : public testing::TestWithParam<Scenario> {};

// Whether there was a call to fail.
bool RunWithFailure(const Rehearsal& rehearsal, Stage& stage, std::size_t n) {
    FaultRuntime platform;
    platform.FailCall(n);
    Transcript seen;
    try {
        rehearsal.Run(stage, seen);
    } catch (const std::bad_alloc&) {
        // The name set says so when a name cannot be copied.
        EXPECT_EQ(platform.FailedCall(), "_XSysAllocString");
    }
    rehearsal.ExpectPartOfIt(seen);
    // Only an allocation that fails for a part's bytes may lose them.
    EXPECT_LE(platform.LostBuffers(), platform.FailedCall() == "_XGblAlloc" ? 1U : 0U);
    return !platform.FailedCall().empty();
}

TEST_P(FailingPlatformIn, GivesNothingWrongAndBreaksNothing) {
    const Rehearsal rehearsal(GetParam());
    std::size_t n = 1;
    for (bool hasFailed = true; hasFailed; ++n) {
        SCOPED_TRACE(n);
        Stage stage = rehearsal.SetUp();
        hasFailed = RunWithFailure(rehearsal, stage, n);
        rehearsal.ExpectSound(stage);
    }
    RecordProperty("failures", static_cast<int>(n) - 2);
}

INSTANTIATE_TEST_SUITE_P(Any, FailingPlatformIn, testing::ValuesIn(Scenarios()),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

}  // namespace
