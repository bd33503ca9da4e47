// Headers of compound files that lie, and those that are odd and true.

#include <string>

#include "tests/hostile/PackageText.h"
#include "tests/hostile/compound/CraftedStorage.h"

namespace {

using namespace vexpa_test;
using namespace std::string_literals;

auto With16(std::size_t at, std::uint16_t value) {
    return CompoundWith([=](CompoundImage& image) { image.Put16(at, value); });
}

auto With32(std::size_t at, std::uint32_t value) {
    return CompoundWith([=](CompoundImage& image) { image.Put32(at, value); });
}

std::string WithoutSmallStreams() {
    return SmallCompoundText(kUnreadable, kUnreadable, BytesText(LargeContent()));
}

CraftedStorages SoundCases() {
    return {
        {"OfVersion3", "what the others are made from is not at fault itself", SmallCompoundText(),
         [] { return SmallCompound().bytes; }},
        {"OfVersion4", "sectors of 4,096 bytes", SmallCompoundText(),
         [] { return SmallCompound({.sectorShift = 12}).bytes; }},
        {"OfManyFatSectors", "as many as the header can name", SmallCompoundText(),
         [] { return SmallCompound({.fatSectors = 109}).bytes; }},
        {"WithADifat", "one FAT sector more than that", SmallCompoundText(),
         [] { return SmallCompound({.fatSectors = 110}).bytes; }},
        {"WithALongDifat", "three sectors that tell where the FAT is", SmallCompoundText(),
         [] { return SmallCompound({.fatSectors = 109 + 2 * 127 + 1}).bytes; }},
        {"WithNothingInIt", "a root alone", "{}", [] { return CompoundImage({}).bytes; }},
        {"WithEmptyElements", "streams and storages of nothing", "{A \"\", B{}}",
         [] {
             return CompoundImage({{u"A"}, Storage(u"B")}).bytes;
         }},
        {"WithFreeSectors", "the end of a file may be unused", SmallCompoundText(),
         [] { return SmallCompound({.freeSectors = 300}).bytes; }},
    };
}

CraftedStorages SizeCases() {
    return {
        {"OfNoBytes", "an empty part is an empty stream and no storage", kNoStorage,
         [] { return std::string(); }},
        {"OfTheSignatureAlone", "eight bytes are no header", kNoStorage,
         [] { return SmallCompound().bytes.substr(0, 8); }},
        {"OfAHeaderCutByAByte", "511 bytes are none either", kNoStorage,
         [] { return SmallCompound().bytes.substr(0, 511); }},
        {"OfAHeaderAlone", "its tables are not there", kNoStorage,
         [] { return SmallCompound().bytes.substr(0, 512); }},
        {"WithBytesAfterIt", "a part of a sector", SmallCompoundText(),
         [] { return SmallCompound().bytes + "junk"; }},
        {"WithBytesBeforeIt", "the signature comes first", kNoStorage,
         [] { return "junk" + SmallCompound().bytes; }},
        {"WithALineEndConverted", "what a text transfer makes of it", kNoStorage,
         [] {
             std::string bytes = SmallCompound().bytes;
             return bytes.replace(4, 2, "\xA1\xB1\r"s);
         }},
    };
}

CraftedStorages FieldCases() {
    return {
        {"Signature", "another format", kNoStorage, With32(0, 0x04034B50)},
        {"OldSignature", "that of a trial version of long ago", kNoStorage, With32(0, 0x0DFC110E)},
        {"MinorVersion", "means nothing", SmallCompoundText(), With16(kMinorVersion, 0xFFFF)},
        {"MajorVersionOf4", "sectors are as large as the shift says", SmallCompoundText(),
         With16(kMajorVersion, 4)},
        {"MajorVersionOf0", "the shift says enough", SmallCompoundText(), With16(kMajorVersion, 0)},
        {"MajorVersionOfAllOnes", "the shift says enough", SmallCompoundText(),
         With16(kMajorVersion, 0xFFFF)},
        {"ByteOrder", "there is one only, whatever is said", SmallCompoundText(),
         With16(kByteOrder, 0xFEFF)},
        {"SectorShiftOf0", "sectors of a byte", kNoStorage, With16(kSectorShift, 0)},
        {"SectorShiftOf6", "sectors as small as mini sectors", kNoStorage, With16(kSectorShift, 6)},
        {"SectorShiftOf8", "sectors that do not hold the header's size", kNoStorage,
         With16(kSectorShift, 8)},
        {"SectorShiftOf12", "a sound shift that is not this file's", kNoStorage,
         With16(kSectorShift, 12)},
        {"SectorShiftOf31", "sectors of two gigabytes", kNoStorage, With16(kSectorShift, 31)},
        {"SectorShiftOf64", "a shift of no meaning at all", kNoStorage, With16(kSectorShift, 64)},
        {"SectorShiftOfAllOnes", "as above", kNoStorage, With16(kSectorShift, 0xFFFF)},
        {"MiniSectorShiftOf0", "mini sectors of a byte", kNoStorage, With16(kMiniSectorShift, 0)},
        {"MiniSectorShiftOf9", "mini sectors as large as sectors", kNoStorage,
         With16(kMiniSectorShift, 9)},
        {"MiniSectorShiftOfAllOnes", "a shift of no meaning at all", kNoStorage,
         With16(kMiniSectorShift, 0xFFFF)},
        {"Reserved", "nobody looks at it", SmallCompoundText(), With32(kReserved, 0xFFFFFFFF)},
        {"DirectoryCount", "the chain says how many", SmallCompoundText(),
         With32(kDirectoryCount, 0xFFFFFFFF)},
        {"FatCountOf0", "no chain leads anywhere", kNoStorage, With32(kFatCount, 0)},
        {"FatCountOneMore", "of which the second one is free", SmallCompoundText(),
         With32(kFatCount, 2)},
        {"FatCountOfAllOnes", "more than the file has sectors", kNoStorage,
         With32(kFatCount, 0xFFFFFFFF)},
        {"FatCountOfHalf", "as above, when it is counted in bytes", kNoStorage,
         With32(kFatCount, 0x40000000)},
        {"DirectoryStartAtTheEnd", "no directory", kNoStorage, With32(kDirectoryStart, kEnd)},
        {"DirectoryStartOfFree", "no directory", kNoStorage, With32(kDirectoryStart, kFree)},
        {"DirectoryStartBeyond", "a sector that the FAT does not know", kNoStorage,
         With32(kDirectoryStart, 5'000)},
        {"DirectoryStartInFreeSectors", "a sector that the FAT knows and the file has not", kNoStorage,
         With32(kDirectoryStart, 100)},
        {"DirectoryStartOfTheFat", "numbers of sectors are no directory", kNoStorage,
         With32(kDirectoryStart, 0)},
        {"Transaction", "nobody looks at it", SmallCompoundText(), With32(kTransaction, 0xFFFFFFFF)},
        {"MiniCutoffOf0", "every stream would be large", kNoStorage, With32(kMiniCutoff, 0)},
        {"MiniCutoffOfAllOnes", "every stream would be small", kNoStorage,
         With32(kMiniCutoff, 0xFFFFFFFF)},
        {"MiniFatStartAtTheEnd", "small streams have no chain", WithoutSmallStreams(),
         With32(kMiniFatStart, kEnd)},
        {"MiniFatStartBeyond", "a sector that is not there", WithoutSmallStreams(),
         With32(kMiniFatStart, 5'000)},
        {"MiniFatCountOf0", "the chain says how many", SmallCompoundText(), With32(kMiniFatCount, 0)},
        {"MiniFatCountOf2", "the chain says how many", SmallCompoundText(), With32(kMiniFatCount, 2)},
        {"MiniFatCountOfAllOnes", "more than the file has sectors", kNoStorage,
         With32(kMiniFatCount, 0xFFFFFFFF)},
        {"DifatStart", "nothing is there when the count is 0", SmallCompoundText(),
         With32(kDifatStart, 0)},
        {"DifatCountOf1", "a DIFAT that is said to be there", kNoStorage, With32(kDifatCount, 1)},
        {"DifatCountOfAllOnes", "as above", kNoStorage, With32(kDifatCount, 0xFFFFFFFF)},
        {"FirstFatSectorFree", "a FAT that is not there", kNoStorage, With32(kDifat, kFree)},
        {"FirstFatSectorBeyond", "a FAT outside the file", kNoStorage, With32(kDifat, 5'000)},
        {"FirstFatSectorOfAnEnd", "a mark is no sector", kNoStorage, With32(kDifat, kEnd)},
        {"FirstFatSectorOfTheDirectory", "names are no chains", kNoStorage, With32(kDifat, 1)},
    };
}

INSTANTIATE_TEST_SUITE_P(CompoundSound, HostileStorage, testing::ValuesIn(SoundCases()), NameOfStorage);
INSTANTIATE_TEST_SUITE_P(CompoundSize, HostileStorage, testing::ValuesIn(SizeCases()), NameOfStorage);
INSTANTIATE_TEST_SUITE_P(CompoundHeader, HostileStorage, testing::ValuesIn(FieldCases()),
                         NameOfStorage);

}  // namespace
