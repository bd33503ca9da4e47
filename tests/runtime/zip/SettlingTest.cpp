#include <gtest/gtest.h>

#include <limits>

#include "runtime/zip/Settling.h"

namespace {

using namespace vexpa_runtime::zip;

constexpr std::int64_t kLast = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kFine = 1'234'567;  // no multiple of a hundredth of a second

struct Stamped {
    std::int64_t seconds;
    std::int64_t nanoseconds;
};

FileIdentity FileOf(const Stamped& modified, const Stamped& changed) {
    FileIdentity file{};
    file.modifiedSeconds = modified.seconds;
    file.modifiedNanoseconds = modified.nanoseconds;
    file.changedSeconds = changed.seconds;
    file.changedNanoseconds = changed.nanoseconds;
    return file;
}

struct Stamp {
    const char* shows;
    Stamped modified;
    Stamped changed;
    bool hasSettled;
};

TEST(ZipSettling, IsToldFromTheStampsOfAFile) {
    constexpr std::timespec kNow{100, 500'000'000};
    const Stamp rows[] = {
        {"right now", {100, kFine + 490'000'000}, {100, kFine + 490'000'000}, false},
        {"one tick of the kernel ago", {100, kFine + 480'000'000}, {100, kFine + 480'000'000}, false},
        {"many ticks of the kernel ago", {100, kFine + 440'000'000}, {100, kFine + 440'000'000}, true},
        {"as long ago on a file system of whole seconds", {100, 0}, {100, 0}, false},
        {"one tick ago on one of two seconds", {98, 600'000'000}, {98, 600'000'000}, false},
        {"longer ago there", {98, 0}, {98, 0}, true},
        {"modified long ago and changed now", {5, 0}, {100, kFine + 490'000'000}, false},
        {"modified now and changed long ago", {100, kFine + 490'000'000}, {5, kFine}, false},
        {"dated into the future long ago", {200, 0}, {5, kFine}, true},
        {"dated into the future now", {200, 0}, {100, kFine + 490'000'000}, false},
        {"dated to the end of time", {kLast, 0}, {5, kFine}, true},
        {"dated before all time", {-kLast, 0}, {-kLast, 0}, true},
    };
    for (const Stamp& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(HadSettled(FileOf(row.modified, row.changed), kNow), row.hasSettled);
    }
}

// Clocks that a test sets.
std::timespec stamping{100, 0};
std::timespec steady{5, 0};

void Wait(long milliseconds) {
    steady.tv_nsec += milliseconds * 1'000'000;
    steady.tv_sec += steady.tv_nsec / 1'000'000'000;
    steady.tv_nsec %= 1'000'000'000;
}

class ZipSettlingBySight : public testing::Test {
protected:
    // Files that changed an hour ahead of this machine's clock.
    static FileIdentity Ahead(std::int64_t nanoseconds = kFine) {
        return FileOf({3'700, nanoseconds}, {3'700, nanoseconds});
    }

    Settling settling_{[] { return stamping; }, [] { return steady; }};
};

TEST_F(ZipSettlingBySight, TakesATickFromWhenAFileIsFirstSeen) {
    EXPECT_FALSE(settling_.HasSettled(Ahead()));
    Wait(30);
    EXPECT_FALSE(settling_.HasSettled(Ahead()));
    Wait(30);
    EXPECT_TRUE(settling_.HasSettled(Ahead())) << "seen again meanwhile, but first seen before";
}

TEST_F(ZipSettlingBySight, TakesLongerWhereTicksAreLong) {
    EXPECT_FALSE(settling_.HasSettled(Ahead(0)));
    Wait(1'900);
    EXPECT_FALSE(settling_.HasSettled(Ahead(0)));
    Wait(200);
    EXPECT_TRUE(settling_.HasSettled(Ahead(0)));
}

TEST_F(ZipSettlingBySight, BeginsAgainWithEveryChange) {
    EXPECT_FALSE(settling_.HasSettled(Ahead()));
    Wait(60);
    FileIdentity changed = Ahead();
    ++changed.size;
    EXPECT_FALSE(settling_.HasSettled(changed));
    EXPECT_TRUE(settling_.HasSettled(Ahead()));
}

TEST_F(ZipSettlingBySight, RemembersTheFilesAskedForLast) {
    EXPECT_FALSE(settling_.HasSettled(Ahead()));
    for (dev_t i = 1; i <= 64; ++i) {
        FileIdentity other = Ahead();
        other.device = i;
        EXPECT_FALSE(settling_.HasSettled(other));
        if (i < 64) settling_.HasSettled(Ahead());
    }
    Wait(60);
    FileIdentity first = Ahead();
    first.device = 1;
    EXPECT_FALSE(settling_.HasSettled(first)) << "forgotten for later ones";
    EXPECT_TRUE(settling_.HasSettled(Ahead()));
}

}  // namespace
