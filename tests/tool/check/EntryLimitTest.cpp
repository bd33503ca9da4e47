// What a check says of an archive of which it looks at the first entries only.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/tool/check/FindingRows.h"

namespace {

using namespace vexpa_test;
using namespace vexpa_tool;

// What is said of an entry may be less, but not something else.
bool Covers(const Finding& whole, const Finding& cut) {
    if (whole.id != cut.id) {
        // Which entry the rule misses is not known: then it has none.
        return whole.id == FindingId::NearMissOfType && cut.id == FindingId::IdleOverride &&
               whole.target == cut.target;
    }
    // One finding may stand for many entries, and counts those that were looked at.
    if (cut.itemCount != 0) return true;
    // That it is not there is true, and what stands there instead may not be seen.
    if (cut.id == FindingId::NoContentTypes || cut.id == FindingId::StrayRelationships)
        return whole.entry == cut.entry;
    return whole.entry == cut.entry && whole.cause.starts_with(cut.cause);
}

// All that is said with a limit has to be true without one, too.
void ExpectTruth(const std::string& bytes) {
    CheckOptions options;
    const CheckReport whole = CheckBytes(bytes, options);
    for (options.mostEntries = 0; options.mostEntries < 6; ++options.mostEntries) {
        SCOPED_TRACE(options.mostEntries);
        const CheckReport cut = CheckBytes(bytes, options);
        EXPECT_EQ(cut.opens, whole.opens);
        for (const Finding& finding : cut.findings) {
            if (finding.id == FindingId::TooManyEntries) continue;
            EXPECT_TRUE(std::any_of(whole.findings.begin(), whole.findings.end(),
                                    [&](const Finding& one) { return Covers(one, finding); }))
                << IdText(finding.id) << " " << finding.entry << " " << finding.cause;
        }
    }
}

TEST(EntryLimit, LeavesLinesOutAndInventsNone) {
    for (const FindingRow& row : AllRows()) {
        SCOPED_TRACE(row.shows);
        ExpectTruth(row.bytes);
    }
}

TEST(EntryLimit, OfAPackageWithEverythingInItsPlaceIsAllThatIsTold) {
    CheckOptions options;
    options.mostEntries = 1;
    EXPECT_EQ(Ids(CheckBytes(SoundPackage().Bytes(), options)), "VX608");
}

}  // namespace
