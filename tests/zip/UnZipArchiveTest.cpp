#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/FaultRuntime.h"
#include "tests/support/ScratchFile.h"
#include "tests/support/ZipFile.h"
#include "vexpa/zip/UnZipArchive.h"
#include "vexpa/zip/UnZipArchiveImpl.h"

namespace {

using lumo::Compression::Zip::UnZipArchive;
using namespace vexpa_test;

ScratchFile ArchiveOf(const std::vector<std::string>& names) {
    ZipFile zip;
    for (const std::string& name : names) zip.Add(name, "content");
    return ScratchFile(zip.Bytes());
}

TEST(UnZipArchiveOpen, TakesAnyReadableFile) {
    const ScratchFile file("no archive at all");
    UnZipArchive archive;
    EXPECT_EQ(archive.Open(file.Path16().c_str()), S_OK);
    EXPECT_FALSE(archive.HasEntry(u"anything"));
}

TEST(UnZipArchiveOpen, FailsForAMissingFile) {
    UnZipArchive archive;
    EXPECT_EQ(archive.Open(u"/nowhere/at/all.docx"), E_FAIL);
}

TEST(UnZipArchiveOpen, RefusesAnotherFileWhileOneIsOpenAndReadable) {
    const ScratchFile first = ArchiveOf({"first.xml"});
    const ScratchFile second = ArchiveOf({"second.xml"});
    UnZipArchive archive;
    ASSERT_EQ(archive.Open(first.Path16().c_str()), S_OK);
    EXPECT_EQ(archive.Open(second.Path16().c_str()), E_ACCESSDENIED);
    EXPECT_TRUE(archive.HasEntry(u"first.xml"));
}

TEST(UnZipArchiveOpen, TakesAnotherFileWhenTheOldOneIsGone) {
    const ScratchFile first = ArchiveOf({"first.xml"});
    const ScratchFile second = ArchiveOf({"second.xml"});
    UnZipArchive archive;
    ASSERT_EQ(archive.Open(first.Path16().c_str()), S_OK);
    ASSERT_TRUE(archive.HasEntry(u"first.xml"));
    first.Remove();
    EXPECT_EQ(archive.Open(second.Path16().c_str()), S_OK);
    EXPECT_TRUE(archive.HasEntry(u"second.xml"));
    EXPECT_FALSE(archive.HasEntry(u"first.xml"));
}

TEST(UnZipArchiveOpen, ReadsNoZipStructure) {
    const ScratchFile file = ArchiveOf({"a.xml"});
    FaultRuntime platform;
    UnZipArchive archive;
    ASSERT_EQ(archive.Open(file.Path16().c_str()), S_OK);
    EXPECT_EQ(platform.Calls(), std::vector<std::string>{"_Xaccess"});
}

TEST(UnZipArchiveClose, StartsAfresh) {
    const ScratchFile file = ArchiveOf({"a.xml"});
    UnZipArchive archive;
    archive.Close();
    ASSERT_EQ(archive.Open(file.Path16().c_str()), S_OK);
    ASSERT_TRUE(archive.HasEntry(u"a.xml"));
    archive.Close();
    EXPECT_FALSE(archive.HasEntry(u"a.xml"));
    EXPECT_EQ(archive.Open(file.Path16().c_str()), S_OK);
    EXPECT_TRUE(archive.HasEntry(u"a.xml"));
}

TEST(HasEntry, ReadsABackslashAsASlash) {
    const ScratchFile file = ArchiveOf({"word/document.xml"});
    UnZipArchive archive;
    archive.Open(file.Path16().c_str());
    EXPECT_TRUE(archive.HasEntry(u"word\\document.xml"));
    EXPECT_TRUE(archive.HasEntry(u"word/document.xml"));
}

TEST(HasEntry, ComparesWithCase) {
    const ScratchFile file = ArchiveOf({"word/document.xml"});
    UnZipArchive archive;
    archive.Open(file.Path16().c_str());
    EXPECT_FALSE(archive.HasEntry(u"Word/Document.xml"));
}

TEST(HasEntry, DropsNoLeadingSlash) {
    const ScratchFile file = ArchiveOf({"word/document.xml"});
    UnZipArchive archive;
    archive.Open(file.Path16().c_str());
    EXPECT_FALSE(archive.HasEntry(u"/word/document.xml"));
}

TEST(HasEntry, ListsTheArchiveOnce) {
    const ScratchFile file = ArchiveOf({"a.xml", "b.xml"});
    UnZipArchive archive;
    archive.Open(file.Path16().c_str());
    FaultRuntime platform;
    EXPECT_TRUE(archive.HasEntry(u"a.xml"));
    EXPECT_FALSE(archive.HasEntry(u"c.xml"));
    EXPECT_EQ(platform.Count("_XGetZipFileList"), 1u);
}

TEST(HasEntry, OfAPathThatDoesNotExistListsAgainEachTime) {
    UnZipArchive archive;
    archive.Open(u"/nowhere/at/all.docx");
    FaultRuntime platform;
    EXPECT_FALSE(archive.HasEntry(u"a.xml"));
    EXPECT_FALSE(archive.HasEntry(u"a.xml"));
    EXPECT_EQ(platform.Count("_Xaccess"), 2u);
    EXPECT_EQ(platform.Count("_XGetZipFileCount"), 0u);
}

TEST(HasEntry, OfAnEmptyArchiveListsAgainEachTime) {
    const ScratchFile file(ZipFile{}.Bytes());
    UnZipArchive archive;
    archive.Open(file.Path16().c_str());
    FaultRuntime platform;
    EXPECT_FALSE(archive.HasEntry(u"a.xml"));
    EXPECT_FALSE(archive.HasEntry(u"a.xml"));
    EXPECT_EQ(platform.Count("_XGetZipFileCount"), 2u);
    EXPECT_EQ(platform.Count("_XGetZipFileList"), 0u);
}

TEST(HasEntry, FindsBothOfTwoNamesThatDifferInCase) {
    const ScratchFile file = ArchiveOf({"a.xml", "A.XML"});
    UnZipArchive archive;
    archive.Open(file.Path16().c_str());
    EXPECT_TRUE(archive.HasEntry(u"a.xml"));
    EXPECT_TRUE(archive.HasEntry(u"A.XML"));
    EXPECT_EQ(archive.GetImpl()->entries.size(), 2u);
    EXPECT_EQ(archive.GetImpl()->entryNameSet.GetCount(), 1u);
}

TEST(HasEntry, FindsEachOfManyNamesThatShareAHash) {
    // "Q1" and "R!" weigh the same in the hash; the directory has the names in falling order.
    std::vector<std::string> names;
    for (unsigned number = 4096; number-- > 0;) {
        std::string name;
        for (int bit = 11; bit >= 0; --bit) name += (number >> bit & 1) != 0 ? "R!" : "Q1";
        names.push_back(name);
    }
    const ScratchFile file = ArchiveOf(names);
    UnZipArchive archive;
    archive.Open(file.Path16().c_str());
    for (const std::string& name : names) {
        ASSERT_TRUE(archive.HasEntry(std::u16string(name.begin(), name.end()).c_str()));
    }
    EXPECT_EQ(archive.GetImpl()->entries.front().name, u"R!R!R!R!R!R!R!R!R!R!R!R!");
    EXPECT_EQ(archive.GetImpl()->entryNameSet.GetCount(), 4096u);
}

TEST(HasEntry, KeepsTwoRecordsOfOneNameAndMapsItToTheFirst) {
    const ScratchFile file = ArchiveOf({"b.xml", "a.xml", "a.xml"});
    UnZipArchive archive;
    archive.Open(file.Path16().c_str());
    EXPECT_TRUE(archive.HasEntry(u"a.xml"));
    EXPECT_EQ(archive.GetImpl()->entries.size(), 3u);
    EXPECT_EQ(archive.GetImpl()->entryIndexByName.at(u"a.xml"), 1u);
    EXPECT_EQ(archive.GetImpl()->entryNameSet.GetCount(), 2u);
}

TEST(HasEntry, MakesRecordsWithTheirFixedKind) {
    const ScratchFile file = ArchiveOf({"a.xml"});
    UnZipArchive archive;
    archive.Open(file.Path16().c_str());
    ASSERT_TRUE(archive.HasEntry(u"a.xml"));
    const auto& record = archive.GetImpl()->entries.front();
    EXPECT_EQ(record.name, u"a.xml");
    EXPECT_EQ(record.value, 0);
    EXPECT_EQ(record.kind, 13u);
}

TEST(HasEntry, OfANullNameIsFalse) {
    const ScratchFile file = ArchiveOf({"a.xml"});
    UnZipArchive archive;
    archive.Open(file.Path16().c_str());
    EXPECT_FALSE(archive.HasEntry(nullptr));
}

}  // namespace
