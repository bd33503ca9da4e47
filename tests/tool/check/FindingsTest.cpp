#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "tests/runtime/com/CompoundBytes.h"
#include "tests/tool/check/FindingRows.h"
#include "tool/check/Groups.h"
#include "tool/model/OpenPackage.h"

namespace vexpa_test {

std::string Spoiled(const std::function<void(SoundPackage&)>& spoil) {
    SoundPackage package;
    spoil(package);
    return package.Bytes();
}

std::string Dangling() {
    return Spoiled([](SoundPackage& p) {
        p.partRelationships += Relation("rId2", OfficeType("theme"), "gone.xml");
        p.partRelationships += Relation("rId3", "urn:x", "media/image1.png");
    });
}

std::string Refused() {
    return Spoiled([](SoundPackage& p) {
        p.relationships += Relation("rId2", OfficeType("theme"), "Word/Document.xml");
    });
}

FindingRows AllRows() {
    FindingRows all;
    for (const FindingRows& rows : {FileRows(), ArchiveRows(), EntryNameRows(), ContentTypeRows(),
                                    PackageRows(), RelationshipRows(), PartDataRows(), ShapeRows()}) {
        all.insert(all.end(), rows.begin(), rows.end());
    }
    return all;
}

namespace {

using namespace vexpa_tool;

// What a deep check finds, no more and no less.
void ExpectFindings(const FindingRows& rows) {
    for (const FindingRow& row : rows) {
        SCOPED_TRACE(row.shows);
        const ScratchFile file(row.bytes);
        const bool opens = static_cast<bool>(FindPackage(file.Path()));
        const CheckReport report = CheckDeeply(row.bytes);
        EXPECT_EQ(Ids(report), row.ids);
        EXPECT_EQ(report.opens, opens);
        EXPECT_EQ(report.Stop() == nullptr, opens);
    }
}

TEST(Findings, OfTheFile) {
    ExpectFindings(FileRows());
}

TEST(Findings, OfTheArchive) {
    ExpectFindings(ArchiveRows());
}

TEST(Findings, OfEntryNames) {
    ExpectFindings(EntryNameRows());
}

TEST(Findings, OfContentTypes) {
    ExpectFindings(ContentTypeRows());
}

TEST(Findings, OfPackageRelationships) {
    ExpectFindings(PackageRows());
}

TEST(Findings, OfPartRelationships) {
    ExpectFindings(RelationshipRows());
}

TEST(Findings, OfPartData) {
    ExpectFindings(PartDataRows());
}

TEST(Findings, OfHostileShapes) {
    ExpectFindings(ShapeRows());
}

// Of a file that is not there, or is a folder, tests of their own tell.
TEST(Findings, AreEachShownByARow) {
    std::set<std::string> shown = {"VX001", "VX002", "VX099", "VX608"};
    for (const FindingRow& row : AllRows()) {
        std::istringstream ids(row.ids);
        for (std::string id; ids >> id;) shown.insert(id);
    }
    for (const FindingKind& kind : kFindingTable)
        EXPECT_TRUE(shown.count(IdText(kind.id))) << IdText(kind.id);
}

TEST(Findings, OfAFileThatCannotBeRead) {
    for (const std::string path : {"/nowhere/at all", "/tmp"}) {
        const CheckReport report = CheckPackage(path, {});
        EXPECT_FALSE(report.opens);
        EXPECT_EQ(Ids(report), "VX001");
    }
}

TEST(Findings, OfANameOutsideTheLocale) {
    const ScratchFile file(SoundPackage().Bytes(), "\xFF.docx");
    EXPECT_EQ(Ids(CheckPackage(file.Path(), {})), "VX002");
}

TEST(Findings, OfARefusalThatNothingExplains) {
    const ScratchFile file(SoundPackage().Bytes());
    Subject subject(file.Path(), {});
    subject.package.Reset();
    vexpa_tool::Findings findings(false);
    ReplayOpening(subject, findings);
    ASSERT_NE(findings.Stop(), nullptr);
    EXPECT_EQ(findings.Stop()->id, FindingId::UnknownReason);
}

TEST(Findings, OfMoreEntriesThanAreLookedAt) {
    CheckOptions options;
    options.mostEntries = 5;
    EXPECT_EQ(Ids(CheckBytes(SoundPackage().Bytes(), options)), "");
    options.mostEntries = 4;
    EXPECT_EQ(
        FindingOf(CheckBytes(SoundPackage().Bytes(), options), FindingId::TooManyEntries).severity,
        Severity::Warning);
}

// The backslash belongs to an earlier step, yet it is not why nothing opens.
TEST(Findings, BeginWithWhatKeepsThePackageFromOpening) {
    const CheckReport report = CheckBytes(Spoiled([](SoundPackage& p) {
        p.Add("a/b\\c.png", "x");
        p.relationships += Relation("rId9", OfficeType("theme"), "gone.xml");
    }));
    EXPECT_EQ(report.findings.front().id, FindingId::LastTargetMissing);
    EXPECT_EQ(report.findings.front().id, report.Stop()->id);
    EXPECT_EQ(report.findings[1].id, FindingId::Backslash);
}

TEST(Findings, NameTheCause) {
    const struct {
        const char* shows;
        std::string bytes;
        FindingId id;
        const char* cause;
    } rows[] = {
        {"an unknown compound file", CompoundBytes({{"b", "x"}, {"a", "x"}}),
         FindingId::OtherCompoundFile,
         "not a zip: compound file of a kind not known here, with a and b"},
        {"an empty compound file", CompoundBytes({}), FindingId::OtherCompoundFile,
         "not a zip: compound file with nothing in it"},
        {"a directory beyond the file", Spoiled([](SoundPackage& p) {
             p.zip.directoryOffset = 70'000;
             p.zip.directorySize = 9;
         }),
         FindingId::NoDirectory,
         "the end record says that the directory begins at offset 70,000 and has 9 bytes, but the "
         "file has only "},
        {"a name that is written with backslashes",
         Spoiled([](SoundPackage& p) { p.Add("a\\c.png", "x").madeBy = 0x0014; }), FindingId::Backslash,
         "the name is written with '\\' and read with '/': a\\c.png"},
        {"a NUL in a name", Spoiled([](SoundPackage& p) { p.Add(std::string("a\0b.png", 7), "x"); }),
         FindingId::DeceptiveName,
         "the name has control characters or turns the direction of writing: a\\x00b.png"},
        {"broken data", Spoiled([](SoundPackage& p) { p.zip.entries[0].rawData = "\xFF\xFF"; }),
         FindingId::DamagedData, "cannot be extracted: its packed data is broken"},
        {"more data than claimed", Spoiled([](SoundPackage& p) { p.zip.entries[0].size = 1; }),
         FindingId::DamagedData,
         "cannot be extracted: its data unpacks to another size than the directory says"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_THAT(FindingOf(CheckDeeply(row.bytes), row.id).cause, testing::StartsWith(row.cause));
    }
}

TEST(Findings, OfAPartLargerThanTheLimit) {
    const Vocabulary* none = nullptr;
    CheckOptions options;
    options.isDeep = true;
    options.vocabulary = none;
    options.largestPart = 100;
    const CheckReport report = CheckBytes(SoundPackage().Bytes(), options);
    EXPECT_EQ(FindingOf(report, FindingId::PartNotLookedAt).entry, "[Content_Types].xml");
}

}  // namespace

}  // namespace vexpa_test
