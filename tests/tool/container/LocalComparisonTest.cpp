#include <gtest/gtest.h>

#include <functional>

#include "tests/tool/container/Archive.h"
#include "tool/container/LocalComparison.h"

namespace {

using namespace vexpa_test;
using namespace vexpa_tool;

unsigned Differences(const Archive& archive) {
    LocalComparison comparison(archive.container);
    return comparison.Compare(archive.container.Entries()[0]);
}

// An archive of one entry whose local header says something else at one place.
Archive Changed(std::size_t at, const std::string& bytes, ZipFile zip = Letters()) {
    return Archive(zip.Bytes().replace(at, bytes.size(), bytes));
}

TEST(LocalComparison, OfAnArchiveThatAgreesFindsNothing) {
    ZipFile zip = Letters();
    EXPECT_EQ(Differences(Archive(zip)), 0u);
    zip.entries[0].dataDescriptor = true;
    EXPECT_EQ(Differences(Archive(zip)), 0u);
    zip.entries[0].zip64 = true;
    EXPECT_EQ(Differences(Archive(zip)), 0u);
    zip.entries[0].dataDescriptor = false;
    EXPECT_EQ(Differences(Archive(zip)), 0u);
}

TEST(LocalComparison, TellsTheFieldThatDiffers) {
    struct Row {
        const char* shows;
        std::size_t at;
        std::string bytes;
        unsigned difference;
    };
    const Row rows[] = {
        {"encryption", 6, "\1", kEncryptionDiffers},
        {"method", 8, "\7", kMethodDiffers},
        {"CRC", 14, "\1\2", kCrcDiffers},
        {"packed size", 18, "\xAA", kCompressedSizeDiffers},
        {"size", 22, "\xAA", kSizeDiffers},
        {"name", 30, "z", kNameDiffers},
        {"signature", 0, "pk", kNoLocalHeader},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(Differences(Changed(row.at, row.bytes)), row.difference);
    }
}

TEST(LocalComparison, ComparesWhatADescriptorRepeats) {
    ZipFile zip = Letters();
    zip.entries[0].dataDescriptor = true;
    EXPECT_EQ(Differences(Changed(14, "\1", zip)), kCrcDiffers);
    EXPECT_EQ(Differences(Changed(22, "\1", zip)), kSizeDiffers);
}

TEST(LocalComparison, ComparesSizesOfZip64) {
    ZipFile zip = Letters();
    zip.entries[0].zip64 = true;
    const std::size_t size = 30 + 1 + 4;
    EXPECT_EQ(Differences(Changed(size, "\x7F", zip)), kSizeDiffers);
    EXPECT_EQ(Differences(Changed(size + 8, "\x7F", zip)), kCompressedSizeDiffers);
}

TEST(LocalComparison, TellsOfDataThatTheFileDoesNotHold) {
    ZipFile zip = Letters();
    zip.entries[0].compressedSize = 5000;
    EXPECT_EQ(Differences(Archive(zip)), kDataBeyondFile);
}

TEST(LocalComparison, TellsOfAnOffsetBeyondTheFile) {
    ZipFile zip = Letters();
    zip.entries[0].localOffset = 5000;
    EXPECT_EQ(Differences(Archive(zip)), kNoLocalHeader);
}

}  // namespace
