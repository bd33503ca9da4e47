#include <gtest/gtest.h>

#include "tests/opc/PackageFile.h"
#include "tests/support/FaultRuntime.h"
#include "vexpa/opc/RelationshipReader.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

// A package whose part word/document.xml has this relationship stream.
PackageFile WithStream(const std::string& stream) {
    PackageFile file = MinimalPackage();
    file.Entry("word/_rels/document.xml.rels", stream);
    return file;
}

opc::Part* Document(const Handle<opc::Package>& package) {
    return package->GetPart(opc::PartUri(u"word/document.xml"));
}

TEST(RelationshipEntryName, StandsInTheFolderRels) {
    struct Row {
        const char* what;
        const char16_t* source;
        const char16_t* entry;
    };
    const Row rows[] = {
        {"a leading slash stays", u"/word/document.xml", u"/word/_rels/document.xml.rels"},
        {"no leading slash", u"word/document.xml", u"word/_rels/document.xml.rels"},
        {"a part at the root", u"/a.xml", u"/_rels/a.xml.rels"},
        {"a part at the root without slash", u"a.xml", u"_rels/a.xml.rels"},
        {"backslashes in the directory", u"\\word\\document.xml", u"/word/_rels/document.xml.rels"},
        {"no extension", u"word/document", u"word/_rels/document.rels"},
        {"several dots", u"word/a.b.xml", u"word/_rels/a.b.xml.rels"},
        {"only an extension", u"_rels/.rels", u"_rels/_rels/.rels.rels"},
        {"a dot in the directory", u"conf.d/readme", u"conf.d/_rels/readme.rels"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(opc::RelationshipEntryName(row.source), row.entry);
    }
}

TEST(RelationshipEntryName, IsEmptyForANameThatOverflows) {
    const std::u16string longName(12288, u'a');
    EXPECT_EQ(opc::RelationshipEntryName(u"word/" + longName), u"");
    EXPECT_EQ(opc::RelationshipEntryName(longName + u"/document.xml"), u"");
    EXPECT_EQ(opc::RelationshipEntryName(u"a." + longName.substr(0, 768)), u"");
    EXPECT_EQ(opc::RelationshipEntryName(longName.substr(0, 12280) + u"/a.xml"), u"")
        << "the pieces fit, their sum does not";
    EXPECT_NE(opc::RelationshipEntryName(u"word/" + longName.substr(0, 12000)), u"");
}

TEST(RelationshipStream, IsReadWithThePart) {
    PackageFile file = WithStream(RelationshipsXml(RelationshipXml("rId1", kStyles, "styles.xml")));
    const Handle<opc::Package> package = file.Open();
    opc::Relationship* styles = Document(package)->GetRelationshipById(u"rId1");
    ASSERT_NE(styles, nullptr);
    EXPECT_EQ(styles->GetResolvedTarget().name, u"word/styles.xml");
    EXPECT_EQ(styles->GetSource().name, u"word/document.xml");
}

TEST(RelationshipStream, IsFoundForANameWithBackslashes) {
    PackageFile file = WithStream(RelationshipsXml(RelationshipXml("rId1", kStyles, "styles.xml")));
    const Handle<opc::Package> package = file.Open();
    opc::Part* part = package->GetPart(opc::PartUri(u"\\word\\document.xml"));
    ASSERT_NE(part, nullptr);
    EXPECT_TRUE(part->HasRelationship(u"rId1"));
    ComPtr<IStream> stream;
    EXPECT_EQ(part->GetStream(stream.Out()), S_OK);
}

TEST(RelationshipStream, IsFoundForANameWithALeadingSlash) {
    PackageFile file;
    file.Relationship("rId1", kOfficeDocument, "/word/document.xml");
    file.Entry("word/document.xml", "<document/>");
    file.Entry("word/_rels/document.xml.rels",
               RelationshipsXml(RelationshipXml("rId1", kStyles, "styles.xml")));
    const Handle<opc::Package> package = file.Open();
    opc::Relationship* styles = Document(package)->GetRelationshipById(u"rId1");
    ASSERT_NE(styles, nullptr);
    EXPECT_EQ(styles->GetSource().name, u"/word/document.xml");
    EXPECT_EQ(styles->GetResolvedTarget().name, u"word/styles.xml");
}

// One slash is the name's own; the other one is the entry's, for the stream as for the part.
TEST(RelationshipStream, IsFoundForANameWithTwoLeadingSlashes) {
    PackageFile file = MinimalPackage();
    file.Entry("/word/odd.xml", "odd");
    file.Entry("/word/_rels/odd.xml.rels",
               RelationshipsXml(RelationshipXml("rId1", kStyles, "styles.xml")));
    const Handle<opc::Package> package = file.Open();
    opc::Part* part = package->GetPart(opc::PartUri(u"//word/odd.xml"));
    ASSERT_NE(part, nullptr);
    EXPECT_TRUE(part->HasRelationship(u"rId1"));
    ComPtr<IStream> stream;
    ASSERT_EQ(part->GetStream(stream.Out()), S_OK);
    EXPECT_EQ(ReadToEnd(*stream.Get()), "odd");
}

// The stream is asked for unseen, and what is asked for is a pattern.
TEST(RelationshipStream, OfANameThatIsAPatternMayBeThatOfAnotherPart) {
    PackageFile file = MinimalPackage();
    file.Entry("word/a1.xml", "<a/>");
    file.Entry("word/a[1].xml", "<a/>");
    file.Entry("word/_rels/a1.xml.rels",
               RelationshipsXml(RelationshipXml("rId1", kStyles, "styles.xml")));
    const Handle<opc::Package> package = file.Open();
    opc::Part* part = package->GetPart(opc::PartUri(u"word/a[1].xml"));
    ASSERT_NE(part, nullptr);
    EXPECT_TRUE(part->HasRelationship(u"rId1"));
}

TEST(RelationshipStream, ThatIsAbsentLeavesThePartWithoutRelationships) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    opc::Part* part = Document(package);
    ASSERT_NE(part, nullptr);
    EXPECT_TRUE(part->GetRelationships().empty());
    EXPECT_EQ(part->GetRelationshipById(u"rId1"), nullptr);
    EXPECT_EQ(part->GetRelationshipByType(opc::RelTypeStyles), nullptr);
}

TEST(RelationshipStream, ThatIsBrokenDoesNotCostThePart) {
    for (const char* stream : {"", "not xml", "<Relationships>", "<Relationships></Relationship>"}) {
        SCOPED_TRACE(stream);
        PackageFile file = WithStream(stream);
        const Handle<opc::Package> package = file.Open();
        ASSERT_NE(Document(package), nullptr);
        EXPECT_TRUE(Document(package)->GetRelationships().empty());
    }
}

TEST(RelationshipStream, ThatCannotBeExtractedDoesNotCostThePart) {
    PackageFile file = MinimalPackage();
    file.Entry("word/_rels/document.xml.rels", RelationshipsXml("")).crc = 1;
    const Handle<opc::Package> package = file.Open();
    ASSERT_NE(Document(package), nullptr);
    EXPECT_TRUE(Document(package)->GetRelationships().empty());
}

TEST(RelationshipStream, OfAFailingPlatformDoesNotCostThePart) {
    PackageFile file = WithStream(RelationshipsXml(RelationshipXml("rId1", kStyles, "styles.xml")));
    const std::u16string path = file.Write().Path16();
    for (const char* call : {"_XGblAlloc", "_XCreateStreamOnHGBL", "_XDOMParse"}) {
        SCOPED_TRACE(call);
        FaultRuntime platform;
        platform.FailCall(call, 3);  // after the two of opening
        const Handle<opc::Package> package = opc::Package::Open(path.c_str());
        ASSERT_TRUE(package);
        ASSERT_EQ(platform.FailedCall(), call);
        EXPECT_TRUE(Document(package)->GetRelationships().empty());
    }
}

TEST(RelationshipStream, OutOfMemoryForItsBlockLosesTheExtractedBytes) {
    PackageFile file = WithStream(RelationshipsXml(""));
    const std::u16string path = file.Write().Path16();
    FaultRuntime platform;
    platform.FailCall("_XGblAlloc", 3);
    const Handle<opc::Package> package = opc::Package::Open(path.c_str());
    ASSERT_TRUE(package);
    EXPECT_EQ(platform.LostBuffers(), 1u);
}

TEST(RelationshipStream, CountsElementsUnderAnyRootAndNamespace) {
    PackageFile file = WithStream(
        "<r:other xmlns:r='urn:other'><deep><r:Relationship Id='a' Type='t' Target='x.xml'/></deep>"
        "<Relationship Id='b' Type='t' Target='y.xml'/></r:other>");
    const Handle<opc::Package> package = file.Open();
    EXPECT_TRUE(Document(package)->HasRelationship(u"a"));
    EXPECT_TRUE(Document(package)->HasRelationship(u"b"));
}

TEST(RelationshipStream, MatchesNamesWithCase) {
    PackageFile file = WithStream("<r><relationship Id='a'/><Relationship id='b' Target='x'/></r>");
    const Handle<opc::Package> package = file.Open();
    EXPECT_FALSE(Document(package)->HasRelationship(u"a"));
    EXPECT_FALSE(Document(package)->HasRelationship(u"b"));
    EXPECT_TRUE(Document(package)->HasRelationship(u""));
}

TEST(RelationshipStream, SkipsAnElementWithoutAttributes) {
    PackageFile file = WithStream("<r><Relationship/><Relationship Id='b'/></r>");
    const Handle<opc::Package> package = file.Open();
    EXPECT_EQ(Document(package)->GetRelationships().size(), 1u);
}

TEST(RelationshipStream, LeavesAMissingAttributeEmpty) {
    PackageFile file = WithStream("<r><Relationship Id='a'/><Relationship Target='x.xml'/></r>");
    const Handle<opc::Package> package = file.Open();
    opc::Relationship* a = Document(package)->GetRelationshipById(u"a");
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->GetTarget().name, u"");
    EXPECT_EQ(Text(a->GetType()), u"");
    EXPECT_EQ(a->GetTargetMode(), opc::TargetModeInternal);
    opc::Relationship* nameless = Document(package)->GetRelationshipById(u"");
    ASSERT_NE(nameless, nullptr);
    EXPECT_EQ(nameless->GetResolvedTarget().name, u"word/x.xml");
}

TEST(RelationshipStream, OfARepeatedIdKeepsTheFirstAndFindsBothByType) {
    PackageFile file = WithStream(RelationshipsXml(RelationshipXml("rId1", "urn:a", "a.xml") +
                                                   RelationshipXml("rId1", "urn:b", "b.xml")));
    const Handle<opc::Package> package = file.Open();
    opc::Part* part = Document(package);
    EXPECT_EQ(part->GetRelationships().size(), 1u);
    EXPECT_EQ(part->GetRelationshipById(u"rId1")->GetTarget().name, u"a.xml");
    EXPECT_EQ(part->GetRelationshipsByType(u"urn:b").first->GetTarget().name, u"b.xml");
}

TEST(RelationshipStream, OfARepeatedIdAndTypeFindsOnlyTheFirst) {
    PackageFile file = WithStream(RelationshipsXml(RelationshipXml("rId1", "urn:a", "a.xml") +
                                                   RelationshipXml("rId1", "urn:a", "b.xml")));
    const Handle<opc::Package> package = file.Open();
    opc::Part* part = Document(package);
    EXPECT_EQ(part->GetRelationships().size(), 1u);
    const opc::RelationshipRange range = part->GetRelationshipsByType(u"urn:a");
    EXPECT_EQ(range.first, part->GetRelationshipById(u"rId1"));
    EXPECT_EQ(range.first->GetTarget().name, u"a.xml");
    EXPECT_EQ(range.next, nullptr);
}

TEST(RelationshipStream, OfARepeatedTypeGivesTheFirstInDocumentOrder) {
    PackageFile file = WithStream(RelationshipsXml(RelationshipXml("rId2", kStyles, "first.xml") +
                                                   RelationshipXml("rId1", kStyles, "second.xml")));
    const Handle<opc::Package> package = file.Open();
    opc::Part* part = Document(package);
    EXPECT_EQ(part->GetRelationshipByType(opc::RelTypeStyles)->GetTarget().name, u"first.xml");
    EXPECT_TRUE(part->HasRelationship(u"rId1"));
}

TEST(RelationshipStream, TakesAnyOtherTargetModeForInternal) {
    PackageFile file = WithStream(RelationshipsXml(RelationshipXml("a", "t", "http://x/", "EXTERNAL") +
                                                   RelationshipXml("b", "t", "x.xml", "externals") +
                                                   RelationshipXml("c", "t", "x.xml", "Internal")));
    const Handle<opc::Package> package = file.Open();
    opc::Part* part = Document(package);
    EXPECT_EQ(part->GetRelationshipById(u"a")->GetTargetMode(), opc::TargetModeExternal);
    EXPECT_EQ(part->GetRelationshipById(u"b")->GetTargetMode(), opc::TargetModeInternal);
    EXPECT_EQ(part->GetRelationshipById(u"c")->GetTargetMode(), opc::TargetModeInternal);
}

TEST(RelationshipStream, DoesNotLoadItsTargets) {
    PackageFile file = WithStream(RelationshipsXml(RelationshipXml("rId1", kStyles, "styles.xml")));
    file.Entry("word/styles.xml", "<styles/>");
    const Handle<opc::Package> package = file.Open();
    EXPECT_EQ(package->FindPart(u"word/styles.xml"), nullptr);
}

TEST(RelationshipStream, IsReadOnlyOnce) {
    PackageFile file = WithStream(RelationshipsXml(RelationshipXml("rId1", kStyles, "styles.xml")));
    const std::u16string path = file.Write().Path16();
    FaultRuntime platform;
    const Handle<opc::Package> package = opc::Package::Open(path.c_str());
    opc::Part* part = Document(package);
    EXPECT_EQ(Document(package), part);
    EXPECT_EQ(platform.Count("UzpUnzipToMemory(word/_rels/document.xml.rels)"), 1u);
}

TEST(RelationshipStream, OfManyRelationshipsIsReadWhole) {
    std::string elements;
    for (int i = 0; i < 20000; ++i) {
        elements +=
            RelationshipXml("rId" + std::to_string(i), "urn:t" + std::to_string(i % 7), "x.xml");
    }
    PackageFile file = WithStream(RelationshipsXml(elements));
    const Handle<opc::Package> package = file.Open();
    EXPECT_EQ(Document(package)->GetRelationships().size(), 20000u);
}

// Copies of a long name would be a memory bomb: an element of a few bytes is enough for each.
TEST(RelationshipStream, KeepsTheNameOfItsSourceOnce) {
    PackageFile file = WithStream(RelationshipsXml(RelationshipXml("rId1", "urn:a", "a.xml") +
                                                   RelationshipXml("rId2", "urn:b", "b.xml")));
    const Handle<opc::Package> package = file.Open();
    opc::Part* document = Document(package);
    const opc::PartUri& source = document->GetRelationshipById(u"rId1")->GetSource();
    EXPECT_EQ(source, document->GetName());
    EXPECT_EQ(&source, &document->GetRelationshipById(u"rId2")->GetSource());
}

}  // namespace
