#include <gtest/gtest.h>

#include "tool/run/Progress.h"

namespace {

using namespace vexpa_tool;

TEST(Progress, TellsHowFarHowFastAndHowLong) {
    const struct {
        const char* shows;
        ProgressState state;
        std::size_t width;
        const char* text;
    } rows[] = {
        {"the middle of long work",
         {1204, 2719, 1.5, "a.docx"},
         80,
         "1,204/2,719  44 %  803 files/s  2 s left  a.docx"},
        {"slow files", {1, 3, 40, "a.docx"}, 80, "1/3  33 %  2 files/min  80 s left  a.docx"},
        {"long to go", {10, 10'000, 10, "a"}, 80, "10/10,000  0 %  1 files/s  167 min left  a"},
        {"the end", {3, 3, 1, "a"}, 80, "3/3  100 %  3 files/s  a"},
        {"before the first", {0, 3, 0, ""}, 80, "0/3  0 %"},
        {"nothing to do", {0, 0, 0, ""}, 80, "0/0  0 %"},
        {"a narrow terminal", {1204, 2719, 1.5, "a.docx"}, 14, "1,204/2,719  4"},
        {"a wide character that does not fit", {1, 1, 0, "\u65e5\u672c"}, 15, "1/1  100 %  \u65e5"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(ProgressText(row.state, row.width), row.text);
    }
}

TEST(ProgressPace, OnATerminalBeginsAfterHalfASecond) {
    ProgressPace pace(true, false);
    for (const double seconds : {0.0, 0.1, 0.49}) EXPECT_FALSE(pace.IsDue(seconds)) << seconds;
    EXPECT_TRUE(pace.IsDue(0.5));
    EXPECT_FALSE(pace.IsDue(0.59));
    EXPECT_TRUE(pace.IsDue(0.61));
}

TEST(ProgressPace, WhenAskedForBeginsAtOnce) {
    ProgressPace pace(true, true);
    EXPECT_TRUE(pace.IsDue(0));
    EXPECT_FALSE(pace.IsDue(0.05));
    EXPECT_TRUE(pace.IsDue(0.11));
}

TEST(ProgressPace, InALogIsFiveSeconds) {
    for (const bool isEager : {false, true}) {
        ProgressPace pace(false, isEager);
        EXPECT_FALSE(pace.IsDue(4.9));
        EXPECT_TRUE(pace.IsDue(5));
        EXPECT_FALSE(pace.IsDue(9.9));
        EXPECT_TRUE(pace.IsDue(10));
    }
}

}  // namespace
