#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <vector>

#include "tests/opc/PackageFile.h"
#include "tests/opc/PackageWalk.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

namespace fs = std::filesystem;

fs::path CorpusFolder() {
    const char* given = std::getenv("VEXPA_CORPUS");
    return given != nullptr ? fs::path(given)
                            : fs::path(VEXPA_SOURCE_DIR).parent_path() / "shared" / "corpus";
}

std::vector<fs::path> FilesOf(const std::string& folder) {
    std::vector<fs::path> files;
    const fs::path path = CorpusFolder() / folder;
    if (!fs::exists(path)) return files;
    for (const auto& entry : fs::directory_iterator(path)) files.push_back(entry.path());
    return files;
}

TEST(Corpus, EverySoundPackageOpensAndIsWalkedWhole) {
    const std::vector<fs::path> files = FilesOf("good");
    if (files.empty()) GTEST_SKIP() << "no corpus at " << CorpusFolder();
    for (const fs::path& file : files) {
        SCOPED_TRACE(file.filename());
        const Handle<opc::Package> package = opc::Package::Open(file.u16string().c_str());
        ASSERT_TRUE(package);
        EXPECT_GT(Walk(*package), 0u);
    }
}

TEST(Corpus, NoDamagedOrForeignFileBreaksTheReader) {
    for (const char* folder : {"damaged", "zip", "cfb"}) {
        const std::vector<fs::path> files = FilesOf(folder);
        if (files.empty()) GTEST_SKIP() << "no corpus at " << CorpusFolder();
        for (const fs::path& file : files) {
            SCOPED_TRACE(file.filename());
            const Handle<opc::Package> package = opc::Package::Open(file.u16string().c_str());
            if (package) Walk(*package);
        }
    }
}

}  // namespace
