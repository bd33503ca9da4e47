#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <string>

#include "tests/support/FaultRuntime.h"
#include "tests/support/ScratchFile.h"
#include "tests/support/ZipFile.h"
#include "vexpa/zip/ExtractEntry.h"
#include "vexpa/zip/UnZipArchive.h"
#include "vexpa/zip/UnZipArchiveImpl.h"

namespace {

using namespace lumo::Compression::Zip;
using namespace vexpa_test;

class ExtractEntry : public testing::Test {
protected:
    // The bytes of the entry; `result` tells how the extraction ended.
    std::string Extract(const ScratchFile& file, const char16_t* entry, HRESULT& result) {
        UnZipArchiveImpl archive;
        archive.archivePath = file.Path16();
        UzpBuffer buffer{};
        result = ExtractEntryToMemory(archive, entry, &buffer);
        const std::string bytes =
            buffer.strptr == nullptr ? std::string() : std::string(buffer.strptr, buffer.strlength);
        std::free(buffer.strptr);
        return bytes;
    }

    ZipFile zip_;
    HRESULT result_ = 1;
};

TEST_F(ExtractEntry, GivesTheBytesOfTheEntry) {
    zip_.Add("a/b.xml", "some bytes");
    const ScratchFile file(zip_.Bytes());
    EXPECT_EQ(Extract(file, u"a/b.xml", result_), "some bytes");
    EXPECT_EQ(result_, S_OK);
}

TEST_F(ExtractEntry, OfZeroBytesSucceedsWithNone) {
    zip_.Add("empty", "");
    const ScratchFile file(zip_.Bytes());
    EXPECT_EQ(Extract(file, u"empty", result_), "");
    EXPECT_EQ(result_, S_OK);
}

TEST_F(ExtractEntry, ThatTheArchiveLacksFailsAndPrintsNothing) {
    zip_.Add("a", "a");
    const ScratchFile file(zip_.Bytes());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    Extract(file, u"b", result_);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(result_, E_FAIL);
}

TEST_F(ExtractEntry, OfAMissingFileFails) {
    const ScratchFile file("");
    file.Remove();
    Extract(file, u"a", result_);
    EXPECT_EQ(result_, E_FAIL);
}

TEST_F(ExtractEntry, ThatIsDamagedFails) {
    zip_.Add("a", "a").crc = 1;
    const ScratchFile file(zip_.Bytes());
    Extract(file, u"a", result_);
    EXPECT_EQ(result_, E_FAIL);
}

TEST_F(ExtractEntry, ThatIsEncryptedFails) {
    zip_.Add("a", "a").flags = 1;
    const ScratchFile file(zip_.Bytes());
    Extract(file, u"a", result_);
    EXPECT_EQ(result_, E_FAIL);
}

TEST_F(ExtractEntry, TakesAPattern) {
    zip_.Add("[Content_Types].xml", "types");
    const ScratchFile file(zip_.Bytes());
    EXPECT_EQ(Extract(file, u"\\[Content_Types\\].xml", result_), "types");
}

TEST_F(ExtractEntry, OfAPathOutsideAsciiGoesThroughTheLocale) {
    // The test programs run in a UTF-8 locale.
    zip_.Add("a\xc3\xa4.xml", "umlaut");
    const ScratchFile file(zip_.Bytes(), "Bericht-\xc3\xbc\xe2\x82\xac.docx");
    EXPECT_EQ(Extract(file, u"a\u00e4.xml", result_), "umlaut");
    EXPECT_EQ(result_, S_OK);
}

TEST_F(ExtractEntry, OfANameThatTheLocaleLacksIsAPattern) {
    // UTF-8 has no form of an unpaired surrogate.
    zip_.Add("aXb", "any character");
    const ScratchFile file(zip_.Bytes());
    const char16_t name[] = {u'a', 0xD800, u'b', 0};
    EXPECT_EQ(Extract(file, name, result_), "any character");
}

TEST_F(ExtractEntry, OfANameWithAByteOrderMarkFails) {
    zip_.Add(
        "\xef\xbb\xbf"
        "a.xml",
        "a");
    const ScratchFile file(zip_.Bytes());
    Extract(file, u"\uFEFFa.xml", result_);
    EXPECT_EQ(result_, E_FAIL);
}

TEST_F(ExtractEntry, OfANameBehindAByteOrderMarkIsThatOfTheNameWithoutIt) {
    zip_.Add("a", "another");
    const ScratchFile file(zip_.Bytes());
    EXPECT_EQ(Extract(file, u"\uFEFFa", result_), "another");
    EXPECT_EQ(Extract(file, u"\uFFFE\u6100", result_), "another") << "the other byte order";
}

TEST_F(ExtractEntry, TellsTheShortRecordLength) {
    zip_.Add("a", "a");
    const ScratchFile file(zip_.Bytes());
    FaultRuntime platform;
    Extract(file, u"a", result_);
    EXPECT_EQ(platform.CallbacksLength(), 24u);
}

TEST_F(ExtractEntry, AnswersAMessageAndShowsNothing) {
    zip_.Add("a", "a");
    const ScratchFile file(zip_.Bytes());
    FaultRuntime platform;
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    Extract(file, u"a", result_);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(platform.MessageAnswer(), 0);
}

TEST_F(ExtractEntry, IsDoneAfreshEachTime) {
    zip_.Add("a", "old");
    const ScratchFile file(zip_.Bytes());
    EXPECT_EQ(Extract(file, u"a", result_), "old");
    ZipFile changed;
    changed.Add("a", "new");
    file.Write(changed.Bytes());
    EXPECT_EQ(Extract(file, u"a", result_), "new");
}

TEST_F(ExtractEntry, ToABlockThatCannotBeHadKeepsOrLosesTheBytesAsTold) {
    zip_.Add("a", "a");
    const ScratchFile file(zip_.Bytes());
    UnZipArchiveImpl archive;
    archive.archivePath = file.Path16();
    for (const OnBlockFailure rule : {OnBlockFailure::FreeBytes, OnBlockFailure::LoseBytes}) {
        FaultRuntime platform;
        platform.FailCall("_XGblAlloc");
        HGBL block = nullptr;
        EXPECT_EQ(ExtractEntryToBlock(archive, u"a", rule, &block), E_OUTOFMEMORY);
        EXPECT_EQ(block, nullptr);
        EXPECT_EQ(platform.LostBuffers(), rule == OnBlockFailure::LoseBytes ? 1u : 0u);
    }
}

}  // namespace
