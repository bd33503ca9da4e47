// Data descriptors: sizes and checksum after the data, which a reader of the directory passes over.

#include <string>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/PackageText.h"
#include "tests/hostile/SmallPackage.h"

namespace {

using namespace vexpa_test;

constexpr std::uint16_t kDescriptorFlag = 0x0008;

CraftedPackages DescriptorCases() {
    const std::string signatureInside = "abcPK\x07\x08" + std::string(12, 'x') + "xyz";
    CraftedPackages cases;
    for (const bool stored : {false, true}) {
        for (const bool hasSignature : {false, true}) {
            for (const bool isWide : {false, true}) {
                cases.push_back({std::string(isWide ? "Wide" : "Plain") +
                                     (hasSignature ? "WithASignature" : "WithoutASignature") +
                                     (stored ? "AfterStoredData" : "AfterDeflatedData"),
                                 "its form makes no difference", PictureWith([=](ZipEntry& e) {
                                     e.dataDescriptor = true;
                                     e.stored = stored;
                                     e.descriptorSignature = hasSignature;
                                     e.zip64 = isWide;
                                 }),
                                 SmallPackageText()});
            }
        }
    }
    cases.insert(
        cases.end(),
        {{"OfEveryEntry", "a writer that could not seek", PackageWith([](ZipFile& zip) {
              for (ZipEntry& e : zip.entries) e.dataDescriptor = true;
          }),
          SmallPackageText()},
         {"MissingBehindItsFlag", "the flag without the descriptor", PictureWith([](ZipEntry& e) {
              e.flags = kDescriptorFlag;
              e.localSize = e.localCompressedSize = 0;
              e.localCrc = 0;
          }),
          SmallPackageText()},
         {"WithoutItsFlag", "bytes between two entries belong to neither",
          PackageWith([](ZipFile& zip) {
              ZipEntry& e = EntryOf(zip, kDocumentEntry);
              e.stored = true;
              e.rawData = e.content + std::string(16, 'd');
              e.compressedSize = e.content.size();
          }),
          SmallPackageText()},
         {"InTheData", "stored data with a descriptor's signature in it ends where the directory says",
          PictureWith([=](ZipEntry& e) {
              e.stored = e.dataDescriptor = true;
              e.content = signatureInside;
          }),
          SmallPackageText(BytesText(signatureInside))},
         {"ThatTheDirectoryDoesNotConfirm", "of two checksums the directory's counts",
          PictureWith([](ZipEntry& e) {
              e.dataDescriptor = true;
              e.crc = 0;
          }),
          PictureUnreadable()}});
    return cases;
}

INSTANTIATE_TEST_SUITE_P(ZipDescriptor, HostilePackage, testing::ValuesIn(DescriptorCases()),
                         NameOfCase);

}  // namespace
