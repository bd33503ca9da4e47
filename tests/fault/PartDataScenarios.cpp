// The bytes of parts: streams and storages.
#include <random>

#include "tests/damage/SoundPackages.h"
#include "tests/fault/Scenario.h"
#include "tests/opc/PackageFile.h"
#include "vexpa/base/ComPtr.h"

namespace vexpa_test {

using namespace tarn;

namespace {

// More than is kept at hand for compressed bytes, and nothing that deflate could make smaller.
std::string LargeContent() {
    std::minstd_rand random(1);
    std::string content(300'000, '\0');
    for (char& c : content) c = static_cast<char>(random() & 0xFF);
    return content;
}

// Large enough for huge pages.
std::string VeryLargeContent() {
    return std::string(3'000'000, 'x');
}

// A part of this content, of which the package consists but for what must be.
ZipFile PackageWith(const std::string& content) {
    ZipFile zip;
    zip.Add("[Content_Types].xml", "<Types/>");
    zip.Add("_rels/.rels", RelationshipsXml(RelationshipXml("rId1", "urn:part", "part.bin")));
    zip.Add("part.bin", content);
    return zip;
}

std::string LargeStored() {
    ZipFile zip = PackageWith(LargeContent());
    zip.entries.back().stored = true;
    return zip.Bytes();
}

std::string VeryLargeStored() {
    ZipFile zip = PackageWith(VeryLargeContent());
    zip.entries.back().stored = true;
    return zip.Bytes();
}

std::string Damaged() {
    ZipFile zip = PackageWith("some bytes");
    zip.entries.back().crc = 1;
    return zip.Bytes();
}

std::string Encrypted() {
    ZipFile zip = PackageWith("some bytes");
    zip.entries.back().flags = 1;
    return zip.Bytes();
}

std::string UnknownMethod() {
    ZipFile zip = PackageWith("some bytes");
    zip.entries.back().method = 14;
    return zip.Bytes();
}

std::string PackageWithObject() {
    return PackageWith(SoundObject()).Bytes();
}

opc::Part& ThePart(Stage& stage) {
    return *stage.Find(u"part.bin");
}

void ReadStream(Stage& stage, Transcript& seen) {
    seen.SayStream(ThePart(stage));
}

void ReadStorage(Stage& stage, Transcript& seen) {
    seen.SayStorage(ThePart(stage));
}

void ReadBoth(Stage& stage, Transcript& seen) {
    seen.SayStream(ThePart(stage));
    seen.SayStorage(ThePart(stage));
    seen.SayStream(ThePart(stage));
}

void ShareStream(Stage& stage, Transcript& seen) {
    ComPtr<IStream> one, other;
    if (ThePart(stage).GetStream(one.Out()) != S_OK) return;
    if (ThePart(stage).GetStream(other.Out()) != S_OK) return;
    one->Seek(4, STREAM_SEEK_SET, nullptr);
    seen.SayRest("shared", *other.Get());
}

void CloneStream(Stage& stage, Transcript& seen) {
    ComPtr<IStream> stream, clone;
    if (ThePart(stage).GetStream(stream.Out()) != S_OK) return;
    stream->Seek(4, STREAM_SEEK_SET, nullptr);
    if (stream->Clone(clone.Out()) != S_OK) return;
    seen.SayRest("clone", *clone.Get());
    seen.SayRest("stream", *stream.Get());
}

void CopyStream(Stage& stage, Transcript& seen) {
    ComPtr<IStream> stream, copy;
    if (ThePart(stage).GetStream(stream.Out()) != S_OK) return;
    if (_XCreateStreamOnHGBL(nullptr, 1, copy.Out()) != S_OK) return;
    stream->Seek(0, STREAM_SEEK_SET, nullptr);
    if (stream->CopyTo(copy.Get(), ~std::uint64_t{0}, nullptr, nullptr) != S_OK) return;
    copy->Seek(0, STREAM_SEEK_SET, nullptr);
    seen.SayRest("copy", *copy.Get());
}

void KeepStream(Stage& stage, Transcript& seen) {
    ComPtr<IStream> stream;
    ComPtr<IStorage> storage;
    {
        const Handle<opc::Package> package = opc::Package::Open(stage.path.c_str());
        opc::Part* part = package ? package->FindPart(u"part.bin") : nullptr;
        if (part == nullptr) return;
        static_cast<void>(part->GetStream(stream.Out()));
        static_cast<void>(part->GetStorage(storage.Out()));
    }
    if (stream) seen.SayRest("kept", *stream.Get());
    STATSTG stat{};
    if (storage && storage->Stat(&stat, STATFLAG_NONAME) == S_OK) seen.Say("kept, type ", stat.type);
}

void EnumerateStorage(Stage& stage, Transcript& seen) {
    ComPtr<IStorage> storage;
    ComPtr<IEnumSTATSTG> elements, clone;
    if (ThePart(stage).GetStorage(storage.Out()) != S_OK) return;
    if (storage->EnumElements(0, nullptr, 0, elements.Out()) != S_OK) return;
    elements->Skip(1);
    if (elements->Clone(clone.Out()) != S_OK) return;
    STATSTG stat{};
    if (clone->Next(1, &stat, nullptr) != S_OK) return;
    seen.Say("second element ", std::u16string_view(stat.pwcsName), " of type ", stat.type);
    _XCoTaskMemFree(stat.pwcsName);
}

void OpenNestedStream(Stage& stage, Transcript& seen) {
    ComPtr<IStorage> storage, inner;
    ComPtr<IStream> stream, clone;
    if (ThePart(stage).GetStorage(storage.Out()) != S_OK) return;
    if (storage->OpenStorage(u"STORAGE", nullptr, 0, nullptr, 0, inner.Out()) != S_OK) return;
    if (inner->OpenStream(u"inner", nullptr, 0, 0, stream.Out()) != S_OK) return;
    if (stream->Clone(clone.Out()) != S_OK) return;
    seen.SayRest("inner", *clone.Get());
}

void ReopenStorage(Stage& stage, Transcript& seen) {
    seen.SayStorage(ThePart(stage));
    ThePart(stage).Close();
    seen.SayStorage(ThePart(stage));
}

void LoadData(Stage& stage, Transcript& seen) {
    const opc::PartData* data = ThePart(stage).LoadData();
    if (data->dataStream == nullptr) return;
    data->dataStream->Seek(0, STREAM_SEEK_SET, nullptr);
    seen.SayRest("loaded", *data->dataStream);
}

void AskForEntryValue(Stage& stage, Transcript& seen) {
    seen.Say("value ", ThePart(stage).GetEntryValue());
}

}  // namespace

std::vector<Scenario> PartDataScenarios() {
    constexpr Start kLoaded = Start::kLoaded;
    const auto small = [] { return PackageWith("some bytes").Bytes(); };
    return {
        {"ReadsAStream", "of 10 bytes", small, kLoaded, ReadStream},
        {"SharesAStream", "of 6 bytes", small, kLoaded, ShareStream},
        {"ClonesAStream", "clone of 6 bytes", small, kLoaded, CloneStream},
        {"CopiesAStream", "copy of 300000 bytes", LargeStored, kLoaded, CopyStream},
        {"ReadsALargeStoredPart", "of 300000 bytes", LargeStored, kLoaded, ReadStream},
        {"ReadsALargeDeflatedPart", "of 300000 bytes",
         [] { return PackageWith(LargeContent()).Bytes(); }, kLoaded, ReadStream},
        {"ReadsAVeryLargeStoredPart", "of 3000000 bytes", VeryLargeStored, kLoaded, ReadStream},
        {"ReadsAVeryLargeDeflatedPart", "of 3000000 bytes",
         [] { return PackageWith(VeryLargeContent()).Bytes(); }, kLoaded, ReadStream},
        {"ReadsAnEmptyPart", "of 0 bytes", [] { return PackageWith("").Bytes(); }, kLoaded, ReadBoth},
        {"ReadsNoDamagedPart", nullptr, Damaged, kLoaded, ReadBoth},
        {"ReadsNoEncryptedPart", nullptr, Encrypted, kLoaded, ReadBoth},
        {"ReadsNoPartOfAnUnknownMethod", nullptr, UnknownMethod, kLoaded, ReadBoth},
        {"ReadsAStorage", "/storage/inner 600", PackageWithObject, kLoaded, ReadStorage},
        {"ReadsAPartAsBoth", "/large 4200", PackageWithObject, kLoaded, ReadBoth},
        {"OpensNoStorageOfAText", nullptr, small, kLoaded, ReadStorage},
        {"KeepsStreamAndStorage", "kept, type 1", PackageWithObject, Start::kFile, KeepStream},
        {"EnumeratesAStorage", "second element", PackageWithObject, kLoaded, EnumerateStorage},
        {"OpensANestedStream", "inner of 600 bytes", PackageWithObject, kLoaded, OpenNestedStream},
        {"ReopensAStorage", "/storage/inner 600", PackageWithObject, kLoaded, ReopenStorage},
        {"LoadsData", "loaded of 10 bytes", small, kLoaded, LoadData},
        {"AsksForTheEntryValue", "value 0", small, kLoaded, AskForEntryValue},
    };
}

}  // namespace vexpa_test
