// Entries that begin where they should not, and entries that share bytes.

#include <string>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/PackageText.h"
#include "tests/hostile/SmallPackage.h"
#include "tests/opc/PackageFile.h"

namespace {

using namespace vexpa_test;
using namespace std::string_literals;

// Where the local header of an entry of the small package lies; its name stands nowhere before.
std::uint64_t PositionOf(std::string_view entry) {
    constexpr std::size_t kHeaderSize = 30;
    return SmallPackage().Bytes().find(entry) - kHeaderSize;
}

std::uint64_t DirectoryPosition() {
    return SmallPackage().Bytes().find("PK\x01\x02");
}

std::function<std::string()> PictureAt(std::uint64_t (*position)()) {
    return PictureWith([position](ZipEntry& e) { e.localOffset = position(); });
}

CraftedPackages OffsetCases() {
    return {
        {"OfAnEntryOneByteTooLarge", "the local header's signature is asked for",
         PictureAt([] { return PositionOf(kPictureEntry) + 1; }), PictureUnreadable()},
        {"OfAnEntryOneByteTooSmall", "the same from the other side",
         PictureAt([] { return PositionOf(kPictureEntry) - 1; }), PictureUnreadable()},
        {"OfAnEntryInTheDirectory", "a directory header is no local header",
         PictureAt(DirectoryPosition), PictureUnreadable()},
        {"OfAnEntryInTheEndRecord", "nor is an end record",
         PictureAt([] { return std::uint64_t{SmallPackage().Bytes().size() - 22}; }),
         PictureUnreadable()},
        {"OfAnEntryTenBytesBeforeTheEnd", "a header that would end outside the file",
         PictureAt([] { return std::uint64_t{SmallPackage().Bytes().size() - 10}; }),
         PictureUnreadable()},
        {"OfAnEntryAtTheEndOfTheFile", "nothing begins there",
         PictureAt([] { return std::uint64_t{SmallPackage().Bytes().size()}; }), PictureUnreadable()},
        {"OfAnEntryBeyondTheFile", "far outside", PictureAt([] { return std::uint64_t{0x7FFFFFFF}; }),
         PictureUnreadable()},
        {"OfAnEntryAllOnes", "all ones without the field that would say more",
         PictureAt([] { return std::uint64_t{0xFFFFFFFF}; }), PictureUnreadable()},
        {"OfAnEntryToAnotherEntry", "bytes that are not the entry's fail its checksum",
         PictureAt([] { return PositionOf(kDocumentEntry); }), PictureUnreadable()},
        {"OfTheContentTypesBeyondTheFile", "without content types there is no package",
         PackageWith([](ZipFile& zip) { EntryOf(zip, kContentTypesEntry).localOffset = 0x7FFFFFFF; }),
         kDoesNotOpen},
        {"OfTheDirectoryLyingWithARightSize", "taken for bytes put before the archive, which moves all",
         PackageWith([](ZipFile& zip) { zip.directoryOffset = 7; }), kDoesNotOpen},
        {"OfTheDirectoryAllOnes", "the same without a zip64 record",
         PackageWith([](ZipFile& zip) { zip.directoryOffset = 0xFFFFFFFF; }), kDoesNotOpen},
        {"OfTheDirectoryLyingWithAWrongSize", "nothing in the file bears the end record out",
         PackageWith([](ZipFile& zip) {
             zip.directoryOffset = 7;
             zip.directorySize = 7;
         }),
         kDoesNotOpen},
        {"OfTheDirectoryInTheEndRecordItself", "a directory cannot begin after its end",
         PackageWith([](ZipFile& zip) {
             zip.directoryOffset = SmallPackage().Bytes().size() - 22;
             zip.directorySize = 22;
         }),
         kDoesNotOpen},
    };
}

// Two parts that the document is related to, for what they share.
ZipFile TwoPictures() {
    ZipFile zip = SmallPackageWith(kDocumentRelationshipsEntry,
                                   RelationshipsXml(RelationshipXml("rId1", kImage, "a.png") +
                                                    RelationshipXml("rId2", kImage, "b.png")));
    zip.Add("word/b.png", "pixels");
    return zip;
}

std::string TwoPicturesText(const std::string& first, const std::string& second) {
    return kDocumentText +
           "word/document.xml: rId1 image -> word/a.png\n"
           "word/document.xml: rId2 image -> word/b.png\n"
           "word/a.png: image/png " +
           first + "\nword/b.png: image/png " + second + "\n";
}

// The bytes of a stored entry of this name and content, as another entry may hold them.
std::string StoredEntry(const std::string& name, const std::string& content) {
    ZipFile zip;
    zip.Add(name, content).stored = true;
    const std::string bytes = zip.Bytes();
    return bytes.substr(0, bytes.find("PK\x01\x02"));
}

CraftedPackages SharingCases() {
    return {
        {"OneBlockForTwoEntries", "both say the truth about the same bytes",
         [] {
             ZipFile zip = TwoPictures();
             ZipEntry& second = EntryOf(zip, "word/b.png");
             EntryOf(zip, kPictureEntry).rawData = kDeflatedPixels;
             second.directoryOnly = true;
             second.compressedSize = kDeflatedPixels.size();
             second.localOffset = zip.Bytes().find(kPictureEntry) - 30;
             return zip.Bytes();
         },
         TwoPicturesText("\"pixels\"", "\"pixels\"")},
        {"OneBlockForAThousandEntries", "asked for by one name, one entry is read",
         PackageWith([](ZipFile& zip) {
             EntryOf(zip, kPictureEntry).rawData = kDeflatedPixels;
             const std::uint64_t position = PositionOf(kPictureEntry);
             for (int i = 0; i < 1000; ++i) {
                 ZipEntry& e = zip.Add("word/" + std::to_string(i) + ".png", "pixels");
                 e.directoryOnly = true;
                 e.compressedSize = kDeflatedPixels.size();
                 e.localOffset = position;
             }
         }),
         SmallPackageText()},
        {"AnEntryInsideAStoredOne", "an archive within an entry, whose entry the directory lists",
         [] {
             ZipFile zip = TwoPictures();
             EntryOf(zip, kPictureEntry).content = StoredEntry("word/b.png", "pixels");
             EntryOf(zip, kPictureEntry).stored = true;
             ZipEntry& inner = EntryOf(zip, "word/b.png");
             inner.stored = inner.directoryOnly = true;
             inner.localOffset = zip.Bytes().find("word/b.png") - 30;
             return zip.Bytes();
         },
         TwoPicturesText(BytesText(StoredEntry("word/b.png", "pixels")), "\"pixels\"")},
        {"AnEntryThatRunsOverTheNext", "its true bytes are those of both, headers included",
         [] {
             ZipFile zip = TwoPictures();
             const std::string next = StoredEntry("word/b.png", "pixels");
             ZipEntry& first = EntryOf(zip, kPictureEntry);
             first.stored = true;
             first.rawData = "pixels";
             first.content = "pixels" + next;
             first.compressedSize = first.content.size();
             EntryOf(zip, "word/b.png").stored = true;
             return zip.Bytes();
         },
         TwoPicturesText(BytesText("pixels" + StoredEntry("word/b.png", "pixels")), "\"pixels\"")},
        {"AnotherNameInTheLocalHeader", "the directory's name counts",
         PictureWith([](ZipEntry& e) { e.localName = "word/other.png"; }), SmallPackageText()},
        {"ALocalNameOf65535Bytes", "the data begins after the local name, however long",
         PictureWith([](ZipEntry& e) { e.localName = std::string(65'535, 'n'); }), SmallPackageText()},
        {"ALocalExtraFieldOf65535Bytes", "and after the local extra data",
         PictureWith([](ZipEntry& e) { e.localExtra = std::string(65'535, 'x'); }), SmallPackageText()},
        {"ALocalNameThatEndsOutsideTheFile", "a header that claims more than the file has",
         [] {
             std::string bytes = SmallPackage().Bytes();
             bytes.replace(PositionOf(kPictureEntry) + 26, 2, "\xFF\xFF");
             return bytes;
         },
         PictureUnreadable()},
        {"TheDirectoryHeaderInsideAnEntry", "an entry that holds a copy of the directory is data",
         [] {
             const std::string bytes = SmallPackage().Bytes();
             ZipFile zip = SmallPackage();
             ZipEntry& e = zip.Add("copy", bytes.substr(DirectoryPosition()));
             e.stored = true;
             return zip.Bytes();
         },
         SmallPackageText()},
    };
}

INSTANTIATE_TEST_SUITE_P(ZipOffset, HostilePackage, testing::ValuesIn(OffsetCases()), NameOfCase);
INSTANTIATE_TEST_SUITE_P(ZipSharing, HostilePackage, testing::ValuesIn(SharingCases()), NameOfCase);

}  // namespace
