#include <gtest/gtest.h>

#include "tests/opc/PackageFile.h"
#include "tests/support/FaultRuntime.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

TEST(RelationshipById, OfAnotherCaseIsNotFound) {
    const Handle<opc::Package> package = MinimalPackage().Open();
    EXPECT_NE(package->GetRelationshipById(u"rId1"), nullptr);
    EXPECT_EQ(package->GetRelationshipById(u"RID1"), nullptr);
    EXPECT_TRUE(package->HasRelationshipById(u"rId1"));
    EXPECT_FALSE(package->HasRelationshipById(u"RID1"));
}

TEST(RelationshipById, OfANullIdIsTheOneWithoutId) {
    PackageFile file;
    file.Entry("a.xml", "<a/>");
    file.Relationship("", "urn:a", "a.xml");
    const Handle<opc::Package> package = file.Open();
    EXPECT_NE(package->GetRelationshipById(static_cast<const unsigned short*>(nullptr)), nullptr);
}

TEST(RelationshipByType, FillsTheCursor) {
    const Handle<opc::Package> package = MinimalPackage().Open();
    opc::RelationshipCursor cursor{nullptr, 7};
    opc::Relationship* found = package->GetRelationshipByType(opc::RelTypeOfficeDocument, &cursor);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(cursor.current, found);
    EXPECT_EQ(cursor.position, 0u);
}

TEST(RelationshipByType, OfATypeThatThePackageLacksIsNullInTheCursorToo) {
    const Handle<opc::Package> package = MinimalPackage().Open();
    opc::RelationshipCursor cursor{package->GetRelationshipById(u"rId1"), 7};
    EXPECT_EQ(package->GetRelationshipByType(opc::RelTypeStyles, &cursor), nullptr);
    EXPECT_EQ(cursor.current, nullptr);
    EXPECT_EQ(cursor.position, 0u);
}

TEST(RelationshipByType, OfAnUnknownIdIsNull) {
    const Handle<opc::Package> package = MinimalPackage().Open();
    opc::RelationshipCursor cursor{package->GetRelationshipById(u"rId1"), 7};
    EXPECT_EQ(package->GetRelationshipByType(opc::RelTypeUnknown, &cursor), nullptr);
    EXPECT_EQ(cursor.current, nullptr);
    EXPECT_EQ(cursor.position, 0u);
}

TEST(RelationshipByType, OfAnUnknownIdFindsTheEmptyType) {
    PackageFile file = MinimalPackage();
    file.Relationship("rId2", "", "word/document.xml");
    const Handle<opc::Package> package = file.Open();
    EXPECT_EQ(package->GetRelationshipByType(opc::RelTypeUnknown),
              package->GetRelationshipById(u"rId2"));
}

TEST(RelationshipByType, OfTheThumbnailIsFoundByItsOwnId) {
    PackageFile file;
    file.Entry("t.jpeg", "jpeg");
    file.Relationship("rId1",
                      "http://schemas.openxmlformats.org/package/2006/relationships/metadata/thumbnail",
                      "t.jpeg");
    const Handle<opc::Package> package = file.Open();
    opc::Relationship* thumbnail = package->GetRelationshipByType(opc::RelTypeThumbnail);
    ASSERT_NE(thumbnail, nullptr);
    EXPECT_EQ(thumbnail->GetTypeId(), opc::RelTypeCustomProperties);
    EXPECT_EQ(package->GetRelationshipByType(opc::RelTypeCustomProperties), nullptr);
}

TEST(RelationshipsByType, GiveTheOneOfTheTypeAndTheOneAfterIt) {
    PackageFile file;
    file.Entry("a.xml", "<a/>");
    file.Relationship("rId1", "urn:b", "a.xml");
    file.Relationship("rId2", "urn:a", "a.xml");
    const Handle<opc::Package> package = file.Open();
    const opc::RelationshipRange range = package->GetRelationshipsByType(u"urn:a");
    EXPECT_EQ(range.first, package->GetRelationshipById(u"rId2"));
    EXPECT_EQ(range.next, package->GetRelationshipById(u"rId1"));
}

TEST(RelationshipsByType, GiveNullAfterTheLastType) {
    const Handle<opc::Package> package = MinimalPackage().Open();
    const opc::RelationshipRange range =
        package->GetRelationshipsByType(opc::GetRelationshipTypeUri(opc::RelTypeOfficeDocument));
    EXPECT_EQ(range.first, package->GetRelationshipById(u"rId1"));
    EXPECT_EQ(range.next, nullptr);
}

TEST(RelationshipsByType, OfAnAbsentTypeGiveOneAndTheSameTwice) {
    const Handle<opc::Package> package = MinimalPackage().Open();
    const opc::RelationshipRange before = package->GetRelationshipsByType(u"a");
    EXPECT_EQ(before.first, package->GetRelationshipById(u"rId1"));
    EXPECT_EQ(before.next, before.first);
    const opc::RelationshipRange after = package->GetRelationshipsByType(u"z");
    EXPECT_EQ(after.first, nullptr);
    EXPECT_EQ(after.next, nullptr);
}

TEST(RelationshipsByType, OfAnAbsentTypeAreAnEmptyRange) {
    const Handle<opc::Package> package = MinimalPackage().Open();
    EXPECT_TRUE(package->GetRelationshipsByType(u"a").IsEmpty());
    EXPECT_TRUE(package->GetRelationshipsByType(u"z").IsEmpty());
}

TEST(RelationshipsByType, OfATypeThatIsThereAreNoEmptyRange) {
    PackageFile file;
    file.Entry("a.xml", "<a/>");
    file.Relationship("rId1", "urn:a", "a.xml");
    file.Relationship("rId2", "urn:b", "a.xml");
    const Handle<opc::Package> package = file.Open();
    EXPECT_FALSE(package->GetRelationshipsByType(u"urn:a").IsEmpty());
    EXPECT_FALSE(package->GetRelationshipsByType(u"urn:b").IsEmpty());
}

TEST(RelationshipsByType, AreNotFoundUnderATypeThatIsNotFolded) {
    const Handle<opc::Package> package = MinimalPackage().Open();
    const opc::RelationshipRange range =
        package->GetRelationshipsByType(Utf16(kOfficeDocument).c_str());
    EXPECT_EQ(range.first, range.next);
}

TEST(GetRelationships, StandInTheOrderOfCodeUnits) {
    PackageFile file;
    file.Entry("a.xml", "<a/>");
    for (const char* id : {"rId2", "rId10", "a", "Z"}) file.Relationship(id, "urn:x", "a.xml");
    const Handle<opc::Package> package = file.Open();
    std::vector<std::u16string> ids;
    for (const auto& entry : package->GetRelationships()) ids.push_back(entry.first);
    EXPECT_EQ(ids, (std::vector<std::u16string>{u"Z", u"a", u"rId10", u"rId2"}));
}

TEST(GetPart, TakesANameAsText) {
    const Handle<opc::Package> package = MinimalPackage().Open();
    opc::Part* part = package->GetPart(u"word/document.xml");
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(package->GetPart(opc::PartUri(u"word/document.xml")), part);
}

TEST(GetPart, OfAMissingEntryIsNull) {
    const Handle<opc::Package> package = MinimalPackage().Open();
    EXPECT_EQ(package->GetPart(opc::PartUri(u"word/gone.xml")), nullptr);
    EXPECT_EQ(package->GetPart(opc::PartUri()), nullptr);
}

TEST(GetPart, ComparesNamesWithCase) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    EXPECT_EQ(package->GetPart(opc::PartUri(u"Word/Document.xml")), nullptr);
}

TEST(GetPart, TakesANameWithAndWithoutItsLeadingSlashAsOnePart) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    opc::Part* part = package->GetPart(opc::PartUri(u"word/document.xml"));
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(package->GetPart(opc::PartUri(u"/word/document.xml")), part);
    EXPECT_EQ(package->GetPart(opc::PartUri(u"\\word/document.xml")), part);
    EXPECT_EQ(package->GetPart(opc::PartUri(u"//word/document.xml")), nullptr);
}

TEST(GetPart, TakesTwoSpellingsOfANameForTwoParts) {
    PackageFile file;
    file.Entry("a/b.xml", "<b/>");
    const Handle<opc::Package> package = file.Open();
    opc::Part* slash = package->GetPart(opc::PartUri(u"a/b.xml"));
    opc::Part* backslash = package->GetPart(opc::PartUri(u"a\\b.xml"));
    ASSERT_NE(slash, nullptr);
    ASSERT_NE(backslash, nullptr);
    EXPECT_NE(slash, backslash);

    ComPtr<IStream> first;
    ComPtr<IStream> second;
    ASSERT_EQ(slash->GetStream(first.Out()), S_OK);
    ASSERT_EQ(backslash->GetStream(second.Out()), S_OK);
    EXPECT_NE(first.Get(), second.Get());
    EXPECT_EQ(ReadToEnd(*first.Get()), ReadToEnd(*second.Get()));
}

TEST(GetPart, OfANameWithANulInItIsNullWhenItHasABackslash) {
    PackageFile file;
    file.Entry("a/b.xml", "<b/>");
    const Handle<opc::Package> package = file.Open();
    opc::PartUri name(u"a/b.xml");
    name.name.append(std::u16string_view(u"\0\\x", 3));
    EXPECT_EQ(package->GetPart(name), nullptr);
}

TEST(GetPart, KeepsTheNameAsItWasFirstGiven) {
    PackageFile file;
    file.Entry("a.xml", "<a/>");
    const Handle<opc::Package> package = file.Open();
    package->GetPart(opc::PartUri(u"/a.xml"));
    EXPECT_EQ(package->GetPart(opc::PartUri(u"a.xml"))->GetName().name, u"/a.xml");
}

TEST(FindPart, NeverLoads) {
    PackageFile file = MinimalPackage();
    file.Entry("word/styles.xml", "<styles/>");
    const Handle<opc::Package> package = file.Open();
    EXPECT_EQ(package->FindPart(u"word/styles.xml"), nullptr);
    opc::Part* part = package->GetPart(opc::PartUri(u"word/styles.xml"));
    EXPECT_EQ(package->FindPart(u"word/styles.xml"), part);
    EXPECT_EQ(package->FindPart(u"/word/styles.xml"), part);
}

TEST(PartExists, AsksForTheNameLessItsFirstCharacter) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    EXPECT_TRUE(package->PartExists(opc::PartUri(u"/word/document.xml")));
    EXPECT_TRUE(package->PartExists(opc::PartUri(u"/word\\document.xml")));
    EXPECT_FALSE(package->PartExists(opc::PartUri(u"/word/gone.xml")));
    EXPECT_FALSE(package->PartExists(opc::PartUri()));
}

TEST(PartExists, LosesARealFirstCharacter) {
    PackageFile file;
    file.Entry("docProps/core.xml", "<core/>");
    const Handle<opc::Package> package = file.Open();
    EXPECT_FALSE(package->PartExists(opc::PartUri(u"docProps/core.xml")));
    EXPECT_TRUE(package->PartExists(opc::PartUri(u"xdocProps/core.xml")));
}

TEST(PackageClone, IsEmptyEitherWay) {
    const Handle<opc::Package> package = MinimalPackage().Open();
    EXPECT_FALSE(package->Clone());
    EXPECT_FALSE(package->ShallowClone());
    EXPECT_NE(package->GetRelationshipById(u"rId1"), nullptr) << "the package must live on";
}

TEST(PackageClose, LeavesNothingToFind) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    package->Close();
    EXPECT_TRUE(package->GetRelationships().empty());
    EXPECT_EQ(package->GetRelationshipById(u"rId1"), nullptr);
    EXPECT_EQ(package->GetRelationshipByType(opc::RelTypeOfficeDocument), nullptr);
    EXPECT_EQ(package->GetRelationshipsByType(u"a").first, nullptr);
    EXPECT_FALSE(package->HasRelationshipById(u"rId1"));
    EXPECT_EQ(package->GetPart(opc::PartUri(u"word/document.xml")), nullptr);
    EXPECT_EQ(package->FindPart(u"word/document.xml"), nullptr);
    EXPECT_FALSE(package->PartExists(opc::PartUri(u"/word/document.xml")));
}

TEST(PackageClose, MayRunTwice) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    package->Close();
    package->Close();
    EXPECT_TRUE(package->GetRelationships().empty());
}

TEST(PackageClose, LeavesStreamsToWhoHoldsThem) {
    PackageFile file = MinimalPackage();
    Handle<opc::Package> package = file.Open();
    ComPtr<IStream> stream;
    ASSERT_EQ(package->FindPart(u"word/document.xml")->GetStream(stream.Out()), S_OK);
    package.Reset();
    EXPECT_EQ(ReadToEnd(*stream.Get()), "<document/>");
}

}  // namespace
