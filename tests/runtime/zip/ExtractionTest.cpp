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

}  // namespace
