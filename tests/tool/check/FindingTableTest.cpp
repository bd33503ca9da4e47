#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <nlohmann/json.hpp>
#include <set>

#include "tests/tool/RunTool.h"
#include "tool/check/FindingHelp.h"
#include "tool/check/FindingTable.h"
#include "tool/check/Selection.h"

namespace {

using namespace vexpa_test;
using namespace vexpa_tool;
using testing::HasSubstr;
using testing::StartsWith;

TEST(FindingTable, IsInTheOrderOfIds) {
    for (std::size_t i = 1; i < kFindingKinds; ++i) {
        EXPECT_LT(kFindingTable[i - 1].id, kFindingTable[i].id) << IdText(kFindingTable[i].id);
    }
}

TEST(FindingTable, ExplainsEachInSentences) {
    for (const FindingKind& kind : kFindingTable) {
        SCOPED_TRACE(IdText(kind.id));
        const std::string text = kind.text, title = kind.title, hint = kind.hint;
        EXPECT_TRUE(text.ends_with('.'));
        EXPECT_GT(text.size(), 80u);
        EXPECT_FALSE(title.empty() || title.ends_with('.'));
        EXPECT_FALSE(hint.empty() || hint.ends_with('.'));
        EXPECT_EQ(text.find("  "), std::string::npos);
        EXPECT_EQ(FindKind(IdText(kind.id)), &kind);
        EXPECT_EQ(&KindOf(kind.id), &kind);
    }
    EXPECT_EQ(FindKind("VX000"), nullptr);
}

TEST(FindingTable, StandsByStepsOfAHundred) {
    EXPECT_EQ(StepOf(FindingId::EmptyFile), Step::File);
    EXPECT_EQ(StepOf(FindingId::CaseVariant), Step::PackageRelationships);
    EXPECT_EQ(StepOf(FindingId::UnknownNames), Step::Vocabulary);
}

TEST(FindingHelp, OfAnIdIsAParagraph) {
    const std::string help = FindingHelp("VX305");
    EXPECT_THAT(help, StartsWith("VX305  the target exists under another letter case\n"));
    EXPECT_THAT(help, HasSubstr("Entry names are compared exactly."));
    EXPECT_THAT(help, HasSubstr("hint: "));
    for (const std::string& line : Lines(help)) EXPECT_LE(line.size(), 78u) << line;
    EXPECT_EQ(FindingHelp("vx305"), help);
}

TEST(FindingHelp, NamesTheSteps) {
    EXPECT_THAT(FindingHelp("VX301"), HasSubstr("\nerror, found at the step: package relationships\n"));
    EXPECT_THAT(FindingHelp("VX305"), HasSubstr("\nwarning, found at the step: package relationships "
                                                "or part relationships\n"));
}

// It is only found where it keeps the package from opening.
TEST(FindingHelp, CallsTheLastExternalRelationshipAnError) {
    EXPECT_THAT(FindingHelp("VX304"), HasSubstr("\nerror, "));
}

TEST(FindingHelp, AsJsonIsAListAlsoOfOne) {
    const auto help = nlohmann::json::parse(FindingHelpJson("VX305"));
    ASSERT_EQ(help["findings"].size(), 1u);
    EXPECT_EQ(help["findings"][0]["id"], "VX305");
    EXPECT_EQ(help["findings"][0]["severity"], "warning");
    EXPECT_EQ(help["findings"][0]["steps"],
              (nlohmann::json{"package relationships", "part relationships"}));
    EXPECT_EQ(nlohmann::json::parse(FindingHelpJson("VX"))["findings"].size(), kFindingKinds);
    EXPECT_EQ(FindingHelpJson("tree"), "");
}

TEST(FindingHelp, OfSeveralIsAList) {
    EXPECT_EQ(Lines(FindingHelp("findings")).size(), kFindingKinds);
    EXPECT_EQ(FindingHelp("VX"), FindingHelp("findings"));
    for (const std::string& line : Lines(FindingHelp("VX3xx"))) EXPECT_THAT(line, StartsWith("VX3"));
}

TEST(FindingHelp, OfAnythingElseIsEmpty) {
    for (const char* word : {"", "VX999", "VX3055", "tree", "305"}) EXPECT_EQ(FindingHelp(word), "");
}

TEST(Selection, TakesPatterns) {
    struct Row {
        const char* pattern;
        bool isKnown;
        bool matches305;
    };
    const Row rows[] = {
        {"VX305", true, true},    {"vx305", true, true},  {"VX3", true, true},
        {"VX30", true, true},     {"VX3xx", true, true},  {"VX30X", true, true},
        {"VX4xx", true, false},   {"VX301", true, false}, {"VX9", false, false},
        {"VX3x", false, false},   {"305", false, false},  {"", false, false},
        {"VX3055", false, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.pattern);
        EXPECT_EQ(FindingPattern(row.pattern).IsKnown(), row.isKnown);
        EXPECT_EQ(FindingPattern(row.pattern).Matches(FindingId::CaseVariant), row.matches305);
    }
}

TEST(Selection, IsWhatIsWantedLessWhatIsIgnored) {
    Selection selection;
    EXPECT_TRUE(selection.Takes(FindingId::CaseVariant));
    selection.only = {FindingPattern("VX3")};
    EXPECT_TRUE(selection.Takes(FindingId::CaseVariant));
    EXPECT_FALSE(selection.Takes(FindingId::DanglingTarget));
    selection.ignored = {FindingPattern("VX305")};
    EXPECT_FALSE(selection.Takes(FindingId::CaseVariant));
}

}  // namespace
