#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/runtime/com/CompoundWalk.h"
#include "tests/support/ScratchFile.h"

namespace vexpa_test {
namespace {

std::filesystem::path CorpusFolder(const char* name = "cfb") {
    const char* named = std::getenv("VEXPA_CORPUS");
    const std::filesystem::path corpus =
        named != nullptr ? named : std::filesystem::path(VEXPA_SOURCE_DIR) / "../shared/corpus";
    return corpus / name;
}

std::vector<std::filesystem::path> CorpusFiles(const char* name = "cfb") {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(CorpusFolder(name))) {
        if (entry.is_regular_file()) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool IsFuzzerOutput(const std::filesystem::path& file) {
    return file.filename().string().find("clusterfuzz") != std::string::npos;
}

TEST(CompoundCorpus, OpensEveryDocumentAndReadsEveryStream) {
    if (!std::filesystem::is_directory(CorpusFolder())) GTEST_SKIP() << "no corpus: " << CorpusFolder();
    for (const std::filesystem::path& file : CorpusFiles()) {
        if (IsFuzzerOutput(file)) continue;
        SCOPED_TRACE(file);
        const CompoundWalk walk = WalkBytes(ReadFile(file.string()));
        EXPECT_TRUE(walk.opened);
        EXPECT_GT(walk.streams, 0u);
        EXPECT_EQ(walk.damaged, 0u);
    }
}

TEST(CompoundCorpus, SurvivesFuzzerOutputAndKeepsQuiet) {
    if (!std::filesystem::is_directory(CorpusFolder())) GTEST_SKIP() << "no corpus: " << CorpusFolder();
    for (const std::filesystem::path& file : CorpusFiles()) {
        if (!IsFuzzerOutput(file)) continue;
        SCOPED_TRACE(file);
        const std::string bytes = ReadFile(file.string());
        testing::internal::CaptureStderr();
        const CompoundWalk walk = WalkBytes(bytes);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        EXPECT_LE(walk.bytes, bytes.size());
    }
}

TEST(CompoundCorpus, SurvivesTruncations) {
    if (!std::filesystem::is_directory(CorpusFolder())) GTEST_SKIP() << "no corpus: " << CorpusFolder();
    for (const std::filesystem::path& file : CorpusFiles()) {
        if (IsFuzzerOutput(file)) continue;
        SCOPED_TRACE(file);
        const std::string bytes = ReadFile(file.string());
        const std::size_t whole = bytes.size();
        for (std::size_t tenth = 1; tenth < 10; ++tenth) {
            const std::string cut = bytes.substr(0, whole * tenth / 10);
            const CompoundWalk walk = WalkBytes(cut);
            EXPECT_LE(walk.bytes, whole);
        }
    }
}

// Encrypted documents are compound files; the rest of the damaged ones are not.
TEST(CompoundCorpus, TellsCompoundFilesFromOtherDamagedDocuments) {
    if (!std::filesystem::is_directory(CorpusFolder("damaged"))) {
        GTEST_SKIP() << "no corpus: " << CorpusFolder("damaged");
    }
    for (const std::filesystem::path& file : CorpusFiles("damaged")) {
        SCOPED_TRACE(file);
        const std::string bytes = ReadFile(file.string());
        const CompoundWalk walk = WalkBytes(bytes);
        EXPECT_EQ(walk.opened, bytes.starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"));
        EXPECT_EQ(walk.damaged, 0u);
    }
}

}  // namespace
}  // namespace vexpa_test
