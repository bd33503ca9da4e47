#include <gtest/gtest.h>

#include <vector>

#include "tests/opc/PackageFile.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

// The content type that a package with these rules gives to the part of this name.
std::u16string ContentTypeOf(PackageFile& file, const std::string& part) {
    file.Entry(part, "<part/>");
    const Handle<opc::Package> package = file.Open();
    opc::Part* loaded = package->GetPart(opc::PartUri(Utf16(part).c_str()));
    return Text(loaded->GetContentType());
}

TEST(ContentTypes, AnOverrideAppliesToItsPart) {
    PackageFile file;
    file.Default("xml", "application/xml");
    file.Override("/docProps/app.xml", "text/app");
    EXPECT_EQ(ContentTypeOf(file, "docProps/app.xml"), u"text/app");
}

TEST(ContentTypes, AnOverrideMayLackTheLeadingSlash) {
    PackageFile file;
    file.Override("docProps/core.xml", "text/core");
    EXPECT_EQ(ContentTypeOf(file, "docProps/core.xml"), u"text/core");
}

TEST(ContentTypes, OneLeadingSeparatorIsDroppedAndTheFirstOverrideOfAKeyWins) {
    PackageFile file;
    file.Override("/docProps/core.xml", "text/first");
    file.Override("docProps/core.xml", "text/second");
    EXPECT_EQ(ContentTypeOf(file, "docProps/core.xml"), u"text/first");
}

TEST(ContentTypes, ABackslashNameLosesOnlyItsFirstBackslash) {
    PackageFile file;
    file.Override("\\docProps\\core.xml", "text/core");
    file.Entry("docProps/core.xml", "<part/>");
    const Handle<opc::Package> package = file.Open();
    // The two spellings are one entry and two parts, as keys are compared exactly.
    EXPECT_EQ(Text(package->GetPart(opc::PartUri(u"docProps/core.xml"))->GetContentType()), u"");
    EXPECT_EQ(Text(package->GetPart(opc::PartUri(u"docProps\\core.xml"))->GetContentType()),
              u"text/core");
}

TEST(ContentTypes, TwoOverridesOfOnePartGiveTheFirst) {
    PackageFile file;
    file.Override("/a.xml", "text/first");
    file.Override("/a.xml", "text/second");
    EXPECT_EQ(ContentTypeOf(file, "a.xml"), u"text/first");
}

TEST(ContentTypes, OverridesAreComparedWithCase) {
    PackageFile file;
    file.Override("/A.xml", "text/upper");
    EXPECT_EQ(ContentTypeOf(file, "a.xml"), u"");
}

TEST(ContentTypes, TwoDefaultsOfOneExtensionGiveTheFirst) {
    PackageFile file;
    file.Default("xml", "text/first");
    file.Default("xml", "text/second");
    EXPECT_EQ(ContentTypeOf(file, "a.xml"), u"text/first");
}

TEST(ContentTypes, ExtensionsThatDifferInCaseAreTwo) {
    PackageFile file;
    file.Default("XML", "text/upper");
    file.Default("xml", "text/lower");
    file.Entry("b.XML", "<part/>");
    EXPECT_EQ(ContentTypeOf(file, "a.xml"), u"text/lower");
    const Handle<opc::Package> package = file.Open();
    EXPECT_EQ(Text(package->GetPart(opc::PartUri(u"b.XML"))->GetContentType()), u"text/upper");
}

TEST(ContentTypes, ARelationshipStreamMatchesOnlyTheExtensionOfItsCase) {
    PackageFile file;
    file.Default("RELS", "text/upper");
    file.Default("rels", "text/lower");
    const Handle<opc::Package> package = file.Open();
    EXPECT_EQ(Text(package->GetPart(opc::PartUri(u"_rels/.rels"))->GetContentType()), u"text/lower");
}

TEST(ContentTypes, AnExtensionWithADotNeverMatches) {
    PackageFile file;
    file.Default(".xml", "text/dotted");
    EXPECT_EQ(ContentTypeOf(file, "a.xml"), u"");
}

TEST(ContentTypes, ANameWithoutADotIsItsOwnExtension) {
    PackageFile file;
    file.Default("docProps/readme", "text/readme");
    EXPECT_EQ(ContentTypeOf(file, "docProps/readme"), u"text/readme");
}

TEST(ContentTypes, ANameThatEndsInADotHasTheEmptyExtension) {
    PackageFile file;
    file.Entry("[Content_Types].xml", "<Types><Default Extension='' ContentType='text/none'/></Types>");
    EXPECT_EQ(ContentTypeOf(file, "a."), u"text/none");
}

TEST(ContentTypes, TheLastDotCountsEvenWhenItStandsInAFolder) {
    PackageFile file;
    file.Default("d/readme", "text/folder");
    EXPECT_EQ(ContentTypeOf(file, "conf.d/readme"), u"text/folder");
}

TEST(ContentTypes, AnOverrideOfAnAbsentPartCostsNothing) {
    PackageFile file;
    file.Override("/gone.xml", "text/gone");
    file.Default("xml", "text/xml");
    EXPECT_EQ(ContentTypeOf(file, "a.xml"), u"text/xml");
}

TEST(ContentTypes, ElementsOfAnyRootAndNamespaceCountAtAnyDepth) {
    PackageFile file;
    file.Entry("[Content_Types].xml",
               "<x:Root xmlns:x='urn:x'><deep><x:Default Extension='xml' ContentType='text/deep'/>"
               "</deep></x:Root>");
    EXPECT_EQ(ContentTypeOf(file, "a.xml"), u"text/deep");
}

TEST(ContentTypes, AnElementThatLacksAnAttributeIsSkipped) {
    const std::vector<std::string> incomplete = {
        "<Override PartName='/a.xml'/>", "<Override ContentType='text/x'/>", "<Override/>",
        "<Default Extension='xml'/>",    "<Default ContentType='text/x'/>",  "<Default/>"};
    for (const std::string& element : incomplete) {
        SCOPED_TRACE(element);
        PackageFile file;
        file.Entry("[Content_Types].xml",
                   "<Types>" + element + "<Default Extension='xml' ContentType='text/xml'/></Types>");
        EXPECT_EQ(ContentTypeOf(file, "a.xml"), u"text/xml");
    }
}

TEST(ContentTypes, ValuesAreKeptAsWritten) {
    PackageFile file;
    file.Default("xml", " Not / a;  type ");
    EXPECT_EQ(ContentTypeOf(file, "a.xml"), u" Not / a;  type ");
}

TEST(ContentTypes, APartOfAPackageWithoutRulesHasNone) {
    PackageFile file;
    EXPECT_EQ(ContentTypeOf(file, "a.xml"), u"");
}

}  // namespace
