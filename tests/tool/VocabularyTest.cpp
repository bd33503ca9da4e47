// Which commands take the time to fill the vocabulary.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/opc/PackageFile.h"
#include "tests/support/Sanitizers.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using testing::HasSubstr;
using testing::Not;

// Sanitizers have to be loaded before anything else.
#if !VEXPA_SANITIZER_ALLOCATES

class VocabularyOfCommands : public testing::Test {
protected:
    VocabularyOfCommands() { path_ = file_.Write().Path(); }

    static ToolRun Run(const std::vector<std::string>& arguments) {
        ToolSetting setting;
        setting.environment.emplace_back("LD_PRELOAD=" VEXPA_WITNESS);
        return RunTool(arguments, setting);
    }

    PackageFile file_ = MinimalPackage();
    std::string path_;
};

TEST_F(VocabularyOfCommands, IsFilledWhereNamesAreLookedUp) {
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"tokens", path_, "main"}, {"tokens", "w:val"}, {"check", "--deep", path_}}) {
        SCOPED_TRACE(arguments.front());
        EXPECT_THAT(Run(arguments).err, HasSubstr("the vocabulary is filled\n"));
    }
}

// Starting then takes milliseconds less.
TEST_F(VocabularyOfCommands, IsLeftEmptyByAllOthers) {
    const std::vector<std::vector<std::string>> commands = {
        {"--help"},
        {"--version"},
        {"cat", path_, "main"},
        {"cat", "--pretty", path_, "main"},
        {"check", path_},
        {"completion", "bash"},
        {"diff", path_, path_},
        {"dump", path_},
        {"graph", path_},
        {"graph", "--mermaid", path_},
        {"help", "VX305"},
        {"info", path_},
        {"ls", path_},
        {"parts", path_},
        {"rels", path_},
        {"storage", path_, "main"},
        {"tokens", "--types"},
        {"tree", path_},
        {"types", path_},
    };
    for (const std::vector<std::string>& arguments : commands) {
        SCOPED_TRACE(arguments.front());
        const ToolRun run = Run(arguments);
        EXPECT_GE(run.status, 0);
        EXPECT_THAT(run.err, Not(HasSubstr("vocabulary")));
    }
}

#endif

}  // namespace
