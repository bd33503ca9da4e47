#include <gtest/gtest.h>

#include <fstream>

#include "tests/runtime/zip/ZipClient.h"
#include "tests/support/ScratchFile.h"

namespace {

using namespace vexpa_test;

ZipFile Everything() {
    ZipFile zip = SmallZip();
    ZipEntry& wide = zip.Add("wide", kSmallText);
    wide.zip64 = wide.dataDescriptor = true;
    zip.zip64 = zip.plainToo = true;
    zip.prefix = "stub";
    zip.comment = "comment";
    return zip;
}

// An entry gives its true bytes or nothing, and what is listed can be asked for.
void Exercise(const ScratchFile& file) {
    for (const char* request : {"a.txt", "wide"}) {
        EXPECT_EQ(UnzipEntry(file.Path(), request).value_or(kSmallText), kSmallText);
    }
    EXPECT_EQ(UnzipEntry(file.Path(), "b/c.txt").value_or("stored text"), "stored text");
    UnzipEntry(file.Path(), "*");
    ListZip(file.Path());
}

TEST(HostileArchive, CutAnywhereGivesTrueBytesOrNone) {
    const std::string bytes = Everything().Bytes();
    const ScratchFile file("");
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        SCOPED_TRACE(size);
        file.Write(bytes.substr(0, size));
        Exercise(file);
        file.Write(bytes.substr(size));
        Exercise(file);
    }
}

TEST(HostileArchive, WithAnyByteChangedGivesTrueBytesOrNone) {
    const std::string bytes = Everything().Bytes();
    const ScratchFile file("");
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        for (const int change : {0x01, 0x80, 0xFF}) {
            SCOPED_TRACE(testing::Message() << at << ' ' << change);
            std::string changed = bytes;
            changed[at] = static_cast<char>(changed[at] ^ change);
            file.Write(changed);
            Exercise(file);
        }
    }
}

TEST(HostileArchive, WithAnyFourBytesAtAllOnesGivesTrueBytesOrNone) {
    const std::string bytes = Everything().Bytes();
    const ScratchFile file("");
    for (std::size_t at = 0; at + 4 <= bytes.size(); ++at) {
        SCOPED_TRACE(at);
        std::string changed = bytes;
        changed.replace(at, 4, "\xFF\xFF\xFF\xFF");
        file.Write(changed);
        Exercise(file);
    }
}

TEST(HostileArchive, OfEndRecordsOnlyIsSoonRefused) {
    const std::string record = std::string("PK\5\6\0\0\0\0\1\0\1\0\x2E\0\0\0\0\0\0\0\0\0", 22);
    std::string bytes;
    while (bytes.size() < 200'000) bytes += record;
    EXPECT_EQ(ListBytes(bytes), std::nullopt);
}

// The directory seems to begin where each record says and to be as long as the file; only
// reading it to the end shows that it is none.
TEST(HostileArchive, OfADirectoryThatNeverFitsIsSoonRefused) {
    ZipFile zip;
    for (int i = 0; i < 20'000; ++i) zip.Add("e" + std::to_string(i), "").stored = true;
    zip.entryCount = 3;
    zip.directorySize = 0xFFFFFF00;
    std::string bytes = zip.Bytes();
    const std::string record = bytes.substr(bytes.size() - 22);
    for (int i = 0; i < 2'900; ++i) bytes += record;
    EXPECT_EQ(ListBytes(bytes), std::nullopt);
}

TEST(HostileArchive, OfLongNamesOfNulsIsListed) {
    ZipFile zip;
    for (int i = 0; i < 50; ++i) zip.Add(std::string(65'535, '\0'), "").stored = true;
    const auto names = ListBytes(zip.Bytes());
    ASSERT_TRUE(names);
    EXPECT_EQ(names->front(), std::u16string(65'535, u'\uFFFD'));
}

TEST(HostileArchive, WithAHugeHoleForADirectoryIsSoonRefused) {
    const ScratchFile file("");
    ZipFile zip;
    zip.Add("a", "");
    std::string header = zip.Bytes();
    header = header.substr(header.find("PK\1\2"));
    ZipFile end;
    end.zip64 = true;
    end.entryCount = std::uint64_t{1} << 33;
    end.directorySize = std::uint64_t{1} << 38;
    end.directoryOffset = 0;
    std::ofstream out(file.Path(), std::ios::binary);
    out << header.substr(0, header.find("PK\5\6"));
    out.seekp(std::streamoff{1} << 38);
    out << end.Bytes();
    out.close();
    EXPECT_EQ(ListZip(file.Path()), std::nullopt);
}

}  // namespace
