#include <gtest/gtest.h>

#include "tests/opc/PackageFile.h"
#include "tests/opc/SingleRelationship.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

TEST(Relationship, WithoutAnyTextAnswersEmptyTexts) {
    const opc::RelationshipImpl relationship =
        SingleRelationship(nullptr, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(relationship.GetId(), nullptr);
    ASSERT_NE(relationship.GetType(), nullptr);
    EXPECT_EQ(Text(relationship.GetId()), u"");
    EXPECT_EQ(Text(relationship.GetType()), u"");
    EXPECT_EQ(relationship.GetSource().name, u"");
    EXPECT_EQ(relationship.GetTarget().name, u"");
    EXPECT_EQ(relationship.GetResolvedTarget().name, u"");
    EXPECT_EQ(relationship.GetTargetMode(), opc::TargetModeInternal);
    EXPECT_EQ(relationship.GetTypeId(), opc::RelTypeUnknown);
}

TEST(Relationship, GivesTheTypeAsWrittenAndItsIdWithoutRegardToCaseAndBlanks) {
    const char16_t* written =
        u"\t HTTP://schemas.openxmlformats.org/officeDocument/2006/relationships/STYLES rest";
    const opc::RelationshipImpl relationship =
        SingleRelationship(u"rId1", written, u"", u"a.xml", nullptr);
    EXPECT_EQ(Text(relationship.GetType()), written);
    EXPECT_EQ(relationship.GetTypeId(), opc::RelTypeStyles);
}

TEST(Relationship, OfAThumbnailAnswersTheIdOfCustomProperties) {
    const opc::RelationshipImpl relationship = SingleRelationship(
        u"rId1", u"http://schemas.openxmlformats.org/package/2006/relationships/metadata/thumbnail",
        u"", u"t.jpeg", nullptr);
    EXPECT_EQ(relationship.GetTypeId(), 33u);
}

TEST(Relationship, IsExternalForThatWordInAnyCaseOnly) {
    const auto mode = [](const char16_t* text) {
        return SingleRelationship(u"a", u"t", u"", u"x", text).GetTargetMode();
    };
    EXPECT_EQ(mode(u"External"), opc::TargetModeExternal);
    EXPECT_EQ(mode(u"eXTERNAL"), opc::TargetModeExternal);
    EXPECT_EQ(mode(u"Internal"), opc::TargetModeInternal);
    EXPECT_EQ(mode(u"External "), opc::TargetModeInternal);
    EXPECT_EQ(mode(nullptr), opc::TargetModeInternal);
}

TEST(Relationship, OfThePackageResolvesToItsTarget) {
    const struct {
        const char* shows;
        const char16_t* target;
    } rows[] = {
        {"relative", u"word/document.xml"}, {"the leading slash stays", u"/word/document.xml"},
        {"so do steps up", u"../x.xml"},    {"and a URI", u"http://example.org/x"},
        {"and nothing at all", u""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shows);
        const opc::RelationshipImpl relationship =
            SingleRelationship(u"a", u"t", u"", row.target, nullptr);
        EXPECT_EQ(relationship.GetTarget().name, row.target);
        EXPECT_EQ(relationship.GetResolvedTarget().name, row.target);
    }
}

TEST(Relationship, OfAPartResolvesAgainstItsSource) {
    const opc::RelationshipImpl relationship =
        SingleRelationship(u"a", u"t", u"/word/document.xml", u"media/image1.png", nullptr);
    EXPECT_EQ(relationship.GetSource().name, u"/word/document.xml");
    EXPECT_EQ(relationship.GetTarget().name, u"media/image1.png");
    EXPECT_EQ(relationship.GetResolvedTarget().name, u"word/media/image1.png");
}

TEST(Relationship, LivesOnItsOwnUntilReleased) {
    auto* relationship = new opc::RelationshipImpl(SingleRelationship(u"a", u"t", u"", u"x", nullptr));
    opc::Relationship* interface = relationship;
    interface->Release();  // a leak or a second deletion is for the sanitizer to see
}

}  // namespace
