#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>

#include "runtime/zip/Extraction.h"
#include "tests/runtime/zip/ZipClient.h"
#include "tests/support/ScratchFile.h"

namespace {

using namespace vexpa_runtime::zip;
using namespace vexpa_test;

std::timespec FarFuture() {
    return {std::time_t{1} << 40, 0};
}

// An archive whose "entry" lies elsewhere than in the other one.
std::string Version(const std::string& content, const std::string& before) {
    ZipFile zip;
    zip.Add("before", before).stored = true;
    zip.Add("entry", content);
    return zip.Bytes();
}

class ZipExtraction : public testing::Test {
protected:
    std::optional<std::string> Finish(const ScratchFile& file, std::optional<Prospect> prospect) {
        if (!prospect) return std::nullopt;
        auto entry = Extract(cache_, file.Path().c_str(), "entry", *std::move(prospect));
        if (!entry) return std::nullopt;
        return std::string(entry->bytes.get(), entry->size);
    }

    std::optional<Prospect> Look(const ScratchFile& file, const char* request = "entry") {
        return LookUp(cache_, file.Path().c_str(), request);
    }

    // Room for one directory, and for no file whole.
    DirectoryCache cache_{4, 1, FarFuture};
};

TEST_F(ZipExtraction, OfAFileKeptWholeOpensNothing) {
    DirectoryCache cache(4, 1 << 20, FarFuture);
    const ScratchFile file(Version("content", ""));
    OpenDirectory(cache, file.Path().c_str());
    auto prospect = LookUp(cache, file.Path().c_str(), "entry");
    ASSERT_TRUE(prospect);
    file.Remove();
    const auto entry = Extract(cache, file.Path().c_str(), "entry", *std::move(prospect));
    ASSERT_TRUE(entry);
    EXPECT_EQ(std::string(entry->bytes.get(), entry->size), "content");
}

TEST_F(ZipExtraction, OfAFileKeptWholeLooksWhetherItHasChanged) {
    DirectoryCache cache(4, 1 << 20, FarFuture);
    const ScratchFile file(Version("old content", ""));
    OpenDirectory(cache, file.Path().c_str());
    file.Write(Version("new content, longer", "moved"));
    auto prospect = LookUp(cache, file.Path().c_str(), "entry");
    ASSERT_TRUE(prospect);
    const auto entry = Extract(cache, file.Path().c_str(), "entry", *std::move(prospect));
    ASSERT_TRUE(entry);
    EXPECT_EQ(std::string(entry->bytes.get(), entry->size), "new content, longer");
}

TEST_F(ZipExtraction, KnowsTheEntryOfAKeptFileBeforeOpeningIt) {
    const ScratchFile file(Version("content", ""));
    EXPECT_EQ(Look(file)->entry, nullptr);
    EXPECT_EQ(Finish(file, Look(file)), "content");
    EXPECT_NE(Look(file)->entry, nullptr);
    EXPECT_EQ(Finish(file, Look(file)), "content");
}

TEST_F(ZipExtraction, OfANameThatAKeptFileDoesNotHaveEndsBeforeOpeningIt) {
    const ScratchFile file(Version("content", ""));
    EXPECT_TRUE(Look(file, "missing"));
    OpenDirectory(cache_, file.Path().c_str());
    EXPECT_FALSE(Look(file, "missing"));
}

TEST_F(ZipExtraction, ReadsTheFileThatIsThereWhenItIsOpened) {
    const ScratchFile file(Version("old content", ""));
    OpenDirectory(cache_, file.Path().c_str());
    auto prospect = Look(file);
    ASSERT_NE(prospect->entry, nullptr);
    file.Write(Version("new content, longer", "moved"));
    EXPECT_EQ(Finish(file, std::move(prospect)), "new content, longer");
}

TEST_F(ZipExtraction, FailsWhenTheFileIsGoneWhenItIsOpened) {
    const ScratchFile file(Version("content", ""));
    auto prospect = Look(file);
    file.Remove();
    EXPECT_EQ(Finish(file, std::move(prospect)), std::nullopt);
}

TEST_F(ZipExtraction, FailsWhenTheFileIsNoArchiveWhenItIsOpened) {
    const ScratchFile file(Version("content", ""));
    OpenDirectory(cache_, file.Path().c_str());
    auto prospect = Look(file);
    file.Write("plain text");
    EXPECT_EQ(Finish(file, std::move(prospect)), std::nullopt);
}

TEST_F(ZipExtraction, FailsWhenTheEntryIsGoneWhenTheFileIsOpened) {
    const ScratchFile file(Version("content", ""));
    OpenDirectory(cache_, file.Path().c_str());
    auto prospect = Look(file);
    file.Write(ZipFile().Bytes());
    EXPECT_EQ(Finish(file, std::move(prospect)), std::nullopt);
}

TEST_F(ZipExtraction, OfADamagedEntryIsTriedOnceOnly) {
    ZipFile zip;
    zip.Add("damaged", "content").crc = 1;
    const ScratchFile file(zip.Bytes());
    auto prospect = Look(file, "damaged");
    ASSERT_TRUE(prospect);
    EXPECT_FALSE(Extract(cache_, file.Path().c_str(), "damaged", *std::move(prospect)));
    EXPECT_FALSE(Look(file, "damaged"));
}

TEST_F(ZipExtraction, OfADamagedEntryIsTriedAgainWhenTheFileHasChanged) {
    ZipFile zip;
    zip.Add("damaged", "content").crc = 1;
    const ScratchFile file(zip.Bytes());
    EXPECT_FALSE(Extract(cache_, file.Path().c_str(), "damaged", *Look(file, "damaged")));
    zip.entries.front().crc.reset();
    zip.comment = "mended";
    file.Write(zip.Bytes());
    auto prospect = Look(file, "damaged");
    ASSERT_TRUE(prospect);
    EXPECT_TRUE(Extract(cache_, file.Path().c_str(), "damaged", *std::move(prospect)));
}

// An archive of entries "0", "1" ... of a kilobyte each, that do not deflate.
std::string ManyEntries(std::size_t count, char content = 'a') {
    ZipFile zip;
    for (std::size_t i = 0; i < count; ++i) {
        zip.Add(std::to_string(i), std::string(1024, content)).stored = true;
    }
    return zip.Bytes();
}

// Entries of a file that is not kept whole, with or without opening it.
class ReadingAhead : public testing::Test {
protected:
    std::optional<char> Read(const ScratchFile& file, std::size_t entry) {
        return First(file.Path(), entry, LookUp(cache_, file.Path().c_str(), std::to_string(entry)));
    }

    // The path leads nowhere by the time that the file would be opened.
    std::optional<char> ReadFromMemory(const ScratchFile& file, std::size_t entry) {
        const std::string link = file.Path() + ".link";
        std::filesystem::create_symlink(file.Path(), link);
        auto prospect = LookUp(cache_, link.c_str(), std::to_string(entry));
        std::filesystem::remove(link);
        return First(link, entry, std::move(prospect));
    }

    DirectoryCache cache_{4, 1, FarFuture};

private:
    std::optional<char> First(const std::string& path, std::size_t entry,
                              std::optional<Prospect> prospect) {
        if (!prospect) return std::nullopt;
        const std::string name = std::to_string(entry);
        const auto bytes = Extract(cache_, path.c_str(), name, *std::move(prospect));
        if (!bytes || bytes->size == 0) return std::nullopt;
        return bytes->bytes.get()[0];
    }
};

TEST_F(ReadingAhead, OpensNothingForTheEntriesAroundTwoThatWereReadOneAfterTheOther) {
    const ScratchFile file(ManyEntries(300));
    Read(file, 100);
    EXPECT_EQ(ReadFromMemory(file, 101), std::nullopt);
    Read(file, 101);
    for (std::size_t entry : {102u, 300u - 1, 90u}) {
        EXPECT_EQ(ReadFromMemory(file, entry), 'a') << entry;
    }
}

TEST_F(ReadingAhead, ReadsNothingAroundEntriesThatLieFarApart) {
    const ScratchFile file(ManyEntries(1000));
    Read(file, 10);
    Read(file, 500);
    EXPECT_EQ(ReadFromMemory(file, 501), std::nullopt);
    Read(file, 10);
    EXPECT_EQ(ReadFromMemory(file, 11), std::nullopt);
}

TEST_F(ReadingAhead, OpensTheFileForAnEntryThatIsNotWhollyInMemory) {
    const ScratchFile file(ManyEntries(1000));
    Read(file, 500);
    Read(file, 501);
    std::size_t inMemory = 0;
    for (std::size_t entry = 400; entry < 800; ++entry) {
        if (ReadFromMemory(file, entry)) ++inMemory;
    }
    EXPECT_GT(inMemory, 200u);
    EXPECT_LT(inMemory, 256u);
    for (std::size_t entry = 0; entry < 1000; ++entry) EXPECT_EQ(Read(file, entry), 'a') << entry;
}

TEST_F(ReadingAhead, GivesNothingOfAFileThatHasChanged) {
    const ScratchFile file(ManyEntries(300, 'a'));
    Read(file, 0);
    Read(file, 1);
    file.Write(ManyEntries(300, 'b'));
    EXPECT_EQ(Read(file, 2), 'b');
    EXPECT_EQ(Read(file, 3), 'b');
    EXPECT_EQ(Read(file, 0), 'b');
}

TEST_F(ReadingAhead, KeepsWhatIsReadOfEachFileApart) {
    const ScratchFile a(ManyEntries(300, 'a')), b(ManyEntries(300, 'b'));
    for (std::size_t entry = 0; entry < 10; ++entry) {
        EXPECT_EQ(Read(a, entry), 'a');
        EXPECT_EQ(Read(a, entry + 1), 'a');
        EXPECT_EQ(Read(b, entry), 'b');
        EXPECT_EQ(Read(b, entry + 1), 'b');
    }
}

TEST_F(ReadingAhead, DoesWithoutForAnEntryLargerThanAPiece) {
    ZipFile zip;
    zip.Add("0", "small").stored = true;
    zip.Add("1", std::string(1 << 20, 'l')).stored = true;
    zip.Add("2", "small").stored = true;
    const ScratchFile file(zip.Bytes());
    EXPECT_EQ(Read(file, 0), 's');
    EXPECT_EQ(Read(file, 1), 'l');
    EXPECT_EQ(Read(file, 2), 's');
}

TEST_F(ReadingAhead, KeepsNothingOfAFileThatHasNotSettled) {
    constexpr auto kNoTime = [] { return std::timespec{0, 0}; };
    DirectoryCache unsettled(4, 1, kNoTime, kNoTime);
    const ScratchFile file(ManyEntries(300));
    for (const char* entry : {"0", "1"}) {
        auto prospect = LookUp(unsettled, file.Path().c_str(), entry);
        EXPECT_TRUE(Extract(unsettled, file.Path().c_str(), entry, *std::move(prospect)));
    }
    Read(file, 50);
    EXPECT_EQ(ReadFromMemory(file, 51), std::nullopt);
}

}  // namespace
