// The record at the end of an archive, what stands around it, and what it gets wrong.

#include <string>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/SmallPackage.h"

namespace {

using namespace vexpa_test;
using namespace std::string_literals;

constexpr std::size_t kEndSize = 22;

std::string EndRecord(const std::string& bytes) {
    return bytes.substr(bytes.size() - kEndSize);
}

// The small package with another picture, to tell two archives of one file apart.
std::string OtherPackage() {
    return SmallPackageWith(kPictureEntry, "others").Bytes();
}

CraftedPackages EndRecordCases() {
    return {
        {"Missing", "a directory without an end record is not found",
         [] {
             const std::string bytes = SmallPackage().Bytes();
             return bytes.substr(0, bytes.size() - kEndSize);
         },
         kDoesNotOpen},
        {"CutByAByte", "the last byte of a download is missing",
         [] {
             const std::string bytes = SmallPackage().Bytes();
             return bytes.substr(0, bytes.size() - 1);
         },
         kDoesNotOpen},
        {"Alone", "an archive of no entries is no package", [] { return ZipFile().Bytes(); },
         kDoesNotOpen},
        {"OfNoEntriesAfterAllEntries", "the directory is there, but is said to be empty",
         PackageWith([](ZipFile& zip) {
             zip.entryCount = 0;
             zip.directorySize = 0;
         }),
         kDoesNotOpen},
        {"WithTooSmallACount", "a count that ran over is common; the size says how many",
         PackageWith([](ZipFile& zip) { zip.entryCount = 1; }), SmallPackageText()},
        {"WithTooLargeACount", "entries that are not there are not made up",
         PackageWith([](ZipFile& zip) { zip.entryCount = 6; }), SmallPackageText()},
        {"WithACountOfZero", "the count alone does not empty an archive",
         PackageWith([](ZipFile& zip) { zip.entryCount = 0; }), SmallPackageText()},
        {"WithACountOfAllOnes", "and asks for no zip64 record where there is none",
         PackageWith([](ZipFile& zip) { zip.entryCount = 0xFFFF; }), SmallPackageText()},
        {"WithTooSmallASize", "count and offset agree with the file",
         PackageWith([](ZipFile& zip) { zip.directorySize = 46; }), SmallPackageText()},
        {"WithTooLargeASize", "a directory said to begin before the archive",
         PackageWith([](ZipFile& zip) { zip.directorySize = 0x7FFFFFFF; }), SmallPackageText()},
        {"WithASizeOfZero", "count and offset agree with the file",
         PackageWith([](ZipFile& zip) { zip.directorySize = 0; }), SmallPackageText()},
        {"WithWrongCountAndSize", "one field is not enough to go by", PackageWith([](ZipFile& zip) {
             zip.entryCount = 4;
             zip.directorySize = 46;
         }),
         kDoesNotOpen},
        {"WithBytesBetweenItAndTheDirectory", "a signature of the directory, say",
         PackageWith([](ZipFile& zip) { zip.gap = std::string(1000, 'g'); }), SmallPackageText()},
        {"OnAnotherDisk", "one file cannot be a disk of several",
         PackageWith([](ZipFile& zip) { zip.disk = 1; }), kDoesNotOpen},
        {"OnADiskThatAllEntriesAreOn", "the numbers agree, so every entry is here",
         PackageWith([](ZipFile& zip) {
             zip.disk = 3;
             for (ZipEntry& e : zip.entries) e.disk = 3;
         }),
         SmallPackageText()},
        {"OnADiskThatThePictureIsNotOn", "an entry on another disk is not here",
         PictureWith([](ZipEntry& e) { e.disk = 1; }), PictureUnreadable()},
    };
}

CraftedPackages AroundCases() {
    return {
        {"BytesBeforeTheArchive", "offsets count from the archive's start",
         PackageWith([](ZipFile& zip) { zip.prefix = std::string(10'000, '#'); }), SmallPackageText()},
        {"BytesBeforeTheArchiveThatOffsetsCount", "offsets count from the file's start",
         [] {
             ZipFile zip = SmallPackage();
             zip.prefix = std::string(10'000, '#');
             const std::string bytes = zip.Bytes();
             zip.directoryOffset = bytes.find("PK\x01\x02");
             for (ZipEntry& e : zip.entries) e.localOffset = bytes.find(e.name) - 30;
             return zip.Bytes();
         },
         SmallPackageText()},
        {"AnArchiveBefore", "of two archives the last one is the file's",
         [] { return OtherPackage() + SmallPackage().Bytes(); }, SmallPackageText()},
        {"AnArchiveAfter", "which is the second one here",
         [] { return SmallPackage().Bytes() + OtherPackage(); }, SmallPackageText("\"others\"")},
        {"ACompoundFileBefore", "an archive inside a compound file is not the document",
         PackageWith([](ZipFile& zip) { zip.prefix = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"s; }),
         kDoesNotOpen},
        {"TheHeadCutOff", "the first entry lost its first bytes, and offsets are too large by as much",
         [] { return SmallPackage().Bytes().substr(10); }, kDoesNotOpen},
        {"TheHeadCutOffAnUnneededEntry", "what remains whole is read",
         [] {
             ZipFile zip;
             zip.Add("thumbnail", "nobody asks for it").stored = true;
             for (const ZipEntry& e : SmallPackage().entries) zip.entries.push_back(e);
             return zip.Bytes().substr(20);
         },
         SmallPackageText()},
        {"OneByteAfterTheArchive", "a line feed from a careless tool",
         PackageWith([](ZipFile& zip) { zip.suffix = "\n"; }), SmallPackageText()},
        {"AsManyBytesAfterItAsACommentCanHave", "the longest tail that is searched",
         PackageWith([](ZipFile& zip) { zip.suffix = std::string(65'535, '\0'); }), SmallPackageText()},
        {"OneByteMoreAfterItThanThat", "the search has an end",
         PackageWith([](ZipFile& zip) { zip.suffix = std::string(65'536, '\0'); }), kDoesNotOpen},
        {"TheLongestComment", "an end record as far from the end as can be",
         PackageWith([](ZipFile& zip) { zip.comment = std::string(65'535, 'c'); }), SmallPackageText()},
        {"ACommentThatWasCut", "a comment length beyond the end of the file",
         PackageWith([](ZipFile& zip) { zip.commentSize = 0xFFFF; }), SmallPackageText()},
        {"ACommentLongerThanItSays", "bytes after the comment", PackageWith([](ZipFile& zip) {
             zip.comment = "comment";
             zip.commentSize = 0;
         }),
         SmallPackageText()},
        {"ACommentWithTheSignature", "four bytes are no end record",
         PackageWith([](ZipFile& zip) { zip.comment = "PK\x05\x06"; }), SmallPackageText()},
        {"ACommentWithAnEndRecordOfNothing", "a false record behind which there is no directory",
         PackageWith([](ZipFile& zip) {
             ZipFile lie;
             lie.entryCount = 5;
             lie.directorySize = 300;
             lie.directoryOffset = 3;
             zip.comment = "before" + lie.Bytes() + "after";
         }),
         SmallPackageText()},
        {"ACommentWithItsOwnEndRecord", "the copy leads to the same directory",
         [] {
             ZipFile zip = SmallPackage();
             zip.comment = EndRecord(zip.Bytes());
             return zip.Bytes();
         },
         SmallPackageText()},
        {"ACommentWithAnArchive", "is two archives, of which the last one is the file's",
         PackageWith([](ZipFile& zip) { zip.comment = OtherPackage(); }),
         SmallPackageText("\"others\"")},
        {"AnEntryWithAnArchive", "a stored archive that is a part is no more than a part",
         PictureWith([](ZipEntry& e) {
             e.stored = true;
             e.content = "pixels";
             e.localExtra = OtherPackage();
         }),
         SmallPackageText()},
        {"FalseEndRecordsUpToTheLimit", "seven that look like more than they are",
         [] {
             ZipFile zip = SmallPackage();
             zip.directorySize = 46;
             zip.entryCount = 3;
             const std::string lie = EndRecord(zip.Bytes());
             std::string bytes = SmallPackage().Bytes();
             for (int i = 0; i < 7; ++i) bytes += lie;
             return bytes;
         },
         SmallPackageText()},
        {"FalseEndRecordsBeyondTheLimit", "each costs a walk over the directory, so eight are enough",
         [] {
             ZipFile zip = SmallPackage();
             zip.directorySize = 46;
             zip.entryCount = 3;
             const std::string lie = EndRecord(zip.Bytes());
             std::string bytes = SmallPackage().Bytes();
             for (int i = 0; i < 8; ++i) bytes += lie;
             return bytes;
         },
         kDoesNotOpen},
    };
}

INSTANTIATE_TEST_SUITE_P(ZipEndRecord, HostilePackage, testing::ValuesIn(EndRecordCases()), NameOfCase);
INSTANTIATE_TEST_SUITE_P(ZipWith, HostilePackage, testing::ValuesIn(AroundCases()), NameOfCase);

}  // namespace
