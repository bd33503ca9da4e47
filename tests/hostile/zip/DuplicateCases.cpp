// Entries of one name, and of names that some readers take for one.

#include <string>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/SmallPackage.h"
#include "tests/opc/PackageFile.h"

namespace {

using namespace vexpa_test;

constexpr std::uint16_t kMadeByFat = 0x0014;

// The small package and one more entry.
std::function<std::string()> PackageAnd(std::string name, std::string content,
                                        std::uint16_t madeBy = 0x031E) {
    return PackageWith([=](ZipFile& zip) { zip.Add(name, content).madeBy = madeBy; });
}

// The same with the further entry in front.
std::function<std::string()> PackageAfter(std::string name, std::string content,
                                          std::uint16_t madeBy = 0x031E) {
    return PackageWith([=](ZipFile& zip) {
        zip.Add(name, content).madeBy = madeBy;
        std::swap(zip.entries.front(), zip.entries.back());
    });
}

// The document related to two pictures by names that are alike, the second one of an entry added.
std::string AlikeBytes(const std::string& name, const std::string& target,
                       std::uint16_t madeBy = 0x031E) {
    ZipFile zip = SmallPackageWith(kDocumentRelationshipsEntry,
                                   RelationshipsXml(RelationshipXml("rId1", kImage, "a.png") +
                                                    RelationshipXml("rId2", kImage, target)));
    zip.Add(name, "others").madeBy = madeBy;
    return zip.Bytes();
}

CraftedPackages DuplicateCases() {
    const std::string noImages = "<Relationships/>";
    return {
        {"Exactly", "the first one in the directory counts", PackageAnd(kPictureEntry, "others"),
         SmallPackageText()},
        {"ExactlyAndFirst", "wherever its data lies", PackageAfter(kPictureEntry, "others"),
         SmallPackageText("\"others\"")},
        {"ExactlyTenThousandTimes", "and quickly", PackageWith([](ZipFile& zip) {
             for (int i = 0; i < 10'000; ++i) zip.Add(kPictureEntry, "").stored = true;
         }),
         SmallPackageText()},
        {"ExactlyWithTheFirstDamaged", "the second one is no substitute", PackageWith([](ZipFile& zip) {
             EntryOf(zip, kPictureEntry).crc = 1;
             zip.Add(kPictureEntry, "others");
         }),
         PictureUnreadable()},
        {"OfTheContentTypes", "the first ones count", PackageAnd(kContentTypesEntry, "<Types/>"),
         SmallPackageText()},
        {"OfTheContentTypesDamaged", "and when they are damaged nothing does",
         PackageAfter(kContentTypesEntry, "<Types"), kDoesNotOpen},
        {"OfThePackageRelationships", "the first ones count",
         PackageAfter(kPackageRelationshipsEntry, noImages), "opens, empty\n"},
        {"OfTheDocumentRelationships", "the first ones count",
         PackageAfter(kDocumentRelationshipsEntry, noImages), kDocumentText},
        {"ButForCase", "both are there, each under its own spelling",
         [] { return AlikeBytes("word/A.PNG", "A.PNG"); },
         kDocumentText + "word/document.xml: rId1 image -> word/a.png\n"
                         "word/document.xml: rId2 image -> word/A.PNG\n"
                         "word/a.png: image/png \"pixels\"\n"
                         "word/A.PNG: (empty) \"others\"\n"},
        {"ButForCaseOfTheContentTypes", "the entry's name is matched exactly",
         PackageAfter("[CONTENT_TYPES].XML", "<Types"), SmallPackageText()},
        {"ButForABackslash", "a name with a backslash from Unix is another name, out of reach",
         [] { return AlikeBytes("word\\b.png", "b.png"); },
         kDocumentText + "word/document.xml: rId1 image -> word/a.png\n"
                         "word/document.xml: rId2 image -> word/b.png, no part\n"
                         "word/a.png: image/png \"pixels\"\n"},
        {"ButForABackslashFromAFatSystem", "there the backslash means a slash",
         [] { return AlikeBytes("word\\b.png", "b.png", kMadeByFat); },
         kDocumentText + "word/document.xml: rId1 image -> word/a.png\n"
                         "word/document.xml: rId2 image -> word/b.png\n"
                         "word/a.png: image/png \"pixels\"\n"
                         "word/b.png: image/png \"others\"\n"},
        {"AfterABackslashBecameASlash", "then the names are equal and the first one counts",
         PackageAfter("word\\a.png", "others", kMadeByFat), SmallPackageText("\"others\"")},
        {"ButForASlashInFront", "an entry with a leading slash is not the part's",
         PackageAfter("/word/a.png", "others"), SmallPackageText()},
        {"ButForASlashBehind", "nor is a folder of its name", PackageAfter("word/a.png/", ""),
         SmallPackageText()},
        {"ButForASpaceBehind", "no blank is trimmed", PackageAfter("word/a.png ", "others"),
         SmallPackageText()},
        {"ButForADotBehind", "nor a dot", PackageAfter("word/a.png.", "others"), SmallPackageText()},
        {"ButForADoubledSlash", "names are not tidied", PackageAfter("word//a.png", "others"),
         SmallPackageText()},
        {"ButForADotSegment", "nor resolved", PackageAfter("word/./a.png", "others"),
         SmallPackageText()},
        {"ButForAnEscape", "nor percent-decoded", PackageAfter("word/%61.png", "others"),
         SmallPackageText()},
        {"ButForComposition", "a letter with its accent is not a letter and an accent",
         [] { return AlikeBytes("word/\xC3\xA9.png", "e\xCC\x81.png"); },
         kDocumentText + "word/document.xml: rId1 image -> word/a.png\n"
                         "word/document.xml: rId2 image -> word/e\\u0301.png, no part\n"
                         "word/a.png: image/png \"pixels\"\n"},
        {"InTwoEncodings", "the same name in UTF-8 and in code page 437: the first one counts",
         [] {
             ZipFile zip =
                 SmallPackageWith(kDocumentRelationshipsEntry,
                                  RelationshipsXml(RelationshipXml("rId1", kImage, "\xC3\xA9.png")));
             zip.Add("word/\x82.png", "in 437");
             zip.Add("word/\xC3\xA9.png", "in UTF-8");
             return zip.Bytes();
         },
         kDocumentText + "word/document.xml: rId1 image -> word/\\u00E9.png\n"
                         "word/\\u00E9.png: image/png \"in 437\"\n"},
    };
}

INSTANTIATE_TEST_SUITE_P(ZipDuplicate, HostilePackage, testing::ValuesIn(DuplicateCases()), NameOfCase);

}  // namespace
