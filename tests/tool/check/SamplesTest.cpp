// What the tool says of the samples, word for word. To write the files anew after a change that is
// meant: VEXPA_WRITE_GOLDEN=1, and read the difference.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "tests/support/ScratchFile.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;

const std::string kFolder = VEXPA_SOURCE_DIR "/tests/tool/check/golden/";

void ExpectGolden(const std::string& name, const std::string& text) {
    const std::string path = kFolder + name;
    if (std::getenv("VEXPA_WRITE_GOLDEN") != nullptr) std::ofstream(path) << text;
    EXPECT_EQ(ReadFile(path), text) << path;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

std::string OutputOf(const std::vector<std::string>& arguments) {
    const ToolRun run = RunTool(arguments);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
    return Replaced(run.out, VEXPA_SOURCE_DIR "/", "");
}

TEST(Samples, AreCheckedAndToldOfAsBefore) {
    for (const std::string sample : {"report.docx", "talk.pptx", "ledger.xlsx", "tides.xlsx"}) {
        const std::string path = VEXPA_SOURCE_DIR "/samples/" + sample;
        ExpectGolden(sample + ".check.txt", OutputOf({"check", "--deep", path}));
        ExpectGolden(sample + ".check.json", OutputOf({"check", "--deep", "--json", path}));
        ExpectGolden(sample + ".info.txt", OutputOf({"info", path}));
        ExpectGolden(sample + ".info.json", OutputOf({"info", "--json", path}));
    }
}

}  // namespace
