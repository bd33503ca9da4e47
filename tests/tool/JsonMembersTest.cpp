// What the JSON of every command begins with.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using Json = nlohmann::ordered_json;
using testing::ElementsAre;

std::vector<std::string> FirstKeys(const std::string& text, std::size_t count) {
    std::vector<std::string> keys;
    const Json object = Json::parse(text);
    for (const auto& item : object.items()) {
        if (keys.size() < count) keys.push_back(item.key());
    }
    return keys;
}

class JsonMembers : public testing::Test {
protected:
    JsonMembers() { path_ = file_.Write().Path(); }

    PackageFile file_ = MinimalPackage();
    std::string path_;
    ScratchFile text_{"plain text"};
};

TEST_F(JsonMembers, OfWhatIsSaidOfAFileBeginWithTheFile) {
    for (const std::string& path : {path_, text_.Path()}) {
        const std::vector<std::vector<std::string>> commands = {
            {"check", path},
            {"dump", path},
            {"graph", path},
            {"info", path},
            {"ls", path},
            {"parts", path},
            {"rels", path},
            {"tree", path},
            {"types", path},
            {"diff", path, path_},
            {"storage", path, "main"},
        };
        for (std::vector<std::string> command : commands) {
            SCOPED_TRACE(command.front());
            command.emplace_back("--json");
            EXPECT_THAT(FirstKeys(RunTool(command).out, 4),
                        ElementsAre("package", "opened", "status", "error"));
        }
    }
}

TEST_F(JsonMembers, OfTokensAreThoseOfALine) {
    const auto line = [](const std::vector<std::string>& arguments) {
        return Lines(RunTool(arguments).out).at(0);
    };
    EXPECT_THAT(FirstKeys(line({"tokens", "--json", path_, "main"}), 9),
                ElementsAre("depth", "uri", "name", "token", "attributes"));
    EXPECT_THAT(FirstKeys(line({"tokens", "--json", "w:val"}), 9), ElementsAre("uri", "name", "token"));
    EXPECT_THAT(FirstKeys(line({"tokens", "--json", "--types"}), 9), ElementsAre("id", "name", "uri"));
    EXPECT_THAT(FirstKeys(line({"tokens", "--json", "--namespaces"}), 9),
                ElementsAre("prefixes", "ids", "uri", "names"));
}

TEST_F(JsonMembers, OfTheToolItselfAreItsOwn) {
    EXPECT_THAT(FirstKeys(RunTool({"help", "VX", "--json"}).out, 9), ElementsAre("findings"));
    EXPECT_THAT(FirstKeys(RunTool({"--version", "--json"}).out, 9), ElementsAre("vexpa"));
}

}  // namespace
