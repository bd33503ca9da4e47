// Chains of sectors that run in circles, beyond the file or into one another, and sizes that they
// do not have.

#include <string>

#include "runtime/com/CompoundCheck.h"
#include "tests/hostile/PackageText.h"
#include "tests/hostile/compound/CraftedStorage.h"

namespace {

using namespace vexpa_test;
using vexpa_runtime::kMaxTableEntries;

std::string Large(const std::string& large) {
    return SmallCompoundText(BytesText(kInnerText), BytesText(kSmallText), large);
}

std::string Small(const std::string& small) {
    return SmallCompoundText(BytesText(kInnerText), small, BytesText(LargeContent()));
}

std::string NoSmall() {
    return SmallCompoundText(kUnreadable, kUnreadable, BytesText(LargeContent()));
}

std::uint32_t StartOf(const CompoundImage& image, std::u16string_view name) {
    return image.Get32(image.EntryOf(name) + kStart);
}

// Where the chain of the large stream goes on from its sector `number`.
std::function<std::string()> LargeGoesOn(std::uint32_t number,
                                         std::function<std::uint32_t(const CompoundImage&)> to) {
    return CompoundWith([=](CompoundImage& image) {
        image.Put32(image.FatAt(StartOf(image, u"Large") + number), to(image));
    });
}

std::function<std::string()> LargeGoesOn(std::uint32_t number, std::uint32_t to) {
    return LargeGoesOn(number, [=](const CompoundImage&) { return to; });
}

std::function<std::string()> With(std::u16string name, std::size_t field, std::uint32_t value) {
    return CompoundWith([=](CompoundImage& image) { image.Put32(image.EntryOf(name) + field, value); });
}

// The large stream begins with the FAT's sector.
CompoundImage LargeFromTheFat() {
    CompoundImage image = SmallCompound();
    image.Put32(image.FatAt(0), StartOf(image, u"Large"));
    image.Put32(image.EntryOf(u"Large") + kStart, 0);
    return image;
}

CraftedStorages FatCases() {
    return {
        {"ASectorAfterItself", "the smallest circle", kNoStorage,
         LargeGoesOn(4, [](const CompoundImage& image) { return StartOf(image, u"Large") + 4; })},
        {"TheLastSectorBeforeTheFirst", "the largest circle", kNoStorage,
         LargeGoesOn(9, [](const CompoundImage& image) { return StartOf(image, u"Large"); })},
        {"AChainIntoItsMiddle", "a circle that the start is not in", kNoStorage,
         LargeGoesOn(9, [](const CompoundImage& image) { return StartOf(image, u"Large") + 5; })},
        {"AChainThatEndsEarly", "five sectors of ten", Large(kUnreadable), LargeGoesOn(4, kEnd)},
        {"AChainThatEndsAtAFreeSector", "a free sector ends it as well", Large(kUnreadable),
         LargeGoesOn(4, kFree)},
        {"AChainThatEndsAtAMark", "the FAT's own mark is no sector", Large(kUnreadable),
         LargeGoesOn(4, kFatSector)},
        {"AChainBeyondTheFat", "a number that means nothing: neither does the table", kNoStorage,
         LargeGoesOn(4, 1'000'000)},
        {"AChainThatWrapsAround", "the largest sector, whose offset runs over 32 bits", kNoStorage,
         LargeGoesOn(4, 0xFFFFFFFA)},
        {"AChainThatEndsAtANumberThatIsNoMark", "the number after that", kNoStorage,
         LargeGoesOn(4, 0xFFFFFFFB)},
        {"AChainBeyondTheFile", "a sector that the table knows and the file has not",
         Large(kUnreadable), LargeGoesOn(8, 100)},
        {"AChainThatGoesOn", "the size says where a stream ends", SmallCompoundText(),
         LargeGoesOn(9, [](const CompoundImage& image) { return image.MiniStream(); })},
        {"AChainOutOfOrder", "sectors may lie anywhere", Large(BytesText([] {
             std::string content = LargeContent();
             const std::string third = content.substr(2 * 512, 512);
             content.replace(2 * 512, 512, content.substr(3 * 512, 512));
             return content.replace(3 * 512, 512, third);
         }())),
         CompoundWith([](CompoundImage& image) {
             const std::uint32_t start = StartOf(image, u"Large");
             image.Put32(image.FatAt(start + 1), start + 3);
             image.Put32(image.FatAt(start + 3), start + 2);
             image.Put32(image.FatAt(start + 2), start + 4);
         })},
        {"AStreamOfTheFat", "a stream may show the table, but not more", Large(BytesText([] {
             const CompoundImage image = LargeFromTheFat();
             return image.bytes.substr(image.SectorAt(0), 512) + LargeContent().substr(0, 4'488);
         }())),
         [] { return LargeFromTheFat().bytes; }},
        {"TheDirectoryAfterItself", "a directory without an end", kNoStorage,
         CompoundWith([](CompoundImage& image) {
             image.Put32(image.FatAt(image.Directory()), image.Directory());
         })},
        {"TheDirectoryIntoACircle", "by way of another chain", kNoStorage,
         CompoundWith([](CompoundImage& image) {
             const std::uint32_t start = StartOf(image, u"Large");
             image.Put32(image.FatAt(image.Directory() + 1), start);
             image.Put32(image.FatAt(start + 9), image.Directory());
         })},
        {"TheDirectoryThatEndsEarly", "an entry outside it", kNoStorage,
         CompoundWith([](CompoundImage& image) { image.Put32(image.FatAt(image.Directory()), kEnd); })},
        {"TheDirectoryBeyondTheFile", "a sector that is not there", kNoStorage,
         CompoundWith(
             [](CompoundImage& image) { image.Put32(image.FatAt(image.Directory() + 1), 100); })},
        {"TheDirectoryThatGoesOn", "entries that nothing leads to", SmallCompoundText(),
         CompoundWith([](CompoundImage& image) {
             image.Put32(image.FatAt(image.Directory() + 1), StartOf(image, u"Large"));
         })},
        {"AllFree", "nothing is in any chain", kNoStorage, CompoundWith([](CompoundImage& image) {
             for (std::uint32_t i = 0; i < 128; ++i) image.Put32(image.FatAt(i), kFree);
         })},
    };
}

CraftedStorages DifatCases() {
    const auto difat = [](std::size_t fatSectors, std::function<void(CompoundImage&)> change) {
        return [=] {
            CompoundImage image = SmallCompound({.fatSectors = fatSectors});
            change(image);
            return image.bytes;
        };
    };
    // The last number of a sector leads to the next one.
    const auto next = [](const CompoundImage& image, std::uint32_t i) {
        return image.SectorAt(image.Difat() + i) + 508;
    };
    return {
        {"AfterItself", "the one sector again, for as often as is said", SmallCompoundText(),
         difat(300, [=](CompoundImage& image) { image.Put32(next(image, 0), image.Difat()); })},
        {"InACircle", "two sectors in turn, for a count without an end", kNoStorage,
         difat(300,
               [=](CompoundImage& image) {
                   image.Put32(next(image, 1), image.Difat());
                   image.Put32(kDifatCount, 0xFFFFFFFF);
               })},
        {"BeyondTheFile", "a sector that is not there", kNoStorage,
         difat(300, [=](CompoundImage& image) { image.Put32(next(image, 0), 1'000'000); })},
        {"ThatStartsBeyondTheFile", "a sector that is not there", kNoStorage,
         difat(110, [](CompoundImage& image) { image.Put32(kDifatStart, 1'000'000); })},
        {"ThatStartsAtTheEnd", "FAT sectors that nobody tells of", kNoStorage,
         difat(110, [](CompoundImage& image) { image.Put32(kDifatStart, kEnd); })},
        {"OfACountOf0", "as above", kNoStorage,
         difat(110, [](CompoundImage& image) { image.Put32(kDifatCount, 0); })},
        {"ThatNamesTheFirstSectorAgain", "two parts of the table in one sector", SmallCompoundText(),
         difat(110, [](CompoundImage& image) { image.Put32(image.SectorAt(image.Difat()), 0); })},
        {"ThatNamesASectorBeyondTheFile", "a table that is not there", kNoStorage,
         difat(110,
               [](CompoundImage& image) { image.Put32(image.SectorAt(image.Difat()), 1'000'000); })},
        {"ThatNamesItself", "numbers of sectors are chains of a kind", SmallCompoundText(),
         difat(
             110,
             [](CompoundImage& image) { image.Put32(image.SectorAt(image.Difat()), image.Difat()); })},
        {"OfTheLargestTable", "its marks are on the stack", SmallCompoundText(),
         difat(kMaxTableEntries / 128, [](CompoundImage&) {})},
        {"OfALargerTable", "so there is an end", kNoStorage,
         difat(kMaxTableEntries / 128 + 1, [](CompoundImage&) {})},
    };
}

CraftedStorages MiniCases() {
    return {
        {"AMiniSectorAfterItself", "the smallest circle", kNoStorage,
         CompoundWith([](CompoundImage& image) { image.Put32(image.MiniFatAt(1), 1); })},
        {"TwoMiniSectorsInTurn", "a circle through two streams", kNoStorage,
         CompoundWith([](CompoundImage& image) {
             image.Put32(image.MiniFatAt(0), 1);
             image.Put32(image.MiniFatAt(1), 0);
         })},
        {"ACircleWithoutACount", "the count that says how long the table is says nothing", kNoStorage,
         CompoundWith([](CompoundImage& image) {
             image.Put32(image.MiniFatAt(1), 1);
             image.Put32(kMiniFatCount, 0);
         })},
        {"AChainBeyondTheMiniFat", "a number that means nothing: neither does the table", kNoStorage,
         CompoundWith([](CompoundImage& image) { image.Put32(image.MiniFatAt(1), 1'000'000); })},
        {"AFreeMiniSectorThatGoesOn", "also where no stream is", kNoStorage,
         CompoundWith([](CompoundImage& image) { image.Put32(image.MiniFatAt(127), 128); })},
        {"AChainThatIsFree", "the size says so", SmallCompoundText(),
         CompoundWith([](CompoundImage& image) { image.Put32(image.MiniFatAt(1), kFree); })},
        {"AStreamLongerThanItsChain", "65 bytes in a mini sector of 64", Small(kUnreadable),
         With(u"Small", kSize, 65)},
        {"AStreamBeyondTheMiniStream", "a mini sector that the table knows and the stream has not",
         Small(kUnreadable), With(u"Small", kStart, 100)},
        {"AStreamBeyondTheMiniFat", "a mini sector that no table knows", Small(kUnreadable),
         With(u"Small", kStart, 1'000'000)},
        {"AStreamInAnothersPlace", "two streams in one mini sector",
         SmallCompoundText(BytesText("small "), BytesText(kSmallText), BytesText(LargeContent())),
         With(u"Inner", kStart, 0)},
        {"AMiniFatAfterItself", "a table without an end", kNoStorage,
         CompoundWith(
             [](CompoundImage& image) { image.Put32(image.FatAt(image.MiniFat()), image.MiniFat()); })},
        {"AMiniFatAfterItselfWithoutACount", "the count says nothing", kNoStorage,
         CompoundWith([](CompoundImage& image) {
             image.Put32(image.FatAt(image.MiniFat()), image.MiniFat());
             image.Put32(kMiniFatCount, 0);
         })},
        {"AMiniFatBeyondTheFile", "a table that goes on outside", kNoStorage,
         CompoundWith([](CompoundImage& image) { image.Put32(image.FatAt(image.MiniFat()), 100); })},
        {"AMiniFatOfTheDirectory", "names are no chains", kNoStorage,
         CompoundWith([](CompoundImage& image) { image.Put32(kMiniFatStart, image.Directory()); })},
        {"AMiniStreamAfterItself", "a stream without an end", kNoStorage,
         CompoundWith([](CompoundImage& image) {
             image.Put32(image.FatAt(image.MiniStream()), image.MiniStream());
         })},
        {"AMiniStreamBeyondTheFat", "a sector that no table knows", NoSmall(),
         CompoundWith([](CompoundImage& image) { image.Put32(image.EntryAt(0) + kStart, 1'000'000); })},
        {"AMiniStreamOfNoStart", "no sector at all", NoSmall(),
         CompoundWith([](CompoundImage& image) { image.Put32(image.EntryAt(0) + kStart, kEnd); })},
        {"AMiniStreamOfNoSize", "streams in it lie outside", NoSmall(),
         CompoundWith([](CompoundImage& image) { image.Put32(image.EntryAt(0) + kSize, 0); })},
        {"AMiniStreamOfOneSector", "the second stream in it lies outside",
         SmallCompoundText(kUnreadable, BytesText(kSmallText), BytesText(LargeContent())),
         CompoundWith([](CompoundImage& image) { image.Put32(image.EntryAt(0) + kSize, 64); })},
        {"AMiniStreamOfHalfASector", "and half of the first one", NoSmall(),
         CompoundWith([](CompoundImage& image) { image.Put32(image.EntryAt(0) + kSize, 3); })},
        {"AMiniStreamOfAnySize", "writers get it wrong; the chain says enough", SmallCompoundText(),
         CompoundWith([](CompoundImage& image) { image.Put32(image.EntryAt(0) + kSize, 0xFFFFFFFF); })},
    };
}

CraftedStorages SizeCases() {
    return {
        {"OfAnEmptyStream", "a chain that nobody reads", Large("\"\""), With(u"Large", kSize, 0)},
        {"OfLessThanItsChain", "the size says where it ends",
         Large(BytesText(LargeContent().substr(0, 4'096))), With(u"Large", kSize, 4'096)},
        {"OfAllOfItsChain", "the rest of the last sector is zeros",
         Large(BytesText(LargeContent() + std::string(120, '\0'))), With(u"Large", kSize, 5'120)},
        {"OfAByteMoreThanItsChain", "a byte of the next sector", Large(kUnreadable),
         With(u"Large", kSize, 5'121)},
        {"OfTheFile", "as many bytes as a stream can have, were it all there", Large(kUnreadable),
         With(u"Large", kSize, 8'192)},
        {"OfMoreThanTheFile", "an entry that libgsf would drop, with all that hangs on it", kNoStorage,
         With(u"Large", kSize, 8'193)},
        {"OfASmallStreamOfAllOnes", "four gigabytes", kNoStorage, With(u"Small", kSize, 0xFFFFFFFF)},
        {"OfASmallStreamForALargeOne", "sectors taken for mini sectors", Large(kUnreadable),
         With(u"Large", kSize, 4'095)},
        {"OfALargeStreamForASmallOne", "mini sectors taken for sectors", Small(kUnreadable),
         With(u"Small", kSize, 4'096)},
        {"OfMoreThan32Bits", "files of 512-byte sectors have no such", SmallCompoundText(),
         With(u"Large", kSizeHigh, 0xFFFFFFFF)},
        {"OfAStorage", "a storage has no bytes", SmallCompoundText(), With(u"D", kSize, 0xFFFFFFFF)},
        {"OfAStorageWithAStart", "wherever they would be", SmallCompoundText(), With(u"D", kStart, 0)},
    };
}

INSTANTIATE_TEST_SUITE_P(CompoundFat, HostileStorage, testing::ValuesIn(FatCases()), NameOfStorage);
INSTANTIATE_TEST_SUITE_P(CompoundDifat, HostileStorage, testing::ValuesIn(DifatCases()), NameOfStorage);
INSTANTIATE_TEST_SUITE_P(CompoundMini, HostileStorage, testing::ValuesIn(MiniCases()), NameOfStorage);
INSTANTIATE_TEST_SUITE_P(CompoundSizes, HostileStorage, testing::ValuesIn(SizeCases()), NameOfStorage);

}  // namespace
