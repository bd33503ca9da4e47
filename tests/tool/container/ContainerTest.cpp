#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/tool/container/Archive.h"
#include "tool/container/Container.h"
#include "tool/container/LocalHeader.h"
#include "tool/container/Names.h"

namespace {

using namespace vexpa_test;
using namespace vexpa_tool;
using testing::ElementsAre;

TEST(Container, TellsWhatTheDirectorySaysOfAnEntry) {
    ZipFile zip = Letters();
    zip.entries[1].stored = true;
    zip.entries[1].madeBy = 0x0A14;
    zip.entries[1].comment = "a remark";
    zip.entries[1].extra = std::string("\x01\xCA\x02\x00xy", 6);
    const Archive archive(zip);

    EXPECT_EQ(archive.container.Source(), ContainerSource::Directory);
    EXPECT_THAT(archive.Names(), ElementsAre("a", "b", "c"));
    const ContainerEntry& entry = archive.container.Entries()[1];
    EXPECT_EQ(entry.method, 0);
    EXPECT_EQ(entry.size, 6u);
    EXPECT_EQ(entry.compressedSize, 6u);
    EXPECT_EQ(entry.madeBy, 0x0A14);
    EXPECT_EQ(archive.container.Comment(entry), "a remark");
    EXPECT_EQ(archive.container.ExtraData(entry), std::string("\x01\xCA\x02\x00xy", 6));
    EXPECT_EQ(DosTimeText(entry.date, entry.time), "1980-01-01 00:00:00");
    const std::string header = archive.container.Bytes(entry.directoryPosition, 4);
    EXPECT_EQ(header, "PK\1\2");
}

TEST(Container, KeepsTheNameAsItIsSpelledAndAsTheLibraryListsIt) {
    ZipFile zip;
    zip.Add("word\\a\x81.xml", "").madeBy = 0x0014;
    const Archive archive(zip);
    const ContainerEntry& entry = archive.container.Entries()[0];
    EXPECT_EQ(entry.name, "word/a\u00fc.xml");
    EXPECT_EQ(archive.container.RawName(entry), "word\\a\x81.xml");
}

TEST(Container, FindsTheFirstEntryOfAName) {
    ZipFile zip = Letters();
    zip.Add("b", "another");
    const Archive archive(zip);
    EXPECT_EQ(archive.container.Find("b"), &archive.container.Entries()[1]);
    EXPECT_EQ(archive.container.Find("B"), nullptr);
}

TEST(Container, TellsOfTheEndRecord) {
    ZipFile zip = Letters();
    zip.comment = "of the archive";
    const Archive archive(zip);
    const ContainerEnd& end = archive.container.End();
    EXPECT_EQ(end.claimedCount, 3u);
    EXPECT_EQ(end.directoryEnd, end.position);
    EXPECT_EQ(end.directoryEnd - end.directoryStart, end.claimedSize);
    EXPECT_EQ(end.archiveStart, 0u);
    EXPECT_FALSE(end.isZip64);
    EXPECT_EQ(archive.container.ArchiveComment(), "of the archive");
}

TEST(Container, TellsOfZip64) {
    ZipFile zip = Letters();
    zip.zip64 = true;
    for (ZipEntry& entry : zip.entries) entry.zip64 = true;
    const Archive archive(zip);
    EXPECT_TRUE(archive.container.End().isZip64);
    EXPECT_EQ(archive.container.End().claimedCount, 3u);
    EXPECT_EQ(archive.container.Entries()[2].size, 1000u);
    const auto local =
        ReadLocalHeader(archive.container, archive.container.Entries()[2].headerPosition);
    ASSERT_TRUE(local);
    EXPECT_EQ(local->size, 1000u);
}

TEST(Container, WithoutADirectoryTellsOfTheLocalHeaders) {
    const std::string whole = Letters().Bytes();
    const Archive archive(whole.substr(0, whole.find("PK\1\2")));
    EXPECT_EQ(archive.container.Source(), ContainerSource::LocalHeaders);
    EXPECT_THAT(archive.Names(), ElementsAre("a", "b", "c"));
    EXPECT_EQ(archive.container.Entries()[2].size, 1000u);
    EXPECT_EQ(archive.container.RawName(archive.container.Entries()[2]), "c");
    EXPECT_NE(archive.container.Find("c"), nullptr);
}

TEST(Container, FindsLocalHeadersBehindDataWhoseSizeOnlyTheDescriptorTells) {
    for (const bool hasSignature : {true, false}) {
        for (const bool isWide : {true, false}) {
            SCOPED_TRACE(testing::Message() << hasSignature << isWide);
            ZipFile zip = Letters();
            for (ZipEntry& entry : zip.entries) {
                entry.stored = true;
                entry.dataDescriptor = true;
                entry.descriptorSignature = hasSignature;
                entry.zip64 = isWide;
            }
            const std::string whole = zip.Bytes();
            const Archive archive(whole.substr(0, whole.find("PK\1\2") + 30));
            EXPECT_THAT(archive.Names(), ElementsAre("a", "b", "c"));
        }
    }
}

TEST(Container, OfAnythingElseHasNoEntries) {
    const Archive archive("plain text");
    EXPECT_EQ(archive.container.Source(), ContainerSource::None);
    EXPECT_EQ(archive.container.EntryCount(), 0u);
    EXPECT_EQ(archive.container.Find("a"), nullptr);
    EXPECT_EQ(archive.container.ArchiveComment(), "");
}

TEST(Container, OfNoFileIsNothing) {
    EXPECT_FALSE(Container::Read("/nowhere/at all"));
    EXPECT_FALSE(Container::Read("/tmp"));
}

TEST(ContainerNames, HaveWordsForKnownNumbersAndTheNumberForOthers) {
    EXPECT_EQ(MethodName(0), "stored");
    EXPECT_EQ(MethodName(8), "deflate");
    EXPECT_EQ(MethodName(7), "method 7");
    EXPECT_EQ(HostName(3), "Unix");
    EXPECT_EQ(HostName(200), "host 200");
    EXPECT_EQ(ExtraFieldName(0x7075), "Unicode path");
    EXPECT_EQ(ExtraFieldName(0xABCD), "0xABCD");
    EXPECT_EQ(DosTimeText(0x5B5D, 0xBF7D), "2025-10-29 23:59:58");
}

}  // namespace
