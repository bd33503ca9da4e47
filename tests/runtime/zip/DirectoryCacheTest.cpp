#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <atomic>

#include "runtime/zip/DirectoryCache.h"
#include "runtime/zip/Extraction.h"
#include "tests/runtime/zip/ZipClient.h"
#include "tests/support/ScratchFile.h"

namespace {

using namespace vexpa_runtime::zip;
using namespace vexpa_test;

constexpr std::size_t kRoom = 1 << 20;

// A clock that is this far ahead of the true one, so that no test has to wait.
std::atomic<long> secondsAhead = 0;

std::timespec TestClock() {
    std::timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    now.tv_sec += secondsAhead;
    return now;
}

// Moves only when a test says so.
std::atomic<long> steadySeconds = 0;

std::timespec SteadyClock() {
    return {steadySeconds, 0};
}

// An archive of which the directory takes more than the room.
std::string TooLarge() {
    ZipFile zip;
    for (int i = 0; i < 20'000; ++i) zip.Add("entry" + std::to_string(i), "").stored = true;
    return zip.Bytes();
}

class ZipDirectoryCache : public testing::Test {
protected:
    ZipDirectoryCache() { secondsAhead = 3; }

    std::shared_ptr<const Directory> Open(const ScratchFile& file) {
        return OpenDirectory(cache_, file.Path().c_str());
    }

    bool Keeps(const ScratchFile& file) {
        return cache_.Find(*IdentityOf(file.Path().c_str())) != nullptr;
    }

    DirectoryCache cache_{2, kRoom, TestClock, SteadyClock};
};

TEST_F(ZipDirectoryCache, ReadsAFileOnce) {
    const ScratchFile file(SmallZip().Bytes());
    const auto first = Open(file);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(Open(file), first);
}

TEST_F(ZipDirectoryCache, ReadsAFileAgainThatChangedAMomentAgo) {
    secondsAhead = -60;  // however slowly the test runs
    const ScratchFile file(SmallZip().Bytes());
    const auto first = Open(file);
    EXPECT_NE(Open(file), first);
    EXPECT_FALSE(Keeps(file));
    secondsAhead = 3;
    const auto settled = Open(file);
    EXPECT_EQ(Open(file), settled);
}

// As from a server whose clock is fast.
TEST_F(ZipDirectoryCache, KeepsAFileThatChangedInTheFutureOnceItHasSeenItForATick) {
    secondsAhead = -3'600;
    const ScratchFile file(SmallZip().Bytes());
    const auto first = Open(file);
    EXPECT_NE(Open(file), first);
    steadySeconds += 3;
    const auto settled = Open(file);
    EXPECT_NE(settled, first);
    EXPECT_EQ(Open(file), settled);
}

TEST_F(ZipDirectoryCache, KeepsAFileThatIsDatedInTheFuture) {
    const ScratchFile file(SmallZip().Bytes());
    const std::timespec tomorrow{TestClock().tv_sec + 86'400, 0};
    const std::timespec times[] = {tomorrow, tomorrow};
    ASSERT_EQ(utimensat(AT_FDCWD, file.Path().c_str(), times, 0), 0);
    const auto first = Open(file);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(Open(file), first) << "its change time tells that it has settled";
}

TEST_F(ZipDirectoryCache, DoesNotKeepAFileThatWasJustDatedIntoTheFuture) {
    secondsAhead = -60;
    const ScratchFile file(SmallZip().Bytes());
    const std::timespec tomorrow{TestClock().tv_sec + 86'400, 0};
    const std::timespec times[] = {tomorrow, tomorrow};
    ASSERT_EQ(utimensat(AT_FDCWD, file.Path().c_str(), times, 0), 0);
    EXPECT_NE(Open(file), nullptr);
    EXPECT_FALSE(Keeps(file));
}

TEST_F(ZipDirectoryCache, ReadsARewrittenFileAfresh) {
    ZipFile zip;
    zip.Add("old", "1");
    const ScratchFile file(zip.Bytes());
    const auto old = Open(file);
    zip.entries[0].name = "new";
    file.Write(zip.Bytes());
    const auto fresh = Open(file);
    ASSERT_NE(fresh, nullptr);
    EXPECT_EQ(fresh->Find("old"), nullptr);
    EXPECT_NE(fresh->Find("new"), nullptr);
    EXPECT_NE(old->Find("old"), nullptr);  // whoever holds the old one can go on using it
}

TEST_F(ZipDirectoryCache, ForgetsTheFileUsedLongestAgo) {
    const ScratchFile a(SmallZip().Bytes()), b(SmallZip().Bytes()), c(SmallZip().Bytes());
    Open(a);
    Open(b);
    Open(a);
    Open(c);
    EXPECT_TRUE(Keeps(a));
    EXPECT_FALSE(Keeps(b));
    EXPECT_TRUE(Keeps(c));
}

TEST_F(ZipDirectoryCache, StaysWithinItsBytes) {
    ZipFile large;
    for (int i = 0; i < 2'000; ++i) large.Add("entry" + std::to_string(i), "").stored = true;
    const ScratchFile a(large.Bytes()), b(large.Bytes());
    const auto first = Open(a);
    ASSERT_GT(first->MemoryUse(), kRoom / 3);
    ASSERT_LT(first->MemoryUse(), kRoom);
    EXPECT_TRUE(Keeps(a));

    for (int i = 2'000; i < 3'000; ++i) large.Add("entry" + std::to_string(i), "").stored = true;
    b.Write(large.Bytes());
    EXPECT_EQ(Open(b)->Count(), 3'000u);
    EXPECT_TRUE(Keeps(b));
    EXPECT_FALSE(Keeps(a));
}

// One of a document that is in use together with others would be read anew for each of its entries.
TEST_F(ZipDirectoryCache, KeepsOneThatIsTooLargeBesidesTheOthers) {
    const ScratchFile file(TooLarge()), small(SmallZip().Bytes());
    Open(small);
    const auto directory = Open(file);
    ASSERT_GT(directory->MemoryUse(), kRoom);
    for (int i = 0; i < 1'000; ++i) {
        ASSERT_EQ(Open(file), directory);
        ASSERT_TRUE(Keeps(small));
    }
}

TEST_F(ZipDirectoryCache, KeepsTheLastOfThoseThatAreTooLarge) {
    const ScratchFile a(TooLarge()), b(TooLarge());
    Open(a);
    Open(b);
    EXPECT_FALSE(Keeps(a));
    EXPECT_TRUE(Keeps(b));
}

TEST_F(ZipDirectoryCache, KeepsOneStateOfAFileThatIsTooLarge) {
    const ScratchFile file(TooLarge());
    const FileIdentity before = *IdentityOf(file.Path().c_str());
    Open(file);
    file.Write(SmallZip().Bytes());
    Open(file);
    EXPECT_EQ(cache_.Find(before), nullptr);
    EXPECT_TRUE(Keeps(file));
}

// Also for files that are not kept themselves.
TEST_F(ZipDirectoryCache, ForgetsOneThatIsTooLargeWhenOnlyOthersAreAskedFor) {
    const ScratchFile file(TooLarge()), other("plain text");
    const auto directory = Open(file);
    for (int i = 1; i < DirectoryCache::kPatience; ++i) Open(other);
    EXPECT_EQ(Open(file), directory);
    for (int i = 0; i < DirectoryCache::kPatience; ++i) Open(other);
    EXPECT_EQ(directory.use_count(), 1);
}

TEST_F(ZipDirectoryCache, DoesNotKeepWhatItReadFromAFileThatChangedMeanwhile) {
    const ScratchFile scratch(SmallZip().Bytes());
    const auto file = ArchiveFile::Open(scratch.Path().c_str());
    ASSERT_TRUE(file);
    scratch.Write(SmallZip().Bytes() + "suffix");
    cache_.Read(*file);
    EXPECT_EQ(cache_.Find(file->Identity()), nullptr);
}

TEST_F(ZipDirectoryCache, KeepsOneStateOfAFile) {
    const ScratchFile file(SmallZip().Bytes());
    const FileIdentity before = *IdentityOf(file.Path().c_str());
    Open(file);
    file.Write(SmallZip().Bytes() + "suffix");
    Open(file);
    EXPECT_EQ(cache_.Find(before), nullptr);
    EXPECT_TRUE(Keeps(file));
}

}  // namespace
