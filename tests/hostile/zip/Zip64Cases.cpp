// The fields that zip64 widens, in the end record and in an entry: each of them there or not.

#include <string>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/SmallPackage.h"
#include "tests/hostile/zip/ExtraField.h"

namespace {

using namespace vexpa_test;

constexpr std::uint64_t kAllOnes64 = ~std::uint64_t{0};

struct Directory {
    std::uint64_t offset;
    std::uint64_t size;
};

Directory DirectoryOf(const ZipFile& zip) {
    const std::string bytes = zip.Bytes();
    const std::size_t offset = bytes.find("PK\x01\x02");
    return {offset, bytes.find(zip.zip64 ? "PK\x06\x06" : "PK\x05\x06") - offset};
}

// Which of the fields the bits of a number mean: "CountAndOffset", say.
std::string FieldNames(unsigned bits, std::initializer_list<const char*> names) {
    std::string text;
    for (const char* name : names) {
        if ((bits & 1) != 0) text += (text.empty() ? "" : "And") + std::string(name);
        bits >>= 1;
    }
    return text.empty() ? "Nothing" : text;
}

// With the end record's fields of `wideBits` at all ones and the others true; of the zip64
// record's fields those of `falseBits` lie.
std::string EndRecordBytes(unsigned wideBits, unsigned falseBits) {
    ZipFile zip = SmallPackage();
    zip.zip64 = zip.plainToo = true;
    const Directory directory = DirectoryOf(zip);
    const auto isWide = [wideBits](unsigned bit) { return (wideBits & bit) != 0; };
    zip.plainCount = isWide(1) ? std::uint16_t{0xFFFF} : std::uint16_t{5};
    zip.plainSize = isWide(2) ? kAllOnes32 : static_cast<std::uint32_t>(directory.size);
    zip.plainOffset = isWide(4) ? kAllOnes32 : static_cast<std::uint32_t>(directory.offset);
    if ((falseBits & 1) != 0) zip.entryCount = kAllOnes64;
    if ((falseBits & 2) != 0) zip.directorySize = kAllOnes64;
    if ((falseBits & 4) != 0) zip.directoryOffset = kAllOnes64;
    return zip.Bytes();
}

CraftedPackages EndRecordCases() {
    CraftedPackages cases;
    for (unsigned bits = 0; bits < 8; ++bits) {
        const std::string fields = FieldNames(bits, {"Count", "Size", "Offset"});
        cases.push_back({"Has" + fields, "what the end record leaves open, the zip64 record says",
                         [bits] { return EndRecordBytes(bits, 0); }, SmallPackageText()});
        cases.push_back({"Has" + fields + "ButLiesAboutTheRest",
                         "what the end record says itself, the zip64 record is not asked for",
                         [bits] { return EndRecordBytes(bits, 7U & ~bits); }, SmallPackageText()});
    }
    return cases;
}

CraftedPackages RecordCases() {
    const auto zip64 = [](void (*change)(ZipFile&)) {
        return PackageWith([change](ZipFile& zip) {
            zip.zip64 = true;
            change(zip);
        });
    };
    return {
        {"LyingAboutTheCount", "size and offset agree with the file",
         zip64([](ZipFile& zip) { zip.entryCount = kAllOnes64; }), SmallPackageText()},
        {"LyingAboutTheSize", "count and offset agree with the file",
         zip64([](ZipFile& zip) { zip.directorySize = kAllOnes64; }), SmallPackageText()},
        {"LyingAboutTheOffset", "taken for bytes before the archive, which moves all entries",
         zip64([](ZipFile& zip) { zip.directoryOffset = kAllOnes64; }), kDoesNotOpen},
        {"LyingAboutCountAndSize", "one field is not enough to go by",
         zip64([](ZipFile& zip) { zip.entryCount = zip.directorySize = kAllOnes64; }), kDoesNotOpen},
        {"WithACountOfHalfOfAll", "nothing is allocated for nine quintillion entries",
         zip64([](ZipFile& zip) { zip.entryCount = std::uint64_t{1} << 63; }), SmallPackageText()},
        {"WithALocatorToNowhere", "it lies right before the locator all the same",
         zip64([](ZipFile& zip) { zip.end64Position = kAllOnes64; }), SmallPackageText()},
        {"WithALocatorToTheStart", "there is no record there, and one where it should be",
         zip64([](ZipFile& zip) { zip.end64Position = 0; }), SmallPackageText()},
        {"FarFromItsLocator", "which then is the only one to know",
         zip64([](ZipFile& zip) { zip.gap64 = std::string(5000, 'g'); }), SmallPackageText()},
        {"FarFromALocatorToNowhere", "nothing says where the record is", zip64([](ZipFile& zip) {
             zip.gap64 = std::string(5000, 'g');
             zip.end64Position = kAllOnes64;
         }),
         kDoesNotOpen},
        {"WithBytesBeforeTheArchive", "which the locator does not count",
         zip64([](ZipFile& zip) { zip.prefix = std::string(1000, '#'); }), SmallPackageText()},
        {"OnAnotherDisk", "one file cannot be a disk of several", zip64([](ZipFile& zip) {
             zip.disk = 0xFFFF;
             for (ZipEntry& e : zip.entries) e.disk = 1;
         }),
         kDoesNotOpen},
        {"Missing", "all ones in the end record and nothing that says more",
         PackageWith([](ZipFile& zip) {
             zip.plainCount = 0xFFFF;
             zip.plainSize = zip.plainOffset = kAllOnes32;
         }),
         kDoesNotOpen},
        {"MissingBehindALocator", "a locator in a comment of the directory's last entry",
         PictureWith([](ZipEntry& e) { e.comment = "PK\x06\x07" + std::string(16, '\0'); }),
         SmallPackageText()},
        {"InACommentOfTheDirectory",
         "an end record that is sound itself wins over what looks like its companion",
         PictureWith([](ZipEntry& e) {
             ZipFile lie;
             lie.zip64 = true;
             const std::string bytes = lie.Bytes();
             e.comment = bytes.substr(0, bytes.size() - 22);
         }),
         SmallPackageText()},
    };
}

// The picture with its fields of `wideBits` (size, compressed size, offset, disk) at all ones, and
// a zip64 field of just those.
std::string EntryBytes(unsigned wideBits, bool hasField) {
    ZipFile zip = SmallPackage();
    const std::string plain = zip.Bytes();
    ZipEntry& picture = EntryOf(zip, kPictureEntry);
    picture.stored = true;
    std::string numbers;
    if ((wideBits & 1) != 0) {
        picture.size = kAllOnes32;
        numbers += LittleEndian(6, 8);
    }
    if ((wideBits & 2) != 0) {
        picture.compressedSize = kAllOnes32;
        numbers += LittleEndian(6, 8);
    }
    if ((wideBits & 4) != 0) {
        picture.localOffset = kAllOnes32;
        numbers += LittleEndian(plain.find(kPictureEntry) - 30, 8);
    }
    if ((wideBits & 8) != 0) {
        picture.disk = 0xFFFF;
        numbers += LittleEndian(0, 4);
    }
    if (hasField) picture.extra = ExtraField(kZip64Field, numbers);
    return zip.Bytes();
}

CraftedPackages EntryCases() {
    CraftedPackages cases;
    for (unsigned bits = 0; bits < 16; ++bits) {
        const std::string fields = FieldNames(bits, {"Size", "CompressedSize", "Offset", "Disk"});
        cases.push_back({"Has" + fields, "the field holds just what the header leaves at all ones",
                         [bits] { return EntryBytes(bits, true); }, SmallPackageText()});
        if (bits == 0) continue;
        cases.push_back({"Lacks" + fields, "all ones without the field mean all ones",
                         [bits] { return EntryBytes(bits, false); }, PictureUnreadable()});
    }
    return cases;
}

CraftedPackages FieldCases() {
    // The picture stored, both sizes at all ones, with this for its extra data.
    const auto extra = [](std::string bytes) {
        return PictureWith([bytes = std::move(bytes)](ZipEntry& e) {
            e.stored = true;
            e.size = e.compressedSize = kAllOnes32;
            e.extra = bytes;
        });
    };
    return {
        {"Sound", "what the others are made from", extra(WideNumbers({6, 6})), SmallPackageText()},
        {"Empty", "a field of no size", extra(WideNumbers({})), PictureUnreadable()},
        {"OfOneNumber", "the second one is missing", extra(WideNumbers({6})), PictureUnreadable()},
        {"OfFifteenBytes", "the second one is cut",
         extra(ExtraField(kZip64Field, WideNumbers({6, 6}).substr(4, 15))), PictureUnreadable()},
        {"BeyondTheExtraData", "a field that claims more than there is",
         extra(LittleEndian(kZip64Field, 2) + LittleEndian(100, 2) + std::string(16, '\x06')),
         PictureUnreadable()},
        {"AfterAThousandOthers", "any number of fields may come before",
         [extra] {
             std::string bytes;
             for (int i = 0; i < 1000; ++i) bytes += ExtraField(0x5455, "time");
             return extra(bytes + WideNumbers({6, 6}))();
         },
         SmallPackageText()},
        {"AfterTenThousandEmptyOnes", "as many as extra data has room for",
         [extra] {
             std::string bytes;
             for (int i = 0; i < 10'000; ++i) bytes += ExtraField(0, "");
             return extra(bytes + WideNumbers({6, 6}))();
         },
         SmallPackageText()},
        {"AfterABrokenOne", "what comes after a field that runs over is not found",
         extra(LittleEndian(0x5455, 2) + LittleEndian(0xFFFF, 2) + WideNumbers({6, 6})),
         PictureUnreadable()},
        {"BeforeABrokenOne", "what comes before it is",
         extra(WideNumbers({6, 6}) + LittleEndian(0x5455, 2) + LittleEndian(0xFFFF, 2)),
         SmallPackageText()},
        {"Twice", "the first one counts", extra(WideNumbers({6, 6}) + WideNumbers({5, 5})),
         SmallPackageText()},
        {"OfAllOnes", "sizes that no file has", extra(WideNumbers({kAllOnes64, kAllOnes64})),
         PictureUnreadable()},
        {"OfASizeThatOverflowsWithItsPosition", "position and size together pass 2 to the 64",
         extra(WideNumbers({kAllOnes64 - 100, kAllOnes64 - 100})), PictureUnreadable()},
        {"OfWrongSizes", "the field is believed, and the checksum is not fooled",
         extra(WideNumbers({5, 5})), PictureUnreadable()},
        {"Unasked", "a header that says all itself does not ask the field",
         PictureWith([](ZipEntry& e) {
             e.extra = WideNumbers({1, 1, 1});
         }),
         SmallPackageText()},
        {"OfADisk", "the entry is on the disk that the field names", PictureWith([](ZipEntry& e) {
             e.disk = 0xFFFF;
             e.extra = ExtraField(kZip64Field, LittleEndian(0, 4));
         }),
         SmallPackageText()},
        {"OfAnotherDisk", "which is not this one", PictureWith([](ZipEntry& e) {
             e.disk = 0xFFFF;
             e.extra = ExtraField(kZip64Field, LittleEndian(1, 4));
         }),
         PictureUnreadable()},
        {"InTheLocalHeaderOnly", "the directory's opinion is asked, not the local header's",
         PictureWith([](ZipEntry& e) {
             e.stored = true;
             e.size = e.compressedSize = kAllOnes32;
             e.localExtra = WideNumbers({6, 6});
         }),
         PictureUnreadable()},
        {"OfTheLocalHeaderLying", "and so it may say what it likes", PictureWith([](ZipEntry& e) {
             e.localExtra = WideNumbers({kAllOnes64, kAllOnes64});
         }),
         SmallPackageText()},
        {"OfAnotherName", "a Unicode path is no second name for an entry", PictureWith([](ZipEntry& e) {
             e.extra = ExtraField(0x7075, "\x01" + LittleEndian(0, 4) + "word/other.png");
         }),
         SmallPackageText()},
    };
}

INSTANTIATE_TEST_SUITE_P(Zip64EndRecord, HostilePackage, testing::ValuesIn(EndRecordCases()),
                         NameOfCase);
INSTANTIATE_TEST_SUITE_P(Zip64Record, HostilePackage, testing::ValuesIn(RecordCases()), NameOfCase);
INSTANTIATE_TEST_SUITE_P(Zip64Entry, HostilePackage, testing::ValuesIn(EntryCases()), NameOfCase);
INSTANTIATE_TEST_SUITE_P(Zip64Field, HostilePackage, testing::ValuesIn(FieldCases()), NameOfCase);

}  // namespace
