#include <gtest/gtest.h>
#include <sys/stat.h>

#include "runtime/zip/ArchiveFile.h"
#include "tests/support/ScratchFile.h"

namespace {

using namespace vexpa_runtime::zip;
using vexpa_test::ScratchFile;

TEST(ArchiveFile, IsARegularFileOrNotOpened) {
    const ScratchFile file("bytes");
    const std::string fifo = file.Path() + ".fifo";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    for (const char* path : {fifo.c_str(), "/", "/dev/zero", "/no/such/file"}) {
        EXPECT_FALSE(IdentityOf(path)) << path;
        EXPECT_FALSE(ArchiveFile::Open(path)) << path;  // opening the FIFO must not wait for a writer
    }
}

TEST(ArchiveFile, ReadsWithinTheFileOnly) {
    const ScratchFile scratch("0123456789");
    const auto file = ArchiveFile::Open(scratch.Path().c_str());
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Size(), 10u);
    std::string bytes(3, ' ');
    EXPECT_TRUE(file->ReadAt(7, bytes.data(), 3));
    EXPECT_EQ(bytes, "789");
    EXPECT_TRUE(file->ReadAt(10, bytes.data(), 0));
    EXPECT_FALSE(file->ReadAt(8, bytes.data(), 3));
    EXPECT_FALSE(file->ReadAt(11, bytes.data(), 0));
    EXPECT_FALSE(file->ReadAt(~std::uint64_t{0}, bytes.data(), 3));
}

TEST(ArchiveFile, OfBytesInMemoryReadsThem) {
    const std::vector<std::uint8_t> bytes{1, 2, 3};
    FileIdentity identity{};
    identity.size = bytes.size();
    const ArchiveFile file(identity, bytes);
    std::uint8_t got[2] = {};
    EXPECT_TRUE(file.ReadAt(1, got, 2));
    EXPECT_EQ(got[1], 3);
    EXPECT_FALSE(file.ReadAt(2, got, 2));
    EXPECT_EQ(file.View(1, 2), bytes.data() + 1);
    EXPECT_EQ(file.View(2, 2), nullptr);
    EXPECT_EQ(file.View(~std::uint64_t{0}, 2), nullptr);
    EXPECT_TRUE(file.IsUnchanged());
}

TEST(ArchiveFile, OfAPieceInMemoryReadsWithinThePieceOnly) {
    const std::vector<std::uint8_t> bytes{1, 2, 3};
    FileIdentity identity{};
    identity.size = 10;
    const ArchiveFile file(identity, bytes, 5);
    EXPECT_EQ(file.View(6, 2), bytes.data() + 1);
    EXPECT_EQ(file.View(4, 2), nullptr);
    EXPECT_EQ(file.View(6, 3), nullptr);
    std::uint8_t got[2] = {};
    EXPECT_TRUE(file.ReadAt(6, got, 2));
    EXPECT_EQ(got[1], 3);
    EXPECT_FALSE(file.ReadAt(7, got, 2));
}

TEST(ArchiveFile, ThatIsOpenReadsTheRestOfItsBytesFromTheFile) {
    const ScratchFile scratch("0123456789");
    auto file = ArchiveFile::Open(scratch.Path().c_str());
    const std::vector<std::uint8_t> held{'a', 'b'};
    file->HoldInMemory(held, 3);
    std::string bytes(2, ' ');
    EXPECT_TRUE(file->ReadAt(3, bytes.data(), 2));
    EXPECT_EQ(bytes, "ab");
    EXPECT_TRUE(file->ReadAt(4, bytes.data(), 2));
    EXPECT_EQ(bytes, "45");
}

TEST(ArchiveFile, ThatIsOpenHasNoViewOfItsBytes) {
    const ScratchFile scratch("bytes");
    EXPECT_EQ(ArchiveFile::Open(scratch.Path().c_str())->View(0, 5), nullptr);
}

TEST(ArchiveFile, HasAnotherIdentityOnceItIsReplaced) {
    const ScratchFile scratch("bytes");
    const auto before = IdentityOf(scratch.Path().c_str());
    EXPECT_EQ(ArchiveFile::Open(scratch.Path().c_str())->Identity(), before);
    scratch.Write("other bytes");
    EXPECT_NE(IdentityOf(scratch.Path().c_str()), before);
}

}  // namespace
