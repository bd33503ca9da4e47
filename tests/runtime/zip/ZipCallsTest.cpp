#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "tests/runtime/zip/ZipClient.h"
#include "tests/support/ScratchFile.h"
#include "vexpa/platform/Runtime.h"

namespace {

using namespace vexpa_test;

std::ptrdiff_t OpenDescriptors() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return std::distance(begin(all), end(all));
}

TEST(XGetZipFileCount, OfNoSoundArchiveFailsWithNone) {
    std::int32_t count = 7;
    EXPECT_EQ(_XGetZipFileCount(u"/no/such/file", &count), E_FAIL);
    EXPECT_EQ(count, 0);
    count = 7;
    EXPECT_EQ(_XGetZipFileCount(nullptr, &count), E_FAIL);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(_XGetZipFileCount(u"/no/such/file", nullptr), E_INVALIDARG);
}

TEST(XGetZipFileList, NeedsTheExactCountAndElseLeavesTheNamesAlone) {
    const ScratchFile file(SmallZip().Bytes());
    for (const std::int32_t count : {-1, 0, 1, 3}) {
        const char16_t* names[3] = {u"x", u"y", u"z"};
        const char16_t* before[3] = {names[0], names[1], names[2]};
        EXPECT_EQ(_XGetZipFileList(file.Path16().c_str(), names, count), E_FAIL) << count;
        EXPECT_TRUE(std::equal(names, names + 3, before));
    }
    EXPECT_EQ(_XGetZipFileList(file.Path16().c_str(), nullptr, 2), E_INVALIDARG);
    EXPECT_EQ(_XGetZipFileList(nullptr, nullptr, 0), E_FAIL);
}

TEST(XGetZipFileList, OfNoSoundArchiveLeavesTheNamesAlone) {
    const ScratchFile file("plain text");
    const char16_t* names[1] = {u"x"};
    EXPECT_EQ(_XGetZipFileList(file.Path16().c_str(), names, 1), E_FAIL);
    EXPECT_EQ(names[0], std::u16string_view(u"x"));
}

TEST(XGetZipFileList, ListsFoldersAndDuplicatesInDirectoryOrder) {
    ZipFile zip;
    for (const char* name : {"z/", "a", "A", "a", ""}) zip.Add(name, name);
    EXPECT_EQ(ListBytes(zip.Bytes()), (Names{u"z/", u"a", u"A", u"a", u""}));
}

TEST(XGetZipFileList, GivesNamesInUtf16) {
    ZipFile zip;
    zip.Add("M\x81ller", "");
    zip.Add("\xE2\x82\xAC\xF0\x9F\x98\x80", "").flags = 0x0800;
    ZipEntry& backslash = zip.Add("word\\document.xml", "");
    backslash.madeBy = 0x0014;
    EXPECT_EQ(ListBytes(zip.Bytes()),
              (Names{u"M\u00FCller", u"\u20AC\U0001F600", u"word/document.xml"}));
}

TEST(UzpUnzipToMemory, GivesTheBytesOfAnEntry) {
    const ScratchFile file(SmallZip().Bytes());
    EXPECT_EQ(UnzipEntry(file.Path(), "a.txt"), kSmallText);
    EXPECT_EQ(UnzipEntry(file.Path(), "b/c.txt"), "stored text");
    EXPECT_EQ(UnzipEntry(file.Path(), "missing"), std::nullopt);
    EXPECT_EQ(UnzipEntry(file.Path(), "A.txt"), std::nullopt);
    EXPECT_EQ(UnzipEntry(file.Path(), "/a.txt"), std::nullopt);
    EXPECT_EQ(UnzipEntry(file.Path(), ""), std::nullopt);
}

TEST(UzpUnzipToMemory, OfADuplicateGivesTheFirst) {
    ZipFile zip;
    zip.Add("a", "first");
    zip.Add("a", "second");
    EXPECT_EQ(UnzipBytes(zip.Bytes(), "a"), "first");
    EXPECT_EQ(UnzipBytes(zip.Bytes(), "?"), "first");
}

TEST(UzpUnzipToMemory, FindsWhatIsListed) {
    ZipFile zip;
    for (const char* name :
         {"plain", "[x].xml", "a*", "a?", "M\x81ller", "\xE2\x82\xAC", "back\\slash"}) {
        ZipEntry& entry = zip.Add(name, name);
        entry.madeBy = 0x0014;
    }
    const ScratchFile file(zip.Bytes());
    const char* requests[] = {"plain",         "[x].xml",      "a*",        "a?",
                              "M\xC3\xBCller", "\xE2\x82\xAC", "back/slash"};
    for (std::size_t i = 0; i < zip.entries.size(); ++i) {
        EXPECT_EQ(UnzipEntry(file.Path(), requests[i]), zip.entries[i].content);
    }
}

int FailOnMessage(void*, unsigned char*, unsigned long, int) {
    ADD_FAILURE() << "a message was printed";
    return 0;
}

TEST(UzpUnzipToMemory, PrintsAndAsksNothing) {
    ZipFile zip = SmallZip();
    zip.entries[0].flags = 1;
    ScratchFile file(zip.Bytes());
    std::string path = file.Path();
    UzpOpts options{};
    UzpCB callbacks{};
    callbacks.structlen = 24;
    callbacks.msgfn = FailOnMessage;
    for (std::string request : {"a.txt", "missing", "b/c.txt"}) {
        UzpBuffer result{};
        UzpUnzipToMemory(path.data(), request.data(), &options, &callbacks, &result);
        free(result.strptr);
    }
}

TEST(UzpUnzipToMemory, FailsOnNullArguments) {
    char name[] = "name";
    UzpBuffer result{};
    EXPECT_EQ(UzpUnzipToMemory(nullptr, name, nullptr, nullptr, &result), 0);
    EXPECT_EQ(UzpUnzipToMemory(name, nullptr, nullptr, nullptr, &result), 0);
    EXPECT_EQ(UzpUnzipToMemory(name, name, nullptr, nullptr, nullptr), 0);
}

TEST(UzpUnzipToMemory, LeavesNoBlockAfterAFailure) {
    char name[] = "/no/such/file";
    char other;
    UzpBuffer result{9, &other};
    EXPECT_EQ(UzpUnzipToMemory(name, name, nullptr, nullptr, &result), 0);
    EXPECT_EQ(result.strlength, 0u);
    EXPECT_EQ(result.strptr, nullptr);
}

TEST(ZipService, TakesPathsOutsideAscii) {
    const ScratchFile file(SmallZip().Bytes(), "\xC3\xBC\xE2\x82\xAC.docx");
    EXPECT_EQ(ListZip(file.Path()), (Names{u"a.txt", u"b/c.txt"}));
    EXPECT_EQ(UnzipEntry(file.Path(), "a.txt"), kSmallText);
}

TEST(ZipService, SeesAReplacedFileAtOnce) {
    const ScratchFile file(SmallZip().Bytes());
    ListZip(file.Path());
    ZipFile other;
    other.Add("other", "text");
    file.Write(other.Bytes());
    EXPECT_EQ(ListZip(file.Path()), Names{u"other"});
    EXPECT_EQ(UnzipEntry(file.Path(), "other"), "text");
    EXPECT_EQ(UnzipEntry(file.Path(), "a.txt"), std::nullopt);
}

TEST(ZipService, SeesEveryRewriteWithinAMoment) {
    const ScratchFile file("");
    for (int i = 100; i < 400; ++i) {  // files of one size, written faster than the clock ticks
        ZipFile zip;
        zip.Add("e" + std::to_string(i), std::to_string(i)).stored = true;
        file.Write(zip.Bytes());
        ASSERT_EQ(UnzipEntry(file.Path(), "e" + std::to_string(i)), std::to_string(i));
        ASSERT_EQ(UnzipEntry(file.Path(), "e" + std::to_string(i - 1)), std::nullopt);
    }
}

TEST(ZipService, LeavesNoFileOpen) {
    const ScratchFile good(SmallZip().Bytes()), bad("plain text");
    const std::ptrdiff_t before = OpenDescriptors();
    for (const ScratchFile* file : {&good, &bad}) {
        ListZip(file->Path());
        UnzipEntry(file->Path(), "a.txt");
        UnzipEntry(file->Path(), "missing");
    }
    EXPECT_EQ(OpenDescriptors(), before);
}

TEST(ZipService, ReadsRegularFilesOnlyAndWaitsForNone) {
    const ScratchFile file("");
    const std::string fifo = file.Path() + ".fifo";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    for (const std::string& path :
         {fifo, std::string("/tmp"), std::string("/dev/zero"), std::string("")}) {
        EXPECT_EQ(ListZip(path), std::nullopt) << path;
        EXPECT_EQ(UnzipEntry(path, "*"), std::nullopt) << path;
    }
}

TEST(ZipService, FollowsALinkToAnArchive) {
    const ScratchFile file(SmallZip().Bytes());
    const std::string link = file.Path() + ".link";
    std::filesystem::create_symlink(file.Path(), link);
    EXPECT_EQ(UnzipEntry(link, "a.txt"), kSmallText);
}

}  // namespace
