// Relationship streams: their XML, their attributes, and which of their elements decides.

#include <string>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/relationships/RelatedPackage.h"

namespace {

using namespace vexpa_test;

const std::string kDocumentLines =
    "word/document.xml: application/xml \"<document/>\"\n"
    "word/document.xml: rId1 image -> word/a.png\n" +
    std::string(kPictureLine);

const std::string kMissing = RelationshipXml("rId0", kImage, "missing.png");
const std::string kExternal = RelationshipXml("rId0", kImage, "http://e.org/a.png", "External");

CraftedPackages LastOfThePackageCases() {
    return {
        {"Missing", "the last relationship decides: without its part nothing opens",
         PackageRelated(ToDocument("rId1") + kMissing), kDoesNotOpen},
        {"ThereAfterAMissingOne", "the ones before it do not decide",
         PackageRelated(kMissing + ToDocument("rId1")),
         "package: rId0 image -> missing.png, no part\n"
         "package: rId1 officedocument -> word/document.xml\n" +
             kDocumentLines},
        {"External", "its target is no part", PackageRelated(ToDocument("rId1") + kExternal),
         kDoesNotOpen},
        {"ThereAfterAnExternalOne", "nor does an external one before it",
         PackageRelated(kExternal + ToDocument("rId1")),
         "package: rId0 image => http://e.org/a.png\n"
         "package: rId1 officedocument -> word/document.xml\n" +
             kDocumentLines},
        {"ExternalToAPart", "a target that is there counts, whatever its mode",
         PackageRelated(RelationshipXml("rId1", kOfficeDocument, kDocumentEntry, "External")),
         "package: rId1 officedocument => word/document.xml\n"},
        {"WithoutATarget", "no name, no part",
         PackageRelated(ToDocument("rId1") + RelationshipXml("rId2", kImage, "")), kDoesNotOpen},
        {"WithoutAnyOfItsAttributes", "with another one it is a relationship to nothing",
         PackageRelated(ToDocument("rId1") + "<Relationship other=\"\"/>"), kDoesNotOpen},
        {"WithoutAttributes", "then it is no relationship, and the one before it decides",
         PackageRelated(ToDocument("rId1") + "<Relationship/>"), SmallPackageText()},
        {"WithoutAttributesAfterAMissingOne", "which is missing",
         PackageRelated(kMissing + "<Relationship/>"), kDoesNotOpen},
        {"OfARepeatedIdMissing", "it decides although it is not filed",
         PackageRelated(ToDocument("rId1") + RelationshipXml("rId1", kImage, "missing.png")),
         kDoesNotOpen},
        {"OfARepeatedIdThere", "and so it does the other way round",
         PackageRelated(RelationshipXml("rId1", kImage, "missing.png") + ToDocument("rId1")),
         "package: rId1 image -> missing.png, no part\n"},
        {"None", "a package without relationships is empty", PackageRelated(""), "opens, empty\n"},
    };
}

CraftedPackages AttributeCases() {
    const std::string type = "Type=\"" + std::string(kImage) + "\"";
    return {
        {"WithoutAnId", "filed under no name",
         DocumentRelated("<Relationship Target=\"a.png\" " + type + "/>"),
         kDocumentText + "word/document.xml: (empty) image -> word/a.png\n" + kPictureLine},
        {"WithoutAnIdTwice", "of which the first counts",
         DocumentRelated("<Relationship Target=\"a.png\" " + type + "/><Relationship Target=\"b\"/>"),
         kDocumentText + "word/document.xml: (empty) image -> word/a.png\n" + kPictureLine},
        {"WithoutAType", "filed under no type",
         DocumentRelated("<Relationship Id=\"rId1\" Target=\"a.png\"/>"),
         kDocumentText + "word/document.xml: rId1 type (empty) -> word/a.png\n" + kPictureLine},
        {"WithoutATarget", "the folder of the document, which is no entry",
         DocumentRelated("<Relationship Id=\"rId1\" " + type + "/>"),
         kDocumentText + "word/document.xml: rId1 image -> word/, no part\n"},
        {"WithNothingButATarget", "is enough to be a relationship",
         DocumentRelated("<Relationship Target=\"a.png\"/>"),
         kDocumentText + "word/document.xml: (empty) type (empty) -> word/a.png\n" + kPictureLine},
        {"OfOtherNames", "attributes that look like the right ones are not",
         DocumentRelated("<Relationship id=\"rId1\" TARGET=\"a.png\" x:Target=\"a.png\" "
                         "xmlns:x=\"urn:x\" target=\"a.png\"/>"),
         kDocumentText + "word/document.xml: (empty) type (empty) -> word/, no part\n"},
        {"WithTheSameAttributeTwice", "is not well-formed, and costs the stream",
         DocumentRelated("<Relationship Id=\"rId1\" Id=\"rId2\" Target=\"a.png\"/>"), kDocumentText},
        {"WithReferencesInThem", "values are what they stand for",
         DocumentRelated("<Relationship Id=\"&#x72;Id1\" Target=\"&#97;&#46;png\" " + type + "/>"),
         SmallPackageText()},
        {"WithAnUnknownEntity", "is not well-formed",
         DocumentRelated("<Relationship Id=\"rId1\" Target=\"&a;.png\"/>"), kDocumentText},
        {"OfIdsThatDifferInCase", "are two",
         DocumentRelated(ToPicture("rid1") + ToPicture("rId1") + ToPicture("RID1")),
         kDocumentText +
             "word/document.xml: RID1 image -> word/a.png\n"
             "word/document.xml: rId1 image -> word/a.png\n"
             "word/document.xml: rid1 image -> word/a.png\n" +
             kPictureLine},
        {"OfARepeatedId", "the first one counts",
         DocumentRelated(ToPicture("rId1") + RelationshipXml("rId1", kStyles, "missing.xml")),
         SmallPackageText()},
        {"OfAnExternalModeInOtherCase", "the mode is compared without case",
         DocumentRelated(RelationshipXml("rId1", kImage, "http://e.org/", "eXTERNAL")),
         kDocumentText + "word/document.xml: rId1 image => http://e.org/\n"},
        {"OfAnExternalModeWithABlank", "any other mode is internal",
         DocumentRelated(RelationshipXml("rId1", kImage, "a.png", "External ")), SmallPackageText()},
        {"OfAnUnknownMode", "any other mode is internal",
         DocumentRelated(RelationshipXml("rId1", kImage, "a.png", "Externals")), SmallPackageText()},
        {"OfALongMode", "a hundred thousand units of it",
         [] {
             return DocumentRelated(
                 RelationshipXml("rId1", kImage, "a.png", "External" + std::string(100'000, 'x')))();
         },
         SmallPackageText()},
        {"OfATypeInCapitals", "types are compared without case",
         DocumentRelated(
             "<Relationship Id=\"rId1\" Target=\"a.png\" "
             "Type=\"HTTP://SCHEMAS.OPENXMLFORMATS.ORG/OFFICEDOCUMENT/2006/RELATIONSHIPS/IMAGE\"/>"),
         SmallPackageText()},
        {"OfATypeWithBackslashesAndBlanks", "which are folded away",
         DocumentRelated(
             "<Relationship Id=\"rId1\" Target=\"a.png\" Type=\"&#9; http:\\\\schemas.openxmlformats."
             "org\\officeDocument\\2006\\relationships\\image and more\"/>"),
         SmallPackageText()},
        {"OfAnUnknownType", "is kept as written",
         DocumentRelated(RelationshipXml("rId1", "urn:Own", "a.png")),
         kDocumentText + "word/document.xml: rId1 type urn:Own -> word/a.png\n" + kPictureLine},
    };
}

CraftedPackages XmlCases() {
    const std::string picture = ToPicture("rId1");
    return {
        {"Empty", "no document, no relationships", DocumentStream(""), kDocumentText},
        {"EmptyOfThePackage", "and no package", PackageStream(""), kDoesNotOpen},
        {"NotXml", "a picture in its place", DocumentStream("\x89PNG\r\n"), kDocumentText},
        {"NotXmlOfThePackage", "and no package", PackageStream("\x89PNG\r\n"), kDoesNotOpen},
        {"CutOff", "what came before the cut does not count either",
         DocumentStream("<Relationships>" + picture), kDocumentText},
        {"CutOffOfThePackage", "nor for the package",
         PackageStream("<Relationships>" + ToDocument("rId1")), kDoesNotOpen},
        {"WithTwoRoots", "is not well-formed",
         DocumentStream("<Relationships>" + picture + "</Relationships><Relationships/>"),
         kDocumentText},
        {"OfAnotherRoot", "the root is not asked", DocumentStream("<html>" + picture + "</html>"),
         SmallPackageText()},
        {"OfARelationshipForRoot", "nor need there be another one", DocumentStream(picture),
         SmallPackageText()},
        {"OfAnotherNamespace", "nor is the namespace",
         DocumentStream("<r:a xmlns:r=\"urn:r\"><r:Relationship Id=\"rId1\" Type=\"" +
                        std::string(kImage) + "\" Target=\"a.png\"/></r:a>"),
         SmallPackageText()},
        {"OfNestedRelationships", "each element counts, inside another one too",
         DocumentStream("<Relationship Id=\"rId2\" Target=\"b\"><x>" + picture + "</x></Relationship>"),
         kDocumentText +
             "word/document.xml: rId1 image -> word/a.png\n"
             "word/document.xml: rId2 type (empty) -> word/b, no part\n" +
             kPictureLine},
        {"InAComment", "is none", DocumentStream("<a><!--" + picture + "--></a>"), kDocumentText},
        {"InCharacterData", "is text", DocumentStream("<a><![CDATA[" + picture + "]]></a>"),
         kDocumentText},
        {"InLowerCase", "is another element",
         DocumentStream("<a><relationship Id=\"rId1\" Target=\"a.png\"/></a>"), kDocumentText},
        {"TwoHundredLevelsDeep", "elements count at any depth",
         [=] {
             std::string open, close;
             for (int i = 0; i < 200; ++i) {
                 open += "<a>";
                 close += "</a>";
             }
             return DocumentStream(open + picture + close)();
         },
         SmallPackageText()},
        {"InUtf16", "is read by its byte order mark",
         [=] {
             std::string wide = "\xFF\xFE";
             for (const char c : "<a>" + picture + "</a>") wide += std::string{c, '\0'};
             return DocumentStream(wide)();
         },
         SmallPackageText()},
    };
}

INSTANTIATE_TEST_SUITE_P(LastRelationship, HostilePackage, testing::ValuesIn(LastOfThePackageCases()),
                         NameOfCase);
INSTANTIATE_TEST_SUITE_P(Relationship, HostilePackage, testing::ValuesIn(AttributeCases()), NameOfCase);
INSTANTIATE_TEST_SUITE_P(RelationshipStream, HostilePackage, testing::ValuesIn(XmlCases()), NameOfCase);

}  // namespace
