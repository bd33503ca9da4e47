#include <gtest/gtest.h>

#include "tests/opc/PackageFile.h"
#include "tests/support/FaultRuntime.h"
#include "vexpa/opc/PartImpl.h"
#include "vexpa/zip/UnZipArchive.h"
#include "vexpa/zip/UnZipArchiveImpl.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

opc::Part* Document(const Handle<opc::Package>& package) {
    return package->GetPart(opc::PartUri(u"word/document.xml"));
}

// A package whose part `part` has this content.
PackageFile WithPart(const std::string& part, const std::string& content) {
    PackageFile file;
    file.Relationship("rId1", "urn:part", part);
    file.Entry(part, content);
    return file;
}

std::string LedgerObject() {
    return std::string(VEXPA_SOURCE_DIR) + "/samples/ledger.xlsx";
}

TEST(PartGetStream, HandsEveryCallerTheSameStreamAndSeekPosition) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    ComPtr<IStream> first;
    ComPtr<IStream> second;
    ASSERT_EQ(Document(package)->GetStream(first.Out()), S_OK);
    ReadToEnd(*first.Get());
    ASSERT_EQ(Document(package)->GetStream(second.Out()), S_OK);
    EXPECT_EQ(second.Get(), first.Get());
    EXPECT_EQ(Position(*second.Get()), 11u);
}

TEST(PartGetStream, ExtractsTheEntryOnce) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    FaultRuntime platform;
    ComPtr<IStream> stream;
    ASSERT_EQ(Document(package)->GetStream(stream.Out()), S_OK);
    ASSERT_EQ(Document(package)->GetStream(stream.Out()), S_OK);
    EXPECT_EQ(platform.Count("UzpUnzipToMemory(word/document.xml)"), 1u);
}

TEST(PartGetStream, OfAnEmptyEntryGivesAnEmptyStreamOverNoBlock) {
    PackageFile file = WithPart("empty.bin", "");
    const Handle<opc::Package> package = file.Open();
    FaultRuntime platform;
    ComPtr<IStream> stream;
    ASSERT_EQ(package->FindPart(u"empty.bin")->GetStream(stream.Out()), S_OK);
    EXPECT_EQ(ReadToEnd(*stream.Get()), "");
    EXPECT_EQ(platform.Count("_XGblAlloc"), 0u);
}

TEST(PartGetStream, RefusesANullOut) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    EXPECT_EQ(Document(package)->GetStream(nullptr), E_INVALIDARG);
}

TEST(PartGetStream, OfADamagedEntryFailsAndTriesAgainLater) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    opc::Part* part = Document(package);
    FaultRuntime platform;
    platform.FailCall("UzpUnzipToMemory");
    IStream* stream = reinterpret_cast<IStream*>(&platform);
    EXPECT_EQ(part->GetStream(&stream), E_FAIL);
    EXPECT_EQ(stream, nullptr);
    EXPECT_EQ(platform.LostBuffers(), 0u);

    ComPtr<IStream> later;
    EXPECT_EQ(part->GetStream(later.Out()), S_OK);
    EXPECT_EQ(ReadToEnd(*later.Get()), "<document/>");
}

TEST(PartGetStream, OfAnEntryThatIsGoneFailsEachTimeAnew) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    opc::Part* part = Document(package);
    file.Write();  // a new file, so the old one is gone
    FaultRuntime platform;
    ComPtr<IStream> stream;
    EXPECT_EQ(part->GetStream(stream.Out()), E_FAIL);
    EXPECT_EQ(part->GetStream(stream.Out()), E_FAIL);
    EXPECT_EQ(platform.Count("UzpUnzipToMemory(word/document.xml)"), 2u);
}

TEST(PartGetStream, OfAnEncryptedEntryFails) {
    PackageFile file = MinimalPackage();
    file.Entry("secret.bin", "secret").flags = 1;
    const Handle<opc::Package> package = file.Open();
    ComPtr<IStream> stream;
    EXPECT_EQ(package->GetPart(opc::PartUri(u"secret.bin"))->GetStream(stream.Out()), E_FAIL);
}

TEST(PartGetStream, FailsWhenMemoryOrTheStreamCannotBeHad) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    for (const char* call : {"_XGblAlloc", "_XCreateStreamOnHGBL", "_XGblLock", "vmemcpy_s"}) {
        SCOPED_TRACE(call);
        FaultRuntime platform;
        platform.FailCall(call);
        IStream* stream = reinterpret_cast<IStream*>(&platform);
        EXPECT_EQ(Document(package)->GetStream(&stream), E_FAIL);
        EXPECT_EQ(stream, nullptr);
    }
    ComPtr<IStream> stream;
    EXPECT_EQ(Document(package)->GetStream(stream.Out()), S_OK);
}

TEST(PartData, OutOfMemoryForTheBlockLosesTheExtractedBytes) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    FaultRuntime platform;
    platform.FailCall("_XGblAlloc", 1);
    ComPtr<IStream> stream;
    EXPECT_EQ(Document(package)->GetStream(stream.Out()), E_FAIL);
    EXPECT_EQ(platform.LostBuffers(), 1u);
    platform.FailCall("_XGblAlloc", 1);
    ComPtr<IStorage> storage;
    EXPECT_EQ(Document(package)->GetStorage(storage.Out()), E_FAIL);
    EXPECT_EQ(platform.LostBuffers(), 2u);
}

TEST(PartLoadData, GivesTheRecordWithTheStream) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    opc::PartData* data = Document(package)->LoadData();
    ASSERT_NE(data, nullptr);
    ASSERT_NE(data->dataStream, nullptr);
    EXPECT_EQ(data->bytes, nullptr);
    EXPECT_EQ(data->length, 0u);
    EXPECT_EQ(data->position, nullptr);
    EXPECT_EQ(data->end, nullptr);
    ComPtr<IStream> stream;
    ASSERT_EQ(Document(package)->GetStream(stream.Out()), S_OK);
    EXPECT_EQ(stream.Get(), data->dataStream);
    EXPECT_EQ(Document(package)->LoadData(), data);
}

TEST(PartLoadData, LeavesTheStreamNullOnFailure) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    FaultRuntime platform;
    platform.FailCall("_XCreateStreamOnHGBL");
    EXPECT_EQ(Document(package)->LoadData()->dataStream, nullptr);
}

// That they are freed is for the leak checker to say.
TEST(PartLoadData, FreesTheBytesThatACallerGivesToTheRecord) {
    PackageFile file = WithPart("part", "content");
    const Handle<opc::Package> package = file.Open();
    opc::Part* part = package->GetPart(opc::PartUri(u"part"));
    opc::PartData* data = part->LoadData();
    data->bytes = new std::uint8_t[4]{1, 2, 3, 4};
    data->ownsBytes = 1;
    EXPECT_EQ(part->LoadData(), data);
    EXPECT_EQ(data->bytes[3], 4);
}

TEST(PartGetStorage, OpensTheCompoundFileOfAPart) {
    const Handle<opc::Package> package = opc::Package::Open(Utf16(LedgerObject()).c_str());
    ASSERT_TRUE(package);
    opc::Part* part = package->GetPart(opc::PartUri(u"xl/embeddings/oleObject1.bin"));
    ASSERT_NE(part, nullptr);
    ComPtr<IStorage> storage;
    ASSERT_EQ(part->GetStorage(storage.Out()), S_OK);
    ComPtr<IStream> stream;
    ASSERT_EQ(storage->OpenStream(u"tides.csv", nullptr, 0, 0, stream.Out()), S_OK);
    EXPECT_EQ(ReadToEnd(*stream.Get()), "Day,High,Low\nMonday,4.2,0.9\nTuesday,4.0,1.1\n");
}

TEST(PartGetStorage, HandsOutOneStorageAndExtractsApartFromTheStream) {
    const Handle<opc::Package> package = opc::Package::Open(Utf16(LedgerObject()).c_str());
    opc::Part* part = package->GetPart(opc::PartUri(u"xl/embeddings/oleObject1.bin"));
    FaultRuntime platform;
    ComPtr<IStream> stream;
    ComPtr<IStorage> first;
    ComPtr<IStorage> second;
    ASSERT_EQ(part->GetStream(stream.Out()), S_OK);
    ASSERT_EQ(part->GetStorage(first.Out()), S_OK);
    ASSERT_EQ(part->GetStorage(second.Out()), S_OK);
    EXPECT_EQ(first.Get(), second.Get());
    EXPECT_EQ(platform.Count("UzpUnzipToMemory(xl/embeddings/oleObject1.bin)"), 2u);
}

TEST(PartGetStorage, OpensANewOneAfterClose) {
    const Handle<opc::Package> package = opc::Package::Open(Utf16(LedgerObject()).c_str());
    opc::Part* part = package->GetPart(opc::PartUri(u"xl/embeddings/oleObject1.bin"));
    FaultRuntime platform;
    ComPtr<IStorage> before;
    ASSERT_EQ(part->GetStorage(before.Out()), S_OK);
    part->Close();
    ComPtr<IStorage> after;
    ASSERT_EQ(part->GetStorage(after.Out()), S_OK);
    EXPECT_NE(after.Get(), before.Get());
    EXPECT_EQ(platform.Count("UzpUnzipToMemory(xl/embeddings/oleObject1.bin)"), 2u);
}

TEST(PartGetStorage, RefusesANullOut) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    EXPECT_EQ(Document(package)->GetStorage(nullptr), E_INVALIDARG);
}

TEST(PartGetStorage, OfAPartThatIsNoCompoundFileFailsAndLeavesOutUntouched) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    IStorage* const before = reinterpret_cast<IStorage*>(&file);
    IStorage* storage = before;
    EXPECT_EQ(Document(package)->GetStorage(&storage), E_FAIL);
    EXPECT_EQ(storage, before);
}

TEST(PartGetStorage, OfAnEmptyEntryFails) {
    PackageFile file = WithPart("empty.bin", "");
    const Handle<opc::Package> package = file.Open();
    ComPtr<IStorage> storage;
    EXPECT_EQ(package->FindPart(u"empty.bin")->GetStorage(storage.Out()), E_FAIL);
}

TEST(PartGetStorage, StoresNullWhenTheEntryCannotBeExtracted) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    for (const char* call : {"UzpUnzipToMemory", "_XGblAlloc"}) {
        SCOPED_TRACE(call);
        FaultRuntime platform;
        platform.FailCall(call);
        IStorage* storage = reinterpret_cast<IStorage*>(&file);
        EXPECT_EQ(Document(package)->GetStorage(&storage), E_FAIL);
        EXPECT_EQ(storage, nullptr);
    }
}

TEST(PartClose, KeepsTheStreamAndDropsTheRelationships) {
    PackageFile file = MinimalPackage();
    file.Entry("word/_rels/document.xml.rels",
               RelationshipsXml(RelationshipXml("rId1", kStyles, "styles.xml")));
    const Handle<opc::Package> package = file.Open();
    opc::Part* part = Document(package);
    ComPtr<IStream> before;
    ASSERT_EQ(part->GetStream(before.Out()), S_OK);
    part->Close();
    ComPtr<IStream> after;
    ASSERT_EQ(part->GetStream(after.Out()), S_OK);
    EXPECT_EQ(after.Get(), before.Get());
    EXPECT_TRUE(part->GetRelationships().empty());
    EXPECT_EQ(part->GetRelationshipByType(opc::RelTypeStyles), nullptr);
}

TEST(PartGetRelationshipByType, OfAnIdWithoutUriIsNullInTheCursorToo) {
    PackageFile file = MinimalPackage();
    file.Entry("word/_rels/document.xml.rels",
               RelationshipsXml(RelationshipXml("rId1", kStyles, "styles.xml")));
    const Handle<opc::Package> package = file.Open();
    opc::Part* part = Document(package);
    opc::RelationshipCursor cursor{part->GetRelationshipById(u"rId1"), 7};
    EXPECT_EQ(part->GetRelationshipByType(static_cast<opc::RelationshipTypeId>(60), &cursor), nullptr);
    EXPECT_EQ(cursor.current, nullptr);
    EXPECT_EQ(cursor.position, 0u);
    EXPECT_EQ(part->GetRelationshipByType(opc::RelTypeStyles, &cursor), cursor.current);
    EXPECT_NE(cursor.current, nullptr);
}

TEST(PartGetRelationshipsByType, GiveNullAfterTheLastType) {
    PackageFile file = MinimalPackage();
    file.Entry("word/_rels/document.xml.rels",
               RelationshipsXml(RelationshipXml("rId1", "urn:a", "a.xml") +
                                RelationshipXml("rId2", "urn:b", "b.xml")));
    const Handle<opc::Package> package = file.Open();
    opc::Part* part = Document(package);
    EXPECT_EQ(part->GetRelationshipsByType(u"urn:a").next, part->GetRelationshipById(u"rId2"));
    EXPECT_EQ(part->GetRelationshipsByType(u"urn:b").next, nullptr);
    const opc::RelationshipRange absent = part->GetRelationshipsByType(u"urn:aa");
    EXPECT_EQ(absent.first, absent.next);
}

TEST(PartGetContentType, IsNeverNull) {
    PackageFile file;
    file.Entry("a.xml", "<a/>");
    const Handle<opc::Package> package = file.Open();
    const unsigned short* type = package->GetPart(opc::PartUri(u"a.xml"))->GetContentType();
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(Text(type), u"");
}

TEST(PartGetEntryValue, IsZeroForAnEntryAndWithoutOne) {
    PackageFile file = MinimalPackage();
    const Handle<opc::Package> package = file.Open();
    EXPECT_EQ(Document(package)->GetEntryValue(), 0);
    EXPECT_EQ(opc::PartImpl(opc::PartUri(u"a"), u"a", u"", nullptr).GetEntryValue(), 0);
}

// The archive finds the entry, as it reads the backslash as a slash; its index has no such name.
TEST(PartGetEntryValue, IsZeroForANameThatTheIndexLacks) {
    PackageFile file = MinimalPackage();
    lumo::Compression::Zip::UnZipArchive archive;
    ASSERT_EQ(archive.Open(file.Write().Path16().c_str()), S_OK);
    opc::PartImpl part(opc::PartUri(u"a"), u"word\\document.xml", u"", &archive);
    EXPECT_EQ(part.GetEntryValue(), 0);
    EXPECT_EQ(archive.GetImpl()->entryIndexByName.at(u"word\\document.xml"), 0u);
}

TEST(PartData, OfAPartWithoutAnArchiveIsNotThere) {
    opc::PartImpl part(opc::PartUri(u"a"), u"a", u"", nullptr);
    ComPtr<IStream> stream;
    ComPtr<IStorage> storage;
    EXPECT_EQ(part.GetStream(stream.Out()), E_FAIL);
    EXPECT_EQ(part.GetStorage(storage.Out()), E_FAIL);
}

}  // namespace
