// What the check says of real files.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "tests/tool/check/SoundPackage.h"
#include "tool/model/OpenPackage.h"

namespace {

using namespace vexpa_test;
using namespace vexpa_tool;
namespace fs = std::filesystem;

fs::path CorpusFolder() {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): there is one thread.
    const char* given = std::getenv("VEXPA_CORPUS");
    return given != nullptr ? fs::path(given) : fs::path(VEXPA_SOURCE_DIR) / "../shared/corpus";
}

std::vector<fs::path> FilesIn(const char* folder) {
    std::vector<fs::path> files;
    std::error_code missing;
    for (const auto& entry : fs::directory_iterator(CorpusFolder() / folder, missing)) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

TEST(CheckCorpus, AgreesWithTheLibraryAndAlwaysFindsTheReason) {
    if (FilesIn("good").empty()) GTEST_SKIP() << "no test documents in " << CorpusFolder();
    for (const char* folder : {"good", "damaged", "zip", "cfb"}) {
        for (const fs::path& file : FilesIn(folder)) {
            SCOPED_TRACE(file.filename());
            const bool opens = static_cast<bool>(FindPackage(file.string()));
            const CheckReport report = CheckPackage(file.string(), {});
            EXPECT_EQ(report.opens, opens);
            ASSERT_EQ(report.Stop() == nullptr, opens);
            if (opens) continue;
            EXPECT_NE(report.Stop()->id, FindingId::UnknownReason);
        }
    }
}

TEST(CheckCorpus, FindsNoErrorsInGoodFiles) {
    if (FilesIn("good").empty()) GTEST_SKIP() << "no test documents in " << CorpusFolder();
    CheckOptions options;
    options.isDeep = true;
    for (const fs::path& file : FilesIn("good")) {
        SCOPED_TRACE(file.filename());
        for (const Finding& finding : CheckPackage(file.string(), options).findings) {
            EXPECT_NE(finding.severity, Severity::Error) << IdText(finding.id) << " " << finding.cause;
        }
    }
}

}  // namespace
