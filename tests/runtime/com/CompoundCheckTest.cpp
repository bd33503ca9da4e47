#include <glib.h>
#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

#include "runtime/com/CompoundCheck.h"
#include "tests/runtime/com/Blocks.h"
#include "tests/runtime/com/CompoundBytes.h"
#include "tests/runtime/com/CompoundWalk.h"

namespace vexpa_test {
namespace {

using vexpa_runtime::kMaxDirectoryDepth;
using vexpa_runtime::kMaxStorageElements;

RawEntry Root(std::uint32_t child) {
    return {u"Root Entry", 5, kNoEntry, kNoEntry, child};
}

// Siblings that hang on one another like a list.
std::string WithSiblings(std::size_t count) {
    std::vector<RawEntry> directory{Root(1)};
    for (std::uint32_t i = 1; i <= count; ++i) {
        RawEntry entry{u"S" + Utf16Number(i)};
        if (i < count) entry.right = i + 1;
        directory.push_back(entry);
    }
    return RawCompoundBytes(directory);
}

// The same number of siblings as a balanced tree.
std::string WithSiblingTree(std::uint32_t count) {
    std::vector<RawEntry> directory{Root(1)};
    for (std::uint32_t i = 1; i <= count; ++i) {
        RawEntry entry{u"S" + Utf16Number(i)};
        if (2 * i <= count) entry.left = 2 * i;
        if (2 * i + 1 <= count) entry.right = 2 * i + 1;
        directory.push_back(entry);
    }
    return RawCompoundBytes(directory);
}

std::string WithNestedStorages(std::size_t count, std::uint8_t rootType = 5) {
    std::vector<RawEntry> directory{Root(1)};
    directory[0].type = rootType;
    for (std::uint32_t i = 1; i <= count; ++i) {
        RawEntry entry{u"D", 1};
        if (i < count) entry.child = i + 1;
        directory.push_back(entry);
    }
    return RawCompoundBytes(directory);
}

TEST(CompoundCheck, TakesTheDeepestDirectoryAndNoDeeper) {
    EXPECT_TRUE(OpensWith(WithSiblings(kMaxDirectoryDepth - 1)));
    EXPECT_FALSE(OpensWith(WithSiblings(kMaxDirectoryDepth)));
    EXPECT_TRUE(OpensWith(WithNestedStorages(kMaxDirectoryDepth - 1)));
    EXPECT_FALSE(OpensWith(WithNestedStorages(kMaxDirectoryDepth)));
}

TEST(CompoundCheck, TakesTheWidestStorageAndNoWider) {
    EXPECT_EQ(WalkBytes(WithSiblingTree(kMaxStorageElements - 1)).streams, kMaxStorageElements - 1);
    EXPECT_FALSE(OpensWith(WithSiblingTree(kMaxStorageElements)));
}

TEST(CompoundCheck, RefusesADirectoryThatMeetsItselfAgain) {
    struct Row {
        const char* shows;
        std::vector<RawEntry> directory;
    };
    const Row rows[] = {
        {"a storage within itself", {Root(1), {u"D", 1, kNoEntry, kNoEntry, 1}}},
        {"the root within the root", {Root(0)}},
        {"a sibling that is the entry itself", {Root(1), {u"S", 2, 1, kNoEntry}}},
        {"one entry on both sides", {Root(1), {u"S", 2, 2, 2}, {u"T"}}},
        {"an entry that is not there", {Root(77)}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_FALSE(OpensWith(RawCompoundBytes(row.directory)));
    }
}

TEST(CompoundCheck, RefusesARootWithSiblings) {
    RawEntry root = Root(1);
    root.left = 2;
    EXPECT_FALSE(OpensWith(RawCompoundBytes({root, {u"S"}, {u"T"}})));
    root = Root(1);
    root.right = 2;
    EXPECT_FALSE(OpensWith(RawCompoundBytes({root, {u"S"}, {u"T"}})));
}

// libgsf takes the first entry for the root all the same.
TEST(CompoundCheck, LooksIntoARootThatSaysItIsNone) {
    for (const std::uint8_t type : {std::uint8_t{1}, std::uint8_t{2}}) {
        SCOPED_TRACE(int{type});
        EXPECT_TRUE(OpensWith(WithNestedStorages(kMaxDirectoryDepth - 1, type)));
        EXPECT_FALSE(OpensWith(WithNestedStorages(kMaxDirectoryDepth, type)));
    }
}

// One stream, and a sector that may be its mini FAT.
std::string WithMiniFat(std::uint32_t count, std::uint32_t first, std::uint32_t second) {
    std::string bytes = RawCompoundBytes({Root(1), {u"S", 2, kNoEntry, kNoEntry, kNoEntry, 0, 10}}, 1);
    Put32(bytes, 512 + 4 * 2, kEndOfChain);
    Put32(bytes, 60, 2);
    Put32(bytes, 64, count);
    for (std::size_t i = 0; i < 128; ++i) Put32(bytes, 3 * 512 + 4 * i, kNoEntry);
    Put32(bytes, 3 * 512, first);
    Put32(bytes, 3 * 512 + 4, second);
    return bytes;
}

TEST(CompoundCheck, FollowsTheMiniFatAlsoWithoutACount) {
    for (const std::uint32_t count : {0u, 1u}) {
        SCOPED_TRACE(count);
        EXPECT_TRUE(OpensWith(WithMiniFat(count, 1, kEndOfChain)));
        EXPECT_FALSE(OpensWith(WithMiniFat(count, 1, 0)));
    }
}

// A writer without small streams may leave 0 there, where the data of a stream begins.
TEST(CompoundCheck, LooksAtTheMiniFatOnlyForSmallStreams) {
    for (const std::uint32_t size : {4'096u, 4'095u}) {
        SCOPED_TRACE(size);
        const RawEntry stream{u"S", 2, kNoEntry, kNoEntry, kNoEntry, kEndOfChain, size};
        std::string bytes = RawCompoundBytes({Root(1), stream}, 8);
        Put32(bytes, 60, 2);
        Put32(bytes, 3 * 512, 0x12345678);
        EXPECT_EQ(OpensWith(bytes), size == 4'096u);
    }
}

// libgsf reads no further, and goes on with zeros.
TEST(CompoundCheck, RefusesTablesWithNumbersThatMeanNothing) {
    EXPECT_TRUE(OpensWith(WithMiniFat(1, kEndOfChain, 127)));
    EXPECT_FALSE(OpensWith(WithMiniFat(1, kEndOfChain, 128)));
    EXPECT_FALSE(OpensWith(WithMiniFat(1, kEndOfChain, 0xFFFFFFFB)));
    EXPECT_TRUE(OpensWith(WithMiniFat(1, kEndOfChain, 0xFFFFFFFC)));
}

// libgsf would list neither it nor the elements that hang on it.
TEST(CompoundCheck, RefusesAStreamThatIsLargerThanTheFile) {
    RawEntry stream{u"S", 2, 2, kNoEntry, kNoEntry, kEndOfChain, 1'536};
    EXPECT_EQ(WalkBytes(RawCompoundBytes({Root(1), stream, {u"T"}})).damaged, 1u);
    stream.size = 1'537;
    EXPECT_FALSE(OpensWith(RawCompoundBytes({Root(1), stream, {u"T"}})));
}

TEST(CompoundCheck, FollowsNoLinksThatMeanNothing) {
    EXPECT_TRUE(OpensWith(RawCompoundBytes({Root(1), {u"S", 2, kNoEntry, kNoEntry, 77}})));
    EXPECT_TRUE(OpensWith(RawCompoundBytes({Root(1), {u"X", 0xC0, 77, 78, 79}})));
}

TEST(CompoundCheck, RefusesAStreamWhoseChainRunsInACircle) {
    std::string bytes =
        RawCompoundBytes({Root(1), {u"S", 2, kNoEntry, kNoEntry, kNoEntry, 2, 5000}}, 8);
    ASSERT_TRUE(OpensWith(bytes));
    Put32(bytes, 512 + 4 * 2, 3);
    Put32(bytes, 512 + 4 * 3, 2);
    EXPECT_FALSE(OpensWith(bytes));
}

TEST(CompoundCheck, RefusesADirectoryWhoseChainRunsInACircle) {
    std::string bytes = RawCompoundBytes({Root(kNoEntry)});
    Put32(bytes, 512 + 4 * 1, 1);
    EXPECT_FALSE(OpensWith(bytes));
}

// Each of many streams claims one long chain: opening them all would walk it again and again.
TEST(CompoundCheck, RefusesManyStreamsOverOneLongChain) {
    constexpr std::uint32_t kStreams = 2'000;
    constexpr std::uint32_t kSectors = 8'000;
    std::vector<RawEntry> directory{Root(1)};
    for (std::uint32_t i = 1; i <= kStreams; ++i) {
        RawEntry entry{u"S" + Utf16Number(i)};
        if (2 * i <= kStreams) entry.left = 2 * i;
        if (2 * i + 1 <= kStreams) entry.right = 2 * i + 1;
        entry.size = kSectors * 512;
        directory.push_back(entry);
    }
    std::string bytes = RawCompoundBytes(directory, kSectors);
    ASSERT_TRUE(OpensWith(bytes));

    const auto sectors = static_cast<std::uint32_t>(bytes.size() / 512 - 1);
    const std::uint32_t first = sectors - kSectors;
    for (std::uint32_t i = first; i < sectors; ++i) {
        Put32(bytes, 512 + 4 * std::size_t{i}, i + 1 < sectors ? i + 1 : kEndOfChain);
    }
    const std::size_t directoryAt = bytes.size() - kSectors * 512 - (kStreams + 4) / 4 * 512;
    for (std::size_t i = 1; i <= kStreams; ++i) Put32(bytes, directoryAt + i * 128 + 116, first);
    EXPECT_FALSE(OpensWith(bytes));
}

TEST(CompoundCheck, RefusesAHeaderThatLies) {
    const std::string sound = RawCompoundBytes({Root(kNoEntry)});
    ASSERT_TRUE(OpensWith(sound));
    struct Row {
        const char* shows;
        std::size_t at;
        std::uint32_t value;
    };
    const Row rows[] = {
        {"another signature", 0, 0x04034B50},
        {"sectors of a gibibyte, mini sectors of 64 bytes", 30, 0x0006001E},
        {"mini sectors of a gibibyte", 30, 0x001E0009},
        {"more FAT sectors than the file has", 44, 0x7FFFFFFF},
        {"a FAT sector outside the file", 76, 0x00FFFFFF},
        {"a directory outside the file", 48, 0x00FFFFFF},
        {"no directory", 48, kEndOfChain},
        {"every stream in the mini stream", 56, 0xFFFFFFFF},
        {"more mini FAT sectors than the file has", 64, 0x7FFFFFFF},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        std::string bytes = sound;
        Put32(bytes, row.at, row.value);
        EXPECT_FALSE(OpensWith(bytes));
    }
}

TEST(CompoundCheck, SurvivesEveryTruncation) {
    const std::string bytes = CompoundBytes(
        {{"Small", "s"}, {"Large", std::string(9'000, 'l')}, {"D", "", {{"Inner", "inside"}}}});
    for (std::size_t size = 0; size < bytes.size(); size += size < 600 ? 1 : 61) {
        SCOPED_TRACE(size);
        EXPECT_LE(WalkBytes(bytes.substr(0, size)).bytes, 9'007u);
    }
}

// What comes of a flipped bit is anybody's guess; that the walk ends is what counts.
TEST(CompoundCheck, SurvivesFlippedBitsInHeaderFatAndDirectory) {
    const std::string bytes = CompoundBytes(
        {{"Small", "s"}, {"Large", std::string(5'000, 'l')}, {"D", "", {{"Inner", "inside"}}}});
    std::size_t opened = 0;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        if (bytes[at] == 'l') continue;
        std::string flipped = bytes;
        flipped[at] = static_cast<char>(flipped[at] ^ (at % 2 == 0 ? 0x01 : 0x80));
        opened += OpensWith(flipped) ? 1 : 0;
        WalkBytes(flipped);
    }
    EXPECT_GT(opened, 0u);
    EXPECT_LT(opened, bytes.size());
}

// A stream whose chain is cut short: what libgsf has to say of it.
std::string DamagedStream() {
    return RawCompoundBytes({Root(1), {u"S", 2, kNoEntry, kNoEntry, kNoEntry, 2, 5'000}}, 20);
}

TEST(Storage, FailsToReadADamagedStream) {
    const CompoundWalk walk = WalkBytes(DamagedStream());
    EXPECT_TRUE(walk.opened);
    EXPECT_EQ(walk.streams, 0u);
    EXPECT_EQ(walk.damaged, 1u);
}

TEST(Storage, ReadsNothingOfADamagedStreamAndKeepsItsPosition) {
    HGBL block = NewBlock(DamagedStream());
    ComPtr<IStorage> storage;
    ASSERT_EQ(_XStgOpenStorageOnHGBL2(&block, 1, storage.Out()), S_OK);
    ComPtr<IEnumSTATSTG> elements;
    ASSERT_EQ(storage->EnumElements(0, nullptr, 0, elements.Out()), S_OK);
    STATSTG stat{};
    ASSERT_EQ(elements->Next(1, &stat, nullptr), S_OK);
    ComPtr<IStream> stream;
    const HRESULT opened = storage->OpenStream(stat.pwcsName, nullptr, 0, 0, stream.Out());
    _XCoTaskMemFree(stat.pwcsName);
    ASSERT_EQ(opened, S_OK);

    std::vector<char> bytes(static_cast<std::size_t>(stat.cbSize));
    std::uint32_t read = 99;
    EXPECT_EQ(stream->Read(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &read), E_FAIL);
    EXPECT_EQ(read, 0u);
    std::uint64_t position = 99;
    EXPECT_EQ(stream->Seek(0, STREAM_SEEK_CUR, &position), S_OK);
    EXPECT_EQ(position, 0u);
}

TEST(Storage, KeepsTheLibraryQuiet) {
    const std::string bytes = DamagedStream();
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    WalkBytes(bytes);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

void Note(const gchar*, GLogLevelFlags, const gchar* message, gpointer heard) {
    static_cast<std::string*>(heard)->append(message);
}

TEST(Storage, LeavesTheHostsLogHandlersInPlace) {
    std::string heard;
    const guint handler = g_log_set_handler("libgsf:msole", G_LOG_LEVEL_WARNING, Note, &heard);
    WalkBytes(DamagedStream());
    EXPECT_EQ(heard, "");
    g_log("libgsf:msole", G_LOG_LEVEL_WARNING, "the host's own");
    g_log_remove_handler("libgsf:msole", handler);
    EXPECT_EQ(heard, "the host's own");
}

}  // namespace
}  // namespace vexpa_test
