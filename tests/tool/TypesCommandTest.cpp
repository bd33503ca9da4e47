#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using nlohmann::json;
using testing::ElementsAre;

PackageFile TypedPackage() {
    PackageFile file = MinimalPackage();
    file.Default("png", "image/png");
    file.Default("png", "image/other");
    file.Default("JPG", "image/jpeg");
    file.Override("/word/document.xml", "main");
    file.Override("word/absent.xml", "absent");
    file.Entry("a.png", "");
    file.Entry("a.jpg", "");
    file.Entry("folder/", "");
    return file;
}

TEST(TypesCommand, ShowsTheRulesAndWhichOfThemEachPartFollows) {
    PackageFile file = TypedPackage();
    const ToolRun run = RunTool({"types", file.Write().Path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(
        Lines(run.out),
        ElementsAre("Rule      For                    Parts  Content type",
                    "Default   xml                        0  application/xml",
                    "Default   png                        1  image/png",
                    "Default   png                 repeated  image/other",
                    "Default   JPG                        0  image/jpeg",
                    "Override  /word/document.xml         1  main",
                    "Override  word/absent.xml            0  absent", "",
                    "Part               By           Content type",
                    "word/document.xml  Override     main", "a.png              Default png  image/png",
                    "a.jpg              none         \"\"", "_rels/.rels        none         \"\""));
}

TEST(TypesCommand, AsJsonNamesTheRuleByItsPlace) {
    PackageFile file = TypedPackage();
    const json types = json::parse(RunTool({"types", "--json", file.Write().Path()}).out);
    EXPECT_EQ(types["rules"][1], (json{{"kind", "default"},
                                       {"key", "png"},
                                       {"content_type", "image/png"},
                                       {"repeated", false},
                                       {"parts", 1}}));
    EXPECT_EQ(types["rules"][2]["repeated"], true);
    EXPECT_EQ(types["parts"][0],
              (json{{"name", "word/document.xml"}, {"content_type", "main"}, {"rule", 4}}));
    EXPECT_TRUE(types["parts"][2]["rule"].is_null());
}

// The rule is the tool's own conclusion, the type the library's answer: they have to agree.
TEST(TypesCommand, FollowsTheLibraryInEveryOddity) {
    PackageFile file = MinimalPackage();
    file.Default("noext", "by the whole name");
    file.Default("", "by nothing");
    file.Default("xml", "again");
    file.Override("a.xml", "without a slash");
    file.Override("\\b.xml", "with the other slash");
    file.Override("//c.xml", "with two");
    file.Override("/D.xml", "in capitals");
    file.Override("/e.xml", "");
    for (const char* name : {"noext", "dot.", "a.xml", "b.xml", "c.xml", "d.xml", "e.xml", "x.y.xml"}) {
        file.Entry(name, "");
    }
    const json types = json::parse(RunTool({"types", "--json", file.Write().Path()}).out);
    ASSERT_EQ(types["parts"].size(), 10u);
    for (const json& part : types["parts"]) {
        SCOPED_TRACE(part.dump());
        const json& rule = part["rule"];
        EXPECT_EQ(part["content_type"],
                  rule.is_null() ? json("") : types["rules"][rule.get<std::size_t>()]["content_type"]);
    }
}

}  // namespace
