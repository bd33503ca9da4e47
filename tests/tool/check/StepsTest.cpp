// When a finding is made: relationships are read for the package, and again for each part.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

#include "tests/tool/check/FindingRows.h"

namespace {

using namespace vexpa_test;
using namespace vexpa_tool;

TEST(Steps, OfAFindingAreThoseThatItsHelpNames) {
    std::set<std::pair<FindingId, Step>> made;
    for (const FindingRow& row : AllRows()) {
        SCOPED_TRACE(row.shows);
        for (const Finding& finding : CheckDeeply(row.bytes).findings) {
            const std::vector<Step> steps = StepsOf(finding.id);
            EXPECT_NE(std::find(steps.begin(), steps.end(), finding.step), steps.end())
                << IdText(finding.id) << " " << StepText(finding.step);
            made.insert({finding.id, finding.step});
        }
    }
    // Of these no row tells.
    for (const FindingId id : {FindingId::UnreadableFile, FindingId::NameOutsideLocale,
                               FindingId::UnknownReason, FindingId::TooManyEntries}) {
        made.insert({id, StepOf(id)});
    }
    for (const FindingKind& kind : kFindingTable) {
        for (const Step step : StepsOf(kind.id)) {
            EXPECT_TRUE(made.count({kind.id, step})) << IdText(kind.id) << " " << StepText(step);
        }
    }
}

TEST(Steps, FollowTheEntryThatHasTheFinding) {
    struct Row {
        const char* shows;
        std::string bytes;
        FindingId id;
        Step step;
    };
    const auto part = [](const std::string& relationship) {
        return Spoiled([&](SoundPackage& p) { p.partRelationships += relationship; });
    };
    const auto package = [](const std::string& relationship) {
        return Spoiled([&](SoundPackage& p) { p.relationships = relationship + p.relationships; });
    };
    const std::string type = OfficeType("theme");
    const Row rows[] = {
        {"a letter case in a part", part(Relation("a", type, "media/Image1.png")),
         FindingId::CaseVariant, Step::PartRelationships},
        {"a letter case in the package", package(Relation("a", type, "Word/document.xml")),
         FindingId::CaseVariant, Step::PackageRelationships},
        {"an Id twice in a part", part(Relation("rId1", type, "media/image1.png")),
         FindingId::RepeatedId, Step::PartRelationships},
        {"an Id twice in the package", package(Relation("rId1", type, "word/document.xml")),
         FindingId::RepeatedId, Step::PackageRelationships},
        {"a fragment in a part", part(Relation("a", type, "#a")), FindingId::OddTarget,
         Step::PartRelationships},
        {"a fragment in the package", package(Relation("a", type, "#a")), FindingId::OddTarget,
         Step::PackageRelationships},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(FindingOf(CheckBytes(row.bytes), row.id).step, row.step);
    }
}

// What stands in the package comes before what stands in a part, whatever the ids are.
TEST(Steps, AreTheOrderOfFindings) {
    const CheckReport report = CheckBytes(Spoiled([](SoundPackage& p) {
        p.relationships = Relation("rId1", OfficeType("theme"), "word/document.xml") + p.relationships;
        p.partRelationships += Relation("a", OfficeType("theme"), "media/Image1.png");
    }));
    EXPECT_EQ(report.findings.front().id, FindingId::RepeatedId);
    EXPECT_TRUE(std::is_sorted(report.findings.begin(), report.findings.end(),
                               [](const Finding& a, const Finding& b) { return a.step < b.step; }));
}

}  // namespace
