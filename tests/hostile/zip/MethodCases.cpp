// Methods and flags of an entry: all but stored and deflated, unencrypted, is refused.

#include <set>
#include <string>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/SmallPackage.h"

namespace {

using namespace vexpa_test;

// Numbers and names of APPNOTE 4.4.5.
struct Method {
    std::uint16_t number;
    const char* name;
};

const Method kUnreadMethods[] = {
    {1, "Shrunk"},
    {2, "ReducedBy1"},
    {3, "ReducedBy2"},
    {4, "ReducedBy3"},
    {5, "ReducedBy4"},
    {6, "Imploded"},
    {7, "Tokenized"},
    {9, "Deflate64"},
    {10, "IbmTerse"},
    {11, "Reserved11"},
    {12, "Bzip2"},
    {13, "Reserved13"},
    {14, "Lzma"},
    {15, "Reserved15"},
    {16, "Cmpsc"},
    {17, "Reserved17"},
    {18, "NewTerse"},
    {19, "Lz77"},
    {20, "OldZstandard"},
    {92, "Unassigned92"},
    {93, "Zstandard"},
    {94, "Mp3"},
    {95, "Xz"},
    {96, "Jpeg"},
    {97, "WavPack"},
    {98, "Ppmd"},
    {99, "AesMarker"},
    {100, "Unassigned100"},
    {256, "HighByteOnly"},
    {0x0800, "DeflatedInTheHighByte"},
    {0x8008, "DeflatedWithTheTopBit"},
    {0xFFFF, "AllOnes"},
};

CraftedPackages MethodCases() {
    CraftedPackages cases;
    for (const Method& method : kUnreadMethods) {
        for (const bool stored : {true, false}) {
            // Data that one of the two read methods would take must not be taken all the same.
            cases.push_back(
                {std::string(method.name) + (stored ? "OverPlainBytes" : "OverDeflatedBytes"),
                 "a method that is not known gives no bytes",
                 PictureWith([stored, &method](ZipEntry& e) {
                     e.stored = stored;
                     e.method = method.number;
                 }),
                 PictureUnreadable()});
        }
    }
    cases.push_back(
        {"Stored", "method 0", PictureWith([](ZipEntry& e) { e.stored = true; }), SmallPackageText()});
    cases.push_back({"Deflated", "method 8", PictureWith([](ZipEntry&) {}), SmallPackageText()});
    cases.push_back({"StoredOverDeflatedBytes", "the sizes differ",
                     PictureWith([](ZipEntry& e) { e.method = 0; }), PictureUnreadable()});
    cases.push_back({"DeflatedOverPlainBytes", "they are no deflate stream",
                     PictureWith([](ZipEntry& e) {
                         e.stored = true;
                         e.method = 8;
                     }),
                     PictureUnreadable()});
    cases.push_back({"OtherInTheLocalHeader", "the directory's method counts",
                     PictureWith([](ZipEntry& e) { e.localMethod = 99; }), SmallPackageText()});
    cases.push_back({"UnknownOfTheContentTypes", "a package that hides its content types",
                     PackageWith([](ZipFile& zip) { EntryOf(zip, kContentTypesEntry).method = 14; }),
                     kDoesNotOpen});
    cases.push_back({"UnknownOfTheDocument", "the relationships of a part without bytes still count",
                     PackageWith([](ZipFile& zip) { EntryOf(zip, kDocumentEntry).method = 14; }),
                     "package: rId1 officedocument -> word/document.xml\n"
                     "word/document.xml: application/xml no stream\n"
                     "word/document.xml: rId1 image -> word/a.png\n"
                     "word/a.png: image/png \"pixels\"\n"});
    return cases;
}

CraftedPackages FlagCases() {
    CraftedPackages cases = {
        {"Encrypted", "without a password there are no bytes",
         PictureWith([](ZipEntry& e) { e.flags = 0x0001; }), PictureUnreadable()},
        {"EncryptedOfTheContentTypes", "a package under a password does not open",
         PackageWith([](ZipFile& zip) { EntryOf(zip, kContentTypesEntry).flags = 0x0001; }),
         kDoesNotOpen},
        {"StronglyEncrypted", "bits 0 and 6 and 13 together",
         PictureWith([](ZipEntry& e) { e.flags = 0x2041; }), PictureUnreadable()},
        {"AllOnes", "encryption is among them", PictureWith([](ZipEntry& e) { e.flags = 0xFFFF; }),
         PictureUnreadable()},
        {"AllButEncryption", "every other flag is about how the writer worked",
         PictureWith([](ZipEntry& e) { e.flags = 0xFFFE; }), SmallPackageText()},
    };
    for (int bit = 1; bit < 16; ++bit) {
        cases.push_back(
            {"Bit" + std::to_string(bit) + "Alone", "does not hide an entry",
             PictureWith([bit](ZipEntry& e) { e.flags = static_cast<std::uint16_t>(1U << bit); }),
             SmallPackageText()});
    }
    return cases;
}

INSTANTIATE_TEST_SUITE_P(ZipMethod, HostilePackage, testing::ValuesIn(MethodCases()), NameOfCase);
INSTANTIATE_TEST_SUITE_P(ZipFlags, HostilePackage, testing::ValuesIn(FlagCases()), NameOfCase);

}  // namespace
