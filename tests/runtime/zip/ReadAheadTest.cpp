#include <gtest/gtest.h>

#include <string>

#include "runtime/zip/ReadAhead.h"
#include "tests/support/ScratchFile.h"

namespace {

using namespace vexpa_runtime::zip;
using vexpa_test::ScratchFile;

constexpr std::size_t kFileSize = 3 * ReadAhead::kPiece;
constexpr std::uint64_t kFar = ReadAhead::kPiece;

Entry EntryAt(std::uint64_t position, std::uint64_t size = 100) {
    Entry entry{};
    entry.headerPosition = position;
    entry.compressedSize = entry.size = size;
    return entry;
}

class ReadAheadOfAFile : public testing::Test {
protected:
    // As one entry after the other is read of the file, which stays as it is.
    bool Read(const Entry& entry) {
        ArchiveFile file = Open();
        const bool isNew = ahead_.Prepare(file, entry);
        if (isNew) ahead_.Keep();
        return isNew;
    }
    ArchiveFile Open() const { return std::move(*ArchiveFile::Open(scratch_.Path().c_str())); }
    bool Holds(std::uint64_t position, std::size_t size = 100) const {
        return ahead_.Find(Open().Identity()).View(position, size) != nullptr;
    }

    const ScratchFile scratch_{std::string(kFileSize, 'x')};
    ReadAhead ahead_;
};

TEST_F(ReadAheadOfAFile, ReadsNothingAroundTheFirstEntry) {
    EXPECT_FALSE(Read(EntryAt(0)));
    EXPECT_FALSE(Holds(0));
}

TEST_F(ReadAheadOfAFile, HoldsWhatIsAroundAnEntryNearTheLastOne) {
    Read(EntryAt(kFar));
    EXPECT_TRUE(Read(EntryAt(kFar + 1'000)));
    EXPECT_TRUE(Holds(kFar));
    EXPECT_TRUE(Holds(kFar + 100'000));
    EXPECT_FALSE(Holds(0));
    EXPECT_FALSE(Holds(2 * kFar));
}

TEST_F(ReadAheadOfAFile, ReadsNothingAroundAnEntryFarFromTheLastOne) {
    Read(EntryAt(0));
    EXPECT_FALSE(Read(EntryAt(kFar)));
    EXPECT_TRUE(Read(EntryAt(1'000 + kFar)));
    EXPECT_FALSE(Read(EntryAt(0))) << "backwards";
}

TEST_F(ReadAheadOfAFile, ReadsNoPieceForAnEntryThatDoesNotFitIntoOne) {
    Read(EntryAt(0));
    EXPECT_FALSE(Read(EntryAt(1'000, ReadAhead::kPiece)));
}

TEST_F(ReadAheadOfAFile, DoesNotReadWhatItHolds) {
    Read(EntryAt(0));
    ASSERT_TRUE(Read(EntryAt(1'000)));
    EXPECT_FALSE(Read(EntryAt(2'000)));
    EXPECT_TRUE(Holds(2'000));
}

TEST_F(ReadAheadOfAFile, IsLeftAloneByAnEntryThatCannotBeRead) {
    Read(EntryAt(0));
    ASSERT_TRUE(Read(EntryAt(1'000)));
    Entry encrypted = EntryAt(2 * kFar);
    encrypted.encrypted = true;
    EXPECT_FALSE(Read(encrypted));
    EXPECT_FALSE(Read(EntryAt(~std::uint64_t{0})));
    EXPECT_TRUE(Holds(1'000));
}

// Only when the file has not changed since it is known what the bytes are of.
TEST_F(ReadAheadOfAFile, FindsNothingThatIsNotKept) {
    Read(EntryAt(0));
    ArchiveFile file = Open();
    ASSERT_TRUE(ahead_.Prepare(file, EntryAt(1'000)));
    EXPECT_NE(file.View(1'000, 100), nullptr);
    EXPECT_FALSE(Holds(1'000));
    Entry encrypted = EntryAt(0);
    encrypted.encrypted = true;
    EXPECT_FALSE(Read(encrypted));
    EXPECT_FALSE(Holds(1'000));
}

TEST_F(ReadAheadOfAFile, FindsNothingOfAnotherFile) {
    Read(EntryAt(0));
    ASSERT_TRUE(Read(EntryAt(1'000)));
    const ScratchFile other(std::string(kFileSize, 'y'));
    EXPECT_EQ(ahead_.Find(*IdentityOf(other.Path().c_str())).View(1'000, 100), nullptr);
}

}  // namespace
