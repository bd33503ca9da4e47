#include <gtest/gtest.h>

#include "tests/tool/check/SoundPackage.h"
#include "tool/check/Skeleton.h"

namespace {

using namespace vexpa_test;
using namespace vexpa_tool;
namespace opc = tarn::opc;

// A refused package, and what stands in for it.
struct Refused {
    explicit Refused(const std::string& bytes)
        : file(bytes), subject(InputFile(file.Path()), {}), findings(false) {
        ReplayOpening(subject, findings);
    }

    ScratchFile file;
    Subject subject;
    Findings findings;
};

std::string WithoutItsLastPart(SoundPackage package = {}) {
    package.relationships += Relation("rId2", OfficeType("theme"), "gone.xml");
    return package.Bytes();
}

opc::Part* DocumentOf(const Refused& refused) {
    return refused.subject.model->GetPart(opc::PartUri(u"word/document.xml"));
}

TEST(Skeleton, AnswersRelationshipsOfAPackageThatDoesNotOpen) {
    const Refused refused(WithoutItsLastPart());
    ASSERT_FALSE(refused.subject.Opens());
    ASSERT_NE(refused.subject.model, nullptr);
    const opc::Relationship* main =
        refused.subject.model->GetRelationshipByType(opc::RelTypeOfficeDocument);
    ASSERT_NE(main, nullptr);
    EXPECT_EQ(main->GetResolvedTarget().name, u"word/document.xml");
    ASSERT_NE(DocumentOf(refused), nullptr);
    opc::Relationship* image = DocumentOf(refused)->GetRelationshipById(u"rId1");
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetResolvedTarget().name, u"word/media/image1.png");
}

TEST(Skeleton, AnswersContentTypes) {
    const Refused refused(WithoutItsLastPart());
    ASSERT_NE(refused.subject.model, nullptr);
    EXPECT_TRUE(tarn::CopyText(DocumentOf(refused)->GetContentType()).ends_with(u"document.main+xml"));
}

TEST(Skeleton, StandsInForAPackageWithoutSoundContentTypes) {
    const std::optional<std::string> malformed = "<", none;
    for (const std::optional<std::string>* types : {&malformed, &none}) {
        SoundPackage package;
        package.instead["[Content_Types].xml"] = *types;
        const Refused refused(package.Bytes());
        ASSERT_NE(refused.subject.model, nullptr);
        EXPECT_NE(DocumentOf(refused), nullptr);
    }
}

TEST(Skeleton, KeepsTextThatCouldBreakOutOfAnAttribute) {
    SoundPackage package;
    package.relationships = Relation("a&quot;/&gt;&#10;\u00fc", "urn:&lt;", "gone.xml");
    const Refused refused(package.Bytes());
    ASSERT_NE(refused.subject.model, nullptr);
    const opc::Relationship* relationship =
        refused.subject.model->GetRelationshipById(u"a\"/>\n\u00fc");
    ASSERT_NE(relationship, nullptr);
    EXPECT_EQ(tarn::CopyText(relationship->GetType()), u"urn:<");
}

TEST(Skeleton, KeepsADamagedStreamDamaged) {
    SoundPackage package;
    package.instead["word/_rels/document.xml.rels"] = std::nullopt;
    package.Add("word/_rels/document.xml.rels", "<R/>").crc = 1;
    const Refused refused(WithoutItsLastPart(package));
    ASSERT_NE(refused.subject.model, nullptr);
    EXPECT_TRUE(DocumentOf(refused)->GetRelationships().empty());
}

TEST(Skeleton, TellsApartWhatWasAdded) {
    const Refused refused(WithoutItsLastPart());
    ASSERT_NE(refused.subject.model, nullptr);
    std::size_t added = 0;
    for (const auto& [id, relationship] : refused.subject.model->GetRelationships()) {
        added += Skeleton::IsAdded(*relationship) ? 1 : 0;
    }
    EXPECT_EQ(added, 1u);
    for (const opc::Part* part : refused.subject.parts) EXPECT_FALSE(Skeleton::IsAdded(*part));
}

TEST(Skeleton, IsNotMadeOfAVeryLargePackage) {
    SoundPackage package;
    for (int i = 0; i < 2100; ++i) package.Add("extra/" + std::to_string(i), "");
    const Refused refused(WithoutItsLastPart(package));
    EXPECT_EQ(refused.subject.model, nullptr);
    ASSERT_NE(refused.findings.Stop(), nullptr);
    EXPECT_EQ(refused.findings.Stop()->id, FindingId::LastTargetMissing);
}

}  // namespace
