// Relationships by the hundred thousand, and such with very long texts.

#include <string>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/relationships/RelatedPackage.h"

namespace {

using namespace vexpa_test;

constexpr int kMany = 100'000;

// An element for each number, with '#' standing for it in the target.
std::string Many(const std::string& id, const std::string& type, const std::string& target) {
    const auto numbered = [](std::string text, const std::string& number) {
        const std::size_t at = text.find('#');
        return at == text.npos ? text : text.replace(at, 1, number);
    };
    std::string elements;
    for (int i = 0; i < kMany; ++i) {
        const std::string number = std::to_string(kMany + i);
        elements +=
            RelationshipXml(numbered(id, number), numbered(type, number), numbered(target, number));
    }
    return elements;
}

CraftedPackages ManyCases() {
    const std::string longText(100'000, 'x');
    return {
        {"ToOnePart", "one part, a hundred thousand ways to it",
         [] { return DocumentRelated(Many("r#", "urn:t", "a.png"))(); },
         kDocumentText +
             "word/document.xml: r100000 type urn:t -> word/a.png\n"
             "word/document.xml: r100001 type urn:t -> word/a.png\n"
             "word/document.xml: r100002 type urn:t -> word/a.png\n"
             "word/document.xml: r100003 type urn:t -> word/a.png\n"
             "word/document.xml: r100004 type urn:t -> word/a.png\n"
             "word/document.xml: r100005 type urn:t -> word/a.png\n"
             "word/document.xml: r100006 type urn:t -> word/a.png\n"
             "word/document.xml: r100007 type urn:t -> word/a.png\n"
             "word/document.xml: r100008 type urn:t -> word/a.png\n"
             "word/document.xml: r100009 type urn:t -> word/a.png\n"
             "(99979 more lines)\n"
             "word/document.xml: r199989 type urn:t -> word/a.png\n"
             "word/document.xml: r199990 type urn:t -> word/a.png\n"
             "word/document.xml: r199991 type urn:t -> word/a.png\n"
             "word/document.xml: r199992 type urn:t -> word/a.png\n"
             "word/document.xml: r199993 type urn:t -> word/a.png\n"
             "word/document.xml: r199994 type urn:t -> word/a.png\n"
             "word/document.xml: r199995 type urn:t -> word/a.png\n"
             "word/document.xml: r199996 type urn:t -> word/a.png\n"
             "word/document.xml: r199997 type urn:t -> word/a.png\n"
             "word/document.xml: r199998 type urn:t -> word/a.png\n"
             "word/document.xml: r199999 type urn:t -> word/a.png\n" +
             kPictureLine},
        {"OfThePackageToNothing", "each is looked up while the package opens, and none is there",
         [] { return PackageRelated(Many("r#", "urn:t#", "missing#"))(); }, kDoesNotOpen},
        {"OfThePackageToNothingButTheLast", "which decides",
         [] { return PackageRelated(Many("r1", "urn:t", "missing#") + ToDocument("rId1"))(); },
         "package: r1 type urn:t -> missing100000, no part\n" + SmallPackageText()},
        {"OfOneId", "all but the first are kept aside",
         [] { return DocumentRelated(ToPicture("rId1") + Many("rId1", "urn:t#", "b#.png"))(); },
         SmallPackageText()},
        {"OfNoAttributes", "are none",
         [] {
             std::string elements;
             for (int i = 0; i < kMany; ++i) elements += "<Relationship/>";
             return DocumentRelated(elements + ToPicture("rId1"))();
         },
         SmallPackageText()},
        {"OfLongIds", "one of a hundred thousand units",
         [=] { return DocumentRelated(ToPicture(longText))(); },
         kDocumentText +
             "word/document.xml: xxxxxxxxxxxx...(100000 units)...xxxxxxxxxxxx image -> word/a.png\n" +
             kPictureLine},
        {"OfLongTypes", "one of a hundred thousand units",
         [=] { return DocumentRelated(RelationshipXml("rId1", longText, "a.png"))(); },
         kDocumentText +
             "word/document.xml: rId1 type xxxxxxxxxxxx...(100000 units)...xxxxxxxxxxxx -> "
             "word/a.png\n" +
             kPictureLine},
        {"OfTypesThatBeginLikeAKnownOne", "a known type and a hundred thousand units",
         [=] { return DocumentRelated(RelationshipXml("rId1", kImage + longText, "a.png"))(); },
         kDocumentText +
             "word/document.xml: rId1 type http://schem...(100073 units)...xxxxxxxxxxxx -> "
             "word/a.png\n" +
             kPictureLine},
        {"OfTypesThatAreBlank", "a hundred thousand blanks before nothing",
         [] { return DocumentRelated(RelationshipXml("rId1", std::string(100'000, ' '), "a.png"))(); },
         kDocumentText +
             "word/document.xml: rId1 type \\u0020\\u0020\\u0020\\u0020\\u0020\\u0020\\u0020\\u0020"
             "\\u0020\\u0020\\u0020\\u0020...(100000 "
             "units)...\\u0020\\u0020\\u0020\\u0020\\u0020\\u0020"
             "\\u0020\\u0020\\u0020\\u0020\\u0020\\u0020 -> word/a.png\n" +
             kPictureLine},
    };
}

INSTANTIATE_TEST_SUITE_P(ManyRelationships, HostilePackage, testing::ValuesIn(ManyCases()), NameOfCase);

}  // namespace
