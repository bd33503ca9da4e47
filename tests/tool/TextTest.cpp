#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>

#include "tool/text/Local.h"
#include "tool/text/ShortNames.h"
#include "tool/text/Size.h"
#include "tool/text/Table.h"

namespace {

using namespace vexpa_tool;
using testing::ElementsAre;

TEST(HumanSize, RoundsToTheNearestTenthOfTheLargestUnitThatFits) {
    constexpr std::uint64_t kKiB = 1024, kMiB = kKiB * 1024;
    const struct {
        const char* shows;
        std::uint64_t bytes;
        const char* text;
    } rows[] = {
        {"nothing", 0, "0 B"},
        {"bytes as they are", 1023, "1023 B"},
        {"the first unit", kKiB, "1.0 KiB"},
        {"a tenth is rounded up", 1024 + 52, "1.1 KiB"},
        {"and down", 1024 + 51, "1.0 KiB"},
        {"the last of a unit", kMiB - 52, "1023.9 KiB"},
        {"what would round to 1024.0", kMiB - 51, "1.0 MiB"},
        {"and one byte less than the next", kMiB - 1, "1.0 MiB"},
        {"a real size", 15 * kMiB + kMiB / 2, "15.5 MiB"},
        {"the largest number", UINT64_MAX, "16.0 EiB"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(HumanSize(row.bytes), row.text);
    }
}

TEST(ShortContentType, LosesTheSharedPrefixOnly) {
    EXPECT_EQ(ShortContentType("application/vnd.openxmlformats-officedocument.theme+xml"), "theme+xml");
    EXPECT_EQ(ShortContentType("application/vnd.openxmlformats-package.core-properties+xml"),
              "core-properties+xml");
    EXPECT_EQ(ShortContentType("image/png"), "image/png");
    EXPECT_EQ(ShortContentType(""), "");
}

TEST(Table, AlignsColumnsAndLeavesNoBlanksAtTheEnd) {
    Table table;
    table.Add({"a", "bbb", "c"});
    table.Add({"aaa", "", ""});
    table.Add({"\u65e5", "b", "cc"});
    EXPECT_THAT(table.Lines(), ElementsAre("a    bbb  c", "aaa", "\u65e5   b    cc"));
}

TEST(Table, AlignsNumbersToTheRight) {
    Table table;
    table.AlignRight(1);
    table.Add({"a", "1", "x"});
    table.Add({"a", "100", "x"});
    EXPECT_THAT(table.Lines(), ElementsAre("a    1  x", "a  100  x"));
}

TEST(Table, ACellOfAnyLengthWidensItsOwnLineOnly) {
    Table table;
    table.Add({std::string(5000, 'a'), "b"});
    table.Add({"a", "b"});
    EXPECT_EQ(table.Lines()[0].size(), 5003u);
    EXPECT_EQ(table.Lines()[1].size(), kWidestColumn + 3);
}

// A name of one locale in another.
TEST(PrintableLocal, ShowsBytesThatAreNoText) {
    const struct {
        const char* shows;
        const char* local;
        const char* printed;
    } rows[] = {
        {"text", "gr\u00fc\u00df", "gr\u00fc\u00df"},
        {"nothing", "", "\"\""},
        {"a byte between", "a\xFF\u00e4", "a\\xff\u00e4"},
        {"half a character at the end", "a\xC3", "a\\xc3"},
        {"a control character beside it", "\x1b\xFF", "\\x1b\\xff"},
        {"U+FFFD itself", "\uFFFD", "\uFFFD"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(PrintableLocal(row.local), row.printed);
    }
}

TEST(GroupedDigits, StandInThrees) {
    EXPECT_EQ(GroupedDigits(0), "0");
    EXPECT_EQ(GroupedDigits(999), "999");
    EXPECT_EQ(GroupedDigits(1'000), "1,000");
    EXPECT_EQ(GroupedDigits(1'234'567), "1,234,567");
}

TEST(Table, AlignsSeveralColumnsToTheRight) {
    Table table;
    table.AlignRight(0);
    table.AlignRight(1);
    table.Add({"1", "1", "x"});
    table.Add({"100", "10", "x"});
    EXPECT_THAT(table.Lines(), ElementsAre("  1   1  x", "100  10  x"));
}

}  // namespace
