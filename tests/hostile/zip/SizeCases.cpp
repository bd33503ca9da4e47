// Sizes and checksums that are not those of the data, and data that is no deflate stream.

#include <string>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/PackageText.h"
#include "tests/hostile/SmallPackage.h"

namespace {

using namespace vexpa_test;
using namespace std::string_literals;

constexpr std::uint32_t kPixelsCrc = 0xce113ccb;  // of "pixels"

CraftedPackages SizeCases() {
    return {
        {"SmallerThanTheData", "five bytes claimed where six come out: no half-read part",
         PictureWith([](ZipEntry& e) { e.size = 5; }), PictureUnreadable()},
        {"LargerThanTheData", "bytes that nothing wrote must not be handed out",
         PictureWith([](ZipEntry& e) { e.size = 7; }), PictureUnreadable()},
        {"ZeroForSomeData", "an entry that claims to be empty but is not",
         PictureWith([](ZipEntry& e) { e.size = 0; }), PictureUnreadable()},
        {"OfAllOnes", "four gigabytes out of a few bytes: nothing is allocated for them",
         PictureWith([](ZipEntry& e) { e.size = 0xFFFFFFFF; }), PictureUnreadable()},
        {"JustWithinTheBestRatio", "the largest size that a deflate stream could have",
         PictureWith([](ZipEntry& e) {
             e.rawData = kDeflatedPixels;
             e.size = 1032 * 8 + 65536;
         }),
         PictureUnreadable()},
        {"JustBeyondTheBestRatio", "the smallest size that no deflate stream could have",
         PictureWith([](ZipEntry& e) {
             e.rawData = kDeflatedPixels;
             e.size = 1032 * 8 + 65537;
         }),
         PictureUnreadable()},
        {"CompressedToNothing", "six bytes out of none",
         PictureWith([](ZipEntry& e) { e.compressedSize = 0; }), PictureUnreadable()},
        {"CompressedTooSmall", "the stream is cut", PictureWith([](ZipEntry& e) {
             e.rawData = kDeflatedPixels;
             e.compressedSize = 7;
         }),
         PictureUnreadable()},
        {"CompressedIntoTheDirectory", "what follows the end of a stream is not asked",
         PictureWith([](ZipEntry& e) { e.compressedSize = 40; }), SmallPackageText()},
        {"CompressedBeyondTheFile", "the claimed data would end outside the file",
         PictureWith([](ZipEntry& e) { e.compressedSize = 100'000; }), PictureUnreadable()},
        {"CompressedAllOnes", "four gigabytes of data in a small file",
         PictureWith([](ZipEntry& e) { e.compressedSize = 0xFFFFFFFF; }), PictureUnreadable()},
        {"StoredThatDiffer", "stored data cannot have two sizes", PictureWith([](ZipEntry& e) {
             e.stored = true;
             e.size = 5;
         }),
         PictureUnreadable()},
        {"StoredBothTooSmall", "the first five of six bytes are not the entry",
         PictureWith([](ZipEntry& e) {
             e.stored = true;
             e.size = e.compressedSize = 5;
         }),
         PictureUnreadable()},
        {"StoredBothTooLarge", "the entry and a byte of the directory are not the entry",
         PictureWith([](ZipEntry& e) {
             e.stored = true;
             e.size = e.compressedSize = 7;
         }),
         PictureUnreadable()},
        {"StoredBothBeyondTheFile", "stored data that would end outside the file",
         PictureWith([](ZipEntry& e) {
             e.stored = true;
             e.size = e.compressedSize = 0x7FFFFFFF;
         }),
         PictureUnreadable()},
        {"OtherInTheLocalHeader", "two headers, two opinions: the directory's counts",
         PictureWith([](ZipEntry& e) {
             e.localSize = 0xFFFFFFFF;
             e.localCompressedSize = 1;
             e.localCrc = 0;
         }),
         SmallPackageText()},
        {"TrueInTheLocalHeaderOnly", "the directory's opinion counts, also when it is wrong",
         PictureWith([](ZipEntry& e) {
             e.size = 60;
             e.localSize = 6;
         }),
         PictureUnreadable()},
        {"OfSixteenMegabytesOfZeros", "a good compressor is no attack",
         PictureWith([](ZipEntry& e) { e.content.assign(16UL << 20, '\0'); }),
         SmallPackageText("16777216 bytes, crc a47ca14a")},
        {"OfTheContentTypesLying", "without content types there is no package",
         PackageWith([](ZipFile& zip) { EntryOf(zip, kContentTypesEntry).size = 1; }), kDoesNotOpen},
        {"OfThePackageRelationshipsLying", "without relationships there is no package",
         PackageWith([](ZipFile& zip) { EntryOf(zip, kPackageRelationshipsEntry).size = 1; }),
         kDoesNotOpen},
        {"OfTheDocumentRelationshipsLying", "one broken stream costs its part no more than itself",
         PackageWith([](ZipFile& zip) { EntryOf(zip, kDocumentRelationshipsEntry).size = 1; }),
         kDocumentText},
    };
}

CraftedPackages ChecksumCases() {
    return {
        {"Wrong", "changed bytes must not pass for the part's",
         PictureWith([](ZipEntry& e) { e.crc = kPixelsCrc ^ 1; }), PictureUnreadable()},
        {"Zero", "zero is no leave to skip the check", PictureWith([](ZipEntry& e) { e.crc = 0; }),
         PictureUnreadable()},
        {"WrongOfStoredData", "the check is not the inflater's alone", PictureWith([](ZipEntry& e) {
             e.stored = true;
             e.crc = kPixelsCrc ^ 0x80000000;
         }),
         PictureUnreadable()},
        {"WrongOfNoData", "the checksum of nothing is zero", PictureWith([](ZipEntry& e) {
             e.content.clear();
             e.crc = 1;
         }),
         PictureUnreadable()},
        {"WrongInTheLocalHeader", "the directory's checksum counts",
         PictureWith([](ZipEntry& e) { e.localCrc = kPixelsCrc ^ 1; }), SmallPackageText()},
        {"RightForOtherBytes", "a stored entry with a byte changed and the old checksum",
         PictureWith([](ZipEntry& e) {
             e.stored = true;
             e.rawData = "pixelS";
         }),
         PictureUnreadable()},
    };
}

// The picture with this for its deflated data.
std::function<std::string()> DeflatedAs(std::string data) {
    return PictureWith([data = std::move(data)](ZipEntry& e) { e.rawData = data; });
}

const std::string kStoredBlock = "\x01\x06\x00\xF9\xFFpixels"s;

CraftedPackages DeflateCases() {
    return {
        {"AsOneStoredBlock", "deflate may leave data as it is", DeflatedAs(kStoredBlock),
         SmallPackageText()},
        {"AfterAThousandEmptyBlocks", "blocks that bring nothing are allowed",
         [] {
             std::string data;
             for (int i = 0; i < 1000; ++i) data += "\x00\x00\x00\xFF\xFF"s;
             return DeflatedAs(data + kStoredBlock)();
         },
         SmallPackageText()},
        {"WithBytesAfterItsEnd", "what follows the last block is not the entry's",
         DeflatedAs(kStoredBlock + std::string(100, '!')), SmallPackageText()},
        {"OfTheReservedBlockType", "block type 3 has no meaning",
         DeflatedAs("\x07"s + std::string(20, '\0')), PictureUnreadable()},
        {"WithABlockLengthThatIsNotConfirmed", "a stored block says its length twice",
         DeflatedAs("\x01\x06\x00\x00\x00pixels"s), PictureUnreadable()},
        {"WithABlockBeyondItsEnd", "a stored block longer than the data",
         DeflatedAs("\x01\xFF\xFF\x00\x00pixels"s), PictureUnreadable()},
        {"ReachingBackBeforeItsStart", "a copy from before the first byte",
         // Fixed codes: a length of 6 from distance 1, with nothing written yet.
         DeflatedAs("\x03\x13\x00\x00\x00"s), PictureUnreadable()},
        {"CutInATable", "a dynamic block that ends within its code lengths",
         DeflatedAs("\x05\xFD\xFF"s), PictureUnreadable()},
        {"OfABlockThatNeverEnds", "a last block is missing", DeflatedAs("\x00\x06\x00\xF9\xFFpixels"s),
         PictureUnreadable()},
        {"OfOneByte", "not even a block header", DeflatedAs("\xFF"s), PictureUnreadable()},
        {"OfNoBytesForAnEmptyEntry", "some writers name the method and write nothing",
         PictureWith([](ZipEntry& e) {
             e.content.clear();
             e.rawData = "";
         }),
         SmallPackageText("\"\"")},
        {"WithAnotherWrapping", "a zlib header is no deflate stream",
         DeflatedAs("\x78\x9C"s + kStoredBlock), PictureUnreadable()},
    };
}

INSTANTIATE_TEST_SUITE_P(ZipSizes, HostilePackage, testing::ValuesIn(SizeCases()), NameOfCase);
INSTANTIATE_TEST_SUITE_P(ZipChecksum, HostilePackage, testing::ValuesIn(ChecksumCases()), NameOfCase);
INSTANTIATE_TEST_SUITE_P(ZipDeflated, HostilePackage, testing::ValuesIn(DeflateCases()), NameOfCase);

}  // namespace
