#include <gtest/gtest.h>

#include "tests/tool/container/Archive.h"
#include "tool/container/Layout.h"

namespace {

using namespace vexpa_test;
using namespace vexpa_tool;

Layout LayoutOf(const std::string& bytes) {
    const Archive archive(bytes);
    return LayOut(archive.container);
}

Layout LayoutOf(const ZipFile& zip) {
    return LayoutOf(zip.Bytes());
}

std::uint64_t AllGaps(const Layout& layout) {
    return layout.before.Size() + layout.afterEntries.Size() + layout.afterDirectory.Size() +
           layout.afterEnd.Size() + layout.gapBytes + layout.missingComment;
}

TEST(Layout, OfASoundArchiveHasNoGaps) {
    ZipFile zip = Letters();
    zip.comment = "remark";
    EXPECT_EQ(AllGaps(LayoutOf(zip)), 0u);
    EXPECT_EQ(LayoutOf(zip).overlapCount, 0u);
    EXPECT_EQ(AllGaps(LayoutOf(ZipFile())), 0u);
}

TEST(Layout, TakesADescriptorForNoGap) {
    for (const bool hasSignature : {true, false}) {
        for (const bool isWide : {true, false}) {
            ZipFile zip = Letters();
            for (ZipEntry& entry : zip.entries) {
                entry.dataDescriptor = true;
                entry.descriptorSignature = hasSignature;
                entry.zip64 = isWide;
            }
            EXPECT_EQ(AllGaps(LayoutOf(zip)), 0u);
        }
    }
}

TEST(Layout, CountsBytesBeforeTheArchive) {
    ZipFile zip = Letters();
    zip.prefix = "#!/bin/sh\n";
    EXPECT_EQ(LayoutOf(zip).before.Size(), 10u);
    EXPECT_EQ(AllGaps(LayoutOf(zip)), 10u);
}

TEST(Layout, CountsBytesAfterTheArchive) {
    ZipFile zip = Letters();
    zip.suffix = "tail";
    EXPECT_EQ(LayoutOf(zip).afterEnd.Size(), 4u);
    EXPECT_EQ(AllGaps(LayoutOf(zip)), 4u);
}

TEST(Layout, CountsBytesBetweenDirectoryAndEndRecord) {
    ZipFile zip = Letters();
    zip.gap = "12345";
    EXPECT_EQ(LayoutOf(zip).afterDirectory.Size(), 5u);
    EXPECT_EQ(AllGaps(LayoutOf(zip)), 5u);
}

TEST(Layout, CountsBytesBetweenEntriesAndBeforeTheDirectory) {
    ZipFile zip = Letters();
    zip.entries[0].stored = true;
    zip.entries[0].rawData = "first and more";
    zip.entries[0].compressedSize = 5;
    zip.entries[2].stored = true;
    zip.entries[2].content = "third";
    zip.entries[2].rawData = "third and more";
    zip.entries[2].compressedSize = 5;
    const Layout layout = LayoutOf(zip);
    EXPECT_EQ(layout.gapBytes, 9u);
    EXPECT_EQ(layout.firstGap.Size(), 9u);
    EXPECT_EQ(layout.afterEntries.Size(), 9u);
}

TEST(Layout, CountsTheBytesThatACommentLacks) {
    ZipFile zip = Letters();
    zip.comment = "remark";
    const std::string bytes = zip.Bytes();
    EXPECT_EQ(LayoutOf(bytes.substr(0, bytes.size() - 2)).missingComment, 2u);
}

TEST(Layout, TellsOfEntriesThatShareBytes) {
    ZipFile zip = Letters();
    zip.Add("again", "first").localOffset = 0;
    const Layout layout = LayoutOf(zip);
    EXPECT_EQ(layout.overlapCount, 1u);
    ASSERT_EQ(layout.overlaps.size(), 1u);
    EXPECT_EQ(layout.overlaps[0].first, 0u);
    EXPECT_EQ(layout.overlaps[0].second, 3u);
}

TEST(Layout, CountsEachEntryOfAPileOnce) {
    ZipFile zip = Letters();
    for (int i = 0; i < 1300; ++i) zip.Add("again", "first").localOffset = 0;
    const Layout layout = LayoutOf(zip);
    EXPECT_EQ(layout.overlapCount, 1300u);
    EXPECT_EQ(layout.overlaps.size(), Layout::kMostOverlaps);
}

TEST(Layout, TellsOfAnEntryThatReachesIntoTheDirectory) {
    ZipFile zip = Letters();
    zip.entries[2].stored = true;
    zip.entries[2].compressedSize = 1001;
    EXPECT_TRUE(LayoutOf(zip).intoDirectory.has_value());
    EXPECT_FALSE(LayoutOf(Letters()).intoDirectory.has_value());
}

TEST(Layout, LeavesAsideAnEntryWhoseDataCannotBeThere) {
    ZipFile zip = Letters();
    zip.entries[0].compressedSize = 0xFFFFFFF0;
    EXPECT_EQ(LayoutOf(zip).overlapCount, 0u);
}

}  // namespace
