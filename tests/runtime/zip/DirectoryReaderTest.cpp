#include <gtest/gtest.h>

#include <fstream>

#include "runtime/zip/DirectoryReader.h"
#include "tests/runtime/zip/ZipClient.h"
#include "tests/support/ScratchFile.h"

namespace {

using namespace vexpa_test;
using namespace std::string_literals;

const Names kSmallNames{u"a.txt", u"b/c.txt"};

// Whole: both names are listed and both entries give their bytes.
void ExpectWhole(const std::string& bytes) {
    const ScratchFile file(bytes);
    EXPECT_EQ(ListZip(file.Path()), kSmallNames);
    EXPECT_EQ(UnzipEntry(file.Path(), "a.txt"), kSmallText);
    EXPECT_EQ(UnzipEntry(file.Path(), "b/c.txt"), "stored text");
}

void ExpectNothing(const std::string& bytes) {
    const ScratchFile file(bytes);
    EXPECT_EQ(ListZip(file.Path()), std::nullopt);
    EXPECT_EQ(UnzipEntry(file.Path(), "a.txt"), std::nullopt);
    EXPECT_EQ(UnzipEntry(file.Path(), "*"), std::nullopt);
}

struct Row {
    const char* what;
    void (*change)(ZipFile&);
};

TEST(ZipDirectory, IsReadWhateverIsUnusualButSound) {
    const Row rows[] = {
        {"nothing unusual", [](ZipFile&) {}},
        {"bytes before the archive", [](ZipFile& z) { z.prefix = "#!/bin/sh\nexit\n"; }},
        {"bytes before it that the offsets count",
         [](ZipFile& z) {
             z.prefix = "stub";
             const std::size_t size = z.prefix.size();
             ZipFile bare = z;
             bare.prefix.clear();
             const std::string bytes = bare.Bytes();
             z.directoryOffset = bytes.find("PK\1\2") + size;
             z.entries[0].localOffset = size;
             z.entries[1].localOffset = bytes.find("PK\3\4", 4) + size;
         }},
        {"bytes after the archive", [](ZipFile& z) { z.suffix = "\n"; }},
        {"many bytes after it", [](ZipFile& z) { z.suffix = std::string(65'000, '\0'); }},
        {"bytes on both sides",
         [](ZipFile& z) {
             z.prefix = std::string(70'000, 'p');
             z.suffix = std::string(500, 's');
         }},
        {"a comment", [](ZipFile& z) { z.comment = "a comment"; }},
        {"the longest comment", [](ZipFile& z) { z.comment = std::string(65'535, 'c'); }},
        {"a comment with the end record's signature",
         [](ZipFile& z) { z.comment = "see PK\5\6 there"; }},
        {"a comment with a whole end record of another file",
         [](ZipFile& z) { z.comment = "PK\5\6\0\0\0\0\7\0\7\0\xE0\1\0\0\x10\x20\0\0\0\0"s; }},
        {"comments of entries",
         [](ZipFile& z) { z.entries[0].comment = z.entries[1].comment = "PK\1\2"; }},
        {"bytes between directory and end record", [](ZipFile& z) { z.gap = "PK\5\5\4\0sign"s; }},
        {"zip64 end record", [](ZipFile& z) { z.zip64 = true; }},
        {"zip64 end record and plain fields", [](ZipFile& z) { z.zip64 = z.plainToo = true; }},
        {"zip64 end record after bytes before the archive",
         [](ZipFile& z) {
             z.zip64 = true;
             z.prefix = "stub";
         }},
        {"zip64 end record after a gap",
         [](ZipFile& z) {
             z.zip64 = true;
             z.gap = "gap";
         }},
        {"zip64 entries", [](ZipFile& z) { z.entries[0].zip64 = z.entries[1].zip64 = true; }},
        {"other extra fields before zip64's",
         [](ZipFile& z) { z.entries[0].extra = z.entries[0].localExtra = "UT\5\0\3abcd"s; }},
        {"an extra field that runs past the others",
         [](ZipFile& z) { z.entries[0].extra = "UT\xFF\0\3abcd"s; }},
        {"data descriptors",
         [](ZipFile& z) { z.entries[0].dataDescriptor = z.entries[1].dataDescriptor = true; }},
        {"data descriptors without signature",
         [](ZipFile& z) {
             z.entries[0].dataDescriptor = true;
             z.entries[0].descriptorSignature = false;
         }},
        {"a wrong count", [](ZipFile& z) { z.entryCount = 7; }},
        {"a count of none", [](ZipFile& z) { z.entryCount = 0; }},
        {"a wrong size", [](ZipFile& z) { z.directorySize = 90; }},
        {"a size of nothing", [](ZipFile& z) { z.directorySize = 0; }},
        {"a size beyond the file", [](ZipFile& z) { z.directorySize = 0xFFFFFFF0; }},
        {"other local names", [](ZipFile& z) { z.entries[0].localName = "another.name"; }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        ZipFile zip = SmallZip();
        row.change(zip);
        ExpectWhole(zip.Bytes());
    }
}

TEST(ZipDirectory, WithACommentCutOffIsRead) {
    ZipFile zip = SmallZip();
    zip.comment = "a comment that is not whole";
    std::string bytes = zip.Bytes();
    bytes.resize(bytes.size() - 10);
    ExpectWhole(bytes);
}

TEST(ZipDirectory, ThatIsDamagedListsAndGivesNothing) {
    const Row rows[] = {
        {"count and size wrong",
         [](ZipFile& z) {
             z.entryCount = 7;
             z.directorySize = 90;
         }},
        {"size and offset wrong",
         [](ZipFile& z) {
             z.directorySize = 90;
             z.directoryOffset = 3;
         }},
        {"more than a comment can be long after the end record",
         [](ZipFile& z) { z.suffix = std::string(65'536, '\0'); }},
        {"bytes before and after the directory",
         [](ZipFile& z) {
             z.prefix = "stub";
             z.gap = "gap";
         }},
        {"entries claimed, none there",
         [](ZipFile& z) {
             z.entries.clear();
             z.entryCount = 3;
         }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        ZipFile zip = SmallZip();
        row.change(zip);
        ExpectNothing(zip.Bytes());
    }
}

TEST(ZipDirectory, WithARecordCutOffIsDamaged) {
    std::string bytes = SmallZip().Bytes();
    const std::size_t last = bytes.rfind("PK\1\2");
    for (const std::size_t lengthField : {28UL, 30UL, 32UL}) {  // name, extra data, comment
        std::string lying = bytes;
        lying[last + lengthField + 1] = '\x7F';
        ExpectNothing(lying);
    }
}

TEST(ZipDirectory, WithABrokenSignatureIsDamaged) {
    for (const char* signature : {"PK\1\2", "PK\5\6"}) {
        std::string bytes = SmallZip().Bytes();
        bytes[bytes.rfind(signature)] = 'Q';
        ExpectNothing(bytes);
    }
}

TEST(ZipDirectory, OfTheLastOfTwoArchivesIsTheOneRead) {
    ZipFile first;
    first.Add("first", "1");
    EXPECT_EQ(ListBytes(first.Bytes() + SmallZip().Bytes()), kSmallNames);
    EXPECT_EQ(UnzipBytes(first.Bytes() + SmallZip().Bytes(), "a.txt"), kSmallText);
}

TEST(ZipDirectory, InAValidEndRecordInsideACommentIsTheOneRead) {
    ZipFile inner;
    inner.Add("inner", "i");
    ZipFile outer = SmallZip();
    outer.comment = inner.Bytes();
    EXPECT_EQ(ListBytes(outer.Bytes()), Names{u"inner"});
    EXPECT_EQ(UnzipBytes(outer.Bytes(), "inner"), "i");
}

// Only so many are tried: each costs a walk over the directory.
TEST(ZipDirectory, IsFoundBehindAFewPlausibleEndRecordsAndNotSoughtBehindMany) {
    const ZipFile zip = SmallZip();
    std::string lie = zip.Bytes();
    lie = lie.substr(lie.rfind("PK\5\6"));
    lie[10] = lie[8] = 9;  // entries
    lie[12] = 1;           // size of the directory
    std::string bytes = zip.Bytes();
    for (int i = 0; i < 7; ++i) bytes += lie;
    ExpectWhole(bytes);
    for (int i = 0; i < 1000; ++i) bytes += lie;
    ExpectNothing(bytes);
}

TEST(ZipDirectory, IsFoundBehindAnyNumberOfBareSignatures) {
    ZipFile zip = SmallZip();
    while (zip.comment.size() < 60'000) zip.comment += "PK\5\6";
    ExpectWhole(zip.Bytes());
}

TEST(ZipDirectory, IsFoundThroughAZip64RecordWithMoreData) {
    ZipFile zip = SmallZip();
    zip.zip64 = true;
    std::string bytes = zip.Bytes();
    bytes.insert(bytes.rfind("PK\6\7"), "extensible data sector");
    ExpectWhole(bytes);
}

// The end record itself is sound, but what stands before it looks like its zip64 companion.
TEST(ZipDirectory, IsFoundBehindACommentThatLooksLikeAZip64Record) {
    ZipFile companion;
    companion.zip64 = true;
    ZipFile zip = SmallZip();
    const std::string records = companion.Bytes();
    zip.entries.back().comment = records.substr(0, records.size() - 22);
    const auto names = ListBytes(zip.Bytes());
    ASSERT_TRUE(names);
    EXPECT_EQ(names->size(), zip.entries.size());
}

TEST(ZipDirectory, OfAnEmptyArchiveIsSoundAndEmpty) {
    EXPECT_EQ(ListBytes(ZipFile().Bytes()), Names{});
    EXPECT_EQ(UnzipBytes(ZipFile().Bytes(), "a"), std::nullopt);
    ZipFile zip64;
    zip64.zip64 = true;
    EXPECT_EQ(ListBytes(zip64.Bytes()), Names{});
}

TEST(ZipDirectory, IsNotSoughtInCompoundFiles) {
    ZipFile zip = SmallZip();
    zip.prefix = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 and more";
    ExpectNothing(zip.Bytes());
    zip.prefix = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE2 and more";
    ExpectWhole(zip.Bytes());
}

TEST(ZipDirectory, OfWhatIsNoArchiveIsNone) {
    for (const std::string& bytes : {""s, "P"s, "PK\5\6"s, "plain text"s, std::string(100'000, 'x')}) {
        ExpectNothing(bytes);
    }
}

TEST(ZipDirectory, CountsMoreEntriesThanTheEndRecordCanSay) {
    ZipFile zip;
    for (int i = 0; i < 65'540; ++i) zip.Add("e" + std::to_string(i), "").stored = true;
    zip.entryCount = 4;  // 65,540 less 65,536
    EXPECT_EQ(ListBytes(zip.Bytes()).value_or(Names{}).size(), 65'540u);
    zip.gap = "gap";
    EXPECT_EQ(ListBytes(zip.Bytes()).value_or(Names{}).size(), 65'540u);
    zip.zip64 = true;  // which says the whole count
    EXPECT_EQ(ListBytes(zip.Bytes()), std::nullopt);
}

TEST(ZipDirectory, ListsEntriesThatCannotBeExtracted) {
    ZipFile zip = SmallZip();
    zip.entries[0].localOffset = 1'000'000;
    const ScratchFile file(zip.Bytes());
    EXPECT_EQ(ListZip(file.Path()), kSmallNames);
    EXPECT_EQ(UnzipEntry(file.Path(), "a.txt"), std::nullopt);
    EXPECT_EQ(UnzipEntry(file.Path(), "b/c.txt"), "stored text");
}

TEST(ZipDirectory, OfAFileWhoseHeadIsCutOffStillGivesWhatIsLeft) {
    const std::string bytes = SmallZip().Bytes();
    const ScratchFile file(bytes.substr(10));
    EXPECT_EQ(ListZip(file.Path()), kSmallNames);
    EXPECT_EQ(UnzipEntry(file.Path(), "a.txt"), std::nullopt);
    EXPECT_EQ(UnzipEntry(file.Path(), "b/c.txt"), "stored text");
}

// A sparse file, so the gigabytes cost nothing.
TEST(ZipDirectory, IsFoundBeyondFourGigabytes) {
    constexpr std::uint64_t kStart = std::uint64_t{5} << 30;
    ZipFile zip = SmallZip();
    std::string bytes = zip.Bytes();
    const std::uint64_t second = bytes.find("PK\3\4", 4), directory = bytes.find("PK\1\2");
    zip.zip64 = zip.entries[0].zip64 = zip.entries[1].zip64 = true;
    zip.entries[0].localOffset = kStart;
    zip.entries[1].localOffset = kStart + second + 20;  // the first local header grew by 20 bytes
    zip.directoryOffset = kStart + directory + 40;
    bytes = zip.Bytes();

    const ScratchFile file("");
    std::ofstream out(file.Path(), std::ios::binary);
    out.seekp(static_cast<std::streamoff>(kStart));
    out << bytes;
    out.close();
    EXPECT_EQ(ListZip(file.Path()), kSmallNames);
    EXPECT_EQ(UnzipEntry(file.Path(), "a.txt"), kSmallText);
    EXPECT_EQ(UnzipEntry(file.Path(), "b/c.txt"), "stored text");
}

}  // namespace
