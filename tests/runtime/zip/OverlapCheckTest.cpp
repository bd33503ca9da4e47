#include <gtest/gtest.h>
#include <libdeflate.h>

#include "runtime/zip/OverlapCheck.h"
#include "tests/runtime/zip/ZipClient.h"
#include "tests/support/ScratchFile.h"

namespace {

using namespace vexpa_runtime::zip;
using namespace vexpa_test;

constexpr std::uint64_t kFileSize = 100;

struct Data {
    std::uint64_t position;
    std::uint64_t size;
};

struct Row {
    const char* shows;
    std::vector<Data> entries;
    std::vector<bool> overlap;
};

TEST(ZipOverlapCheck, MarksEntriesUntilTheRestFitsIntoTheFile) {
    const Row rows[] = {
        {"no entries", {}, {}},
        {"entries side by side", {{0, 50}, {50, 50}}, {false, false}},
        {"an overlap that claims no more than the file has", {{0, 50}, {25, 50}}, {false, false}},
        {"one place for two small ones", {{0, 50}, {0, 50}}, {false, false}},
        {"an overlap that claims more", {{0, 60}, {50, 50}}, {true, false}},
        {"written in the other order", {{50, 50}, {0, 60}}, {false, true}},
        {"one place for many: the first has it", {{0, 60}, {0, 60}, {0, 60}}, {false, true, true}},
        {"the first at a place, cut by the next place",
         {{0, 60}, {0, 60}, {40, 60}},
         {true, true, false}},
        {"each into the next", {{0, 60}, {10, 60}, {20, 60}}, {true, true, false}},
        {"one that lies over all others", {{0, 100}, {10, 20}, {40, 20}}, {true, false, false}},
        {"one that runs out of the file counts for nothing",
         {{0, 50}, {10, 91}, {50, 50}},
         {false, false, false}},
        {"and cuts nobody short", {{0, 50}, {0, 20}, {10, 91}, {50, 50}}, {false, true, false, false}},
        {"sizes whose sum runs over", {{0, ~0ULL}, {0, ~0ULL}, {0, 50}}, {false, false, false}},
        {"a position beyond the file", {{~0ULL, 0}, {0, 60}, {0, 60}}, {false, false, true}},
        {"empty entries take no room", {{0, 0}, {0, 60}, {0, 0}, {0, 60}}, {false, false, false, true}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        std::vector<Entry> entries;
        for (const Data& data : row.entries) {
            Entry entry{};
            entry.headerPosition = data.position;
            entry.compressedSize = data.size;
            entries.push_back(entry);
        }
        MarkOverlaps(entries, kFileSize);
        std::vector<bool> overlap;
        for (const Entry& entry : entries) overlap.push_back(entry.overlaps);
        EXPECT_EQ(overlap, row.overlap);
    }
}

// A hundred kilobytes that would unpack to a gigabyte: every entry has the same megabyte.
TEST(ZipOverlapCheck, LeavesOneEntryOfABombThatIsAllOverlap) {
    const std::string zeros(1 << 20, '\0');
    ZipFile only;
    only.Add("0", zeros);
    const std::string packed = only.Bytes();
    const std::size_t data = 31;  // a local header and a name of one character
    const std::size_t size = packed.find("PK\1\2") - data;

    ZipFile zip;
    for (int i = 0; i < 1'000; ++i) {
        ZipEntry& entry = zip.Add(std::to_string(i), "");
        entry.rawData = i == 0 ? packed.substr(data, size) : "";
        entry.compressedSize = size;
        entry.size = zeros.size();
        entry.crc = libdeflate_crc32(0, zeros.data(), zeros.size());
        entry.localOffset = 0;
    }
    const ScratchFile file(zip.Bytes());
    const auto names = ListZip(file.Path());
    ASSERT_TRUE(names);
    EXPECT_EQ(names->size(), 1'000u);
    EXPECT_TRUE(UnzipEntry(file.Path(), "0") == zeros);
    for (int i = 1; i < 1'000; ++i) EXPECT_FALSE(UnzipEntry(file.Path(), std::to_string(i)));
}

}  // namespace
