// Every scenario with each of its allocations failing in turn: those of C++, and those of C.
#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <thread>

#include "runtime/memory/PagePool.h"
#include "tests/damage/SoundPackages.h"
#include "tests/fault/ChangingFile.h"
#include "tests/fault/Scenario.h"
#include "tests/support/FailingAllocator.h"
#include "tests/support/FailingMalloc.h"
#include "tests/support/SystemCalls.h"
#include "vexpa/platform/Runtime.h"

namespace {

bool blockWasRefused = false;

}  // namespace

extern "C" {
HGBL __real__XGblAlloc(std::uint32_t flags, std::size_t size);

__attribute__((visibility("default"))) HGBL __wrap__XGblAlloc(std::uint32_t flags, std::size_t size) {
    HGBL block = __real__XGblAlloc(flags, size);
    if (block == nullptr) blockWasRefused = true;
    return block;
}
}

namespace {

using namespace tarn;
using namespace vexpa_test;
using vexpa_runtime::SharedPagePool;

class FailingMemoryIn : public testing::TestWithParam<Scenario> {};

// Runs it with the n-th allocation failing; whether there was one.
template <class Failing>
bool RunWithFailure(const Rehearsal& rehearsal, Stage& stage, long n) {
    Transcript seen;
    bool hasFailed = false;
    blockWasRefused = false;
    {
        const Failing failing(n);
        try {
            rehearsal.Run(stage, seen);
        } catch (const std::bad_alloc&) {
            // Said so, as it must.
        }
        hasFailed = failing.HasFailed();
    }
    rehearsal.ExpectPartOfIt(seen);
    return hasFailed;
}

using Runner = bool (*)(const Rehearsal&, Stage&, long);

// Fails each allocation of the scenario in turn; answers how many there were. Each time in a thread
// of its own: what a thread keeps, it gets at its first extraction and its first parse, and gives
// back at its end.
long FailEach(const Rehearsal& rehearsal, const Times& times, Runner run) {
    const auto runInAThread = [&](long n) {
        bool hasFailed = false;
        std::thread([&] {
            SCOPED_TRACE(n);
            SystemCalls system;
            times.Before(system);
            SharedPagePool().Empty();  // a kept run would leave nothing to fail
            Stage stage = rehearsal.SetUp();
            hasFailed = run(rehearsal, stage, n);
            rehearsal.ExpectSound(stage);
        }).join();
        return hasFailed;
    };
    constexpr long kNever = std::numeric_limits<long>::max();
    runInAThread(kNever);  // what is made once for the process
    for (long n = 0;; ++n) {
        SCOPED_TRACE(n);
        const long before = LiveAllocations();
        const std::size_t blocksBefore = LiveBlocks();
        const std::size_t firstBlock = NextBlock();
        const bool hasFailed = runInAThread(n);
        EXPECT_EQ(LiveAllocations(), before);
        // Bytes for which there is no block are lost by those who read parts.
        EXPECT_LE(LiveBlocks() - blocksBefore, blockWasRefused ? 1U : 0U);
        FreeBlocksSince(firstBlock);
        if (!hasFailed) return n;
    }
}

// The same with a file whose directory is kept, and with one that has just been changed.
void FailEach(const Scenario& scenario, Runner run) {
    long failures = 0;
    for (const Tell tell : {Tell::kBoth, Tell::kNothing}) {
        const Times times(tell);
        SystemCalls system;
        times.Before(system);
        failures += FailEach(Rehearsal(scenario), times, run);
        if (scenario.file == nullptr) break;
    }
    testing::Test::RecordProperty("failures", static_cast<int>(failures));
}

TEST_P(FailingMemoryIn, OfTheNewKindGivesNothingWrongAndLosesNothing) {
    FailEach(GetParam(), RunWithFailure<FailingAllocator>);
}

TEST_P(FailingMemoryIn, OfTheCKindGivesNothingWrongAndLosesNothing) {
    FailEach(GetParam(), RunWithFailure<FailingMalloc>);
}

INSTANTIATE_TEST_SUITE_P(Any, FailingMemoryIn, testing::ValuesIn(Scenarios()),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

}  // namespace
