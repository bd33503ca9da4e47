#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "runtime/text/LocalText.h"
#include "tests/runtime/zip/ZipClient.h"
#include "tests/support/ScratchFile.h"

namespace {

using namespace vexpa_test;
namespace fs = std::filesystem;

fs::path Corpus() {
    const char* set = std::getenv("VEXPA_CORPUS");
    return set != nullptr ? fs::path(set)
                          : fs::path(VEXPA_SOURCE_DIR).parent_path() / "shared" / "corpus";
}

class ZipCorpus : public testing::Test {
protected:
    void SetUp() override {
        if (!fs::is_directory(Corpus())) GTEST_SKIP() << "no test documents in " << Corpus();
    }

    static std::string File(const char* name) { return (Corpus() / name).string(); }

    // How many of the listed entries can be extracted; nothing when there is no sound directory.
    static std::optional<std::size_t> Extractable(const std::string& path) {
        const auto names = ListZip(path);
        if (!names) return std::nullopt;
        std::size_t good = 0;
        for (const std::u16string& name : *names) {
            if (UnzipEntry(path, vexpa_runtime::ToLocal(name.c_str()))) ++good;
        }
        return good;
    }
};

TEST_F(ZipCorpus, GivesEveryEntryOfEverySoundDocument) {
    std::size_t documents = 0;
    for (const auto& document : fs::directory_iterator(Corpus() / "good")) {
        SCOPED_TRACE(document.path());
        const std::string path = document.path().string();
        const auto names = ListZip(path);
        ASSERT_TRUE(names);
        EXPECT_EQ(Extractable(path), names->size());
        EXPECT_TRUE(UnzipEntry(path, "\\[Content_Types\\].xml"));
        ++documents;
    }
    EXPECT_GT(documents, 100u);
}

TEST_F(ZipCorpus, SurvivesEveryOtherFile) {
    for (const char* folder : {"damaged", "zip", "cfb"}) {
        for (const auto& file : fs::directory_iterator(Corpus() / folder)) {
            SCOPED_TRACE(file.path());
            const bool isCompound = std::string_view(folder) == "cfb";
            const bool readable = Extractable(file.path().string()).has_value();
            EXPECT_FALSE(isCompound && readable);
        }
    }
}

TEST_F(ZipCorpus, ArchivesOfOddStructureGiveWhatTheyHold) {
    struct Row {
        const char* file;
        int listed;  // -1: no sound directory
        std::size_t good;
    };
    const Row rows[] = {
        {"zip/NullCharFileName_FromUnix.zip", 1, 1},
        {"zip/backslashes_FromWindows.zip", 1, 1},
        {"zip/bigzero-zip.zip", 1, 1},
        {"zip/broken.zip", 6, 2},
        {"zip/dataDescriptor.zip", 4, 4},
        {"zip/encrypt-aes128.zip", 2, 1},
        {"zip/encrypt.zip", 2, 1},
        {"zip/encrypted_entries_mixed.zip", 4, 2},
        {"zip/filename_duplicate.zip", 2, 2},
        {"zip/gap-replace.zip", 3, 2},
        {"zip/incons-archive-comment-longer.zip", 1, 1},
        {"zip/incons-cdoffset.zip", 1, 0},
        {"zip/incons-cdsize-large.zip", 1, 1},
        {"zip/incons-central-compression-method.zip", 1, 0},
        {"zip/incons-central-compsize-larger.zip", 1, 0},
        {"zip/incons-central-crc.zip", 1, 0},
        {"zip/incons-central-file-comment-longer.zip", -1, 0},
        {"zip/incons-central-size-larger.zip", 1, 0},
        {"zip/incons-ef-local-size.zip", 1, 0},
        {"zip/incons-eocd-magic-bad.zip", -1, 0},
        {"zip/incons-file-count-high.zip", 1, 1},
        {"zip/incons-local-filename.zip", 1, 1},
        {"zip/incons-local-magic-bad.zip", 1, 0},
        {"zip/incons-stored-size.zip", 1, 0},
        {"zip/invalidDeflate.zip", 1, 0},
        {"zip/junk-at-start.zip", 3, 3},
        {"zip/localFileOffsetOutOfBounds.zip", 1, 0},
        {"zip/lzma.zip", 1, 0},
        {"zip/multidisk.zip", 1, 0},
        {"zip/prepended.zip", 1, 1},
        {"zip/test-cp437.zip", 16, 16},
        {"zip/test-utf8.zip", 1, 1},
        {"zip/testZIP_corrupted_oom.zip", 1, 0},
        {"zip/testbzip2.zip", 1, 0},
        {"zip/testfile-long-comment.zip", 1, 1},
        {"zip/zip64.zip", 1, 1},
        {"zip/zip64ThenExtraData.zip", 1, 1},
        {"damaged/bug62513.pptx", 123, 123},
        {"damaged/invalid.xlsx", 0, 0},
        {"damaged/truncated62886.docx", -1, 0},
        {"cfb/SampleDoc.doc", -1, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.file);
        const auto names = ListZip(File(row.file));
        EXPECT_EQ(names ? static_cast<int>(names->size()) : -1, row.listed);
        EXPECT_EQ(Extractable(File(row.file)).value_or(0), row.good);
    }
}

}  // namespace
