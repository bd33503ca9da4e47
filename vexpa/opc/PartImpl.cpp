#include "vexpa/opc/PartImpl.h"

#include <utility>

#include "vexpa/base/DeleteIfExists.h"
#include "vexpa/opc/PartNameKey.h"
#include "vexpa/zip/ExtractEntry.h"
#include "vexpa/zip/UnZipArchive.h"
#include "vexpa/zip/UnZipArchiveImpl.h"

namespace tarn::opc {

namespace zip = lumo::Compression::Zip;

PartImpl::PartImpl(const PartUri& name, std::u16string ownEntryName, const char16_t* contentType,
                   zip::UnZipArchive* archive)
    : name_(name),
      ownEntryName_(std::move(ownEntryName)),
      contentType_(contentType),
      archive_(archive) {}

PartImpl::~PartImpl() {
    PartImpl::Close();
    if (data_.dataStream != nullptr) data_.dataStream->Release();
    if (data_.ownsBytes != 0) delete[] data_.bytes;
}

// The end of a text, so it has its NUL.
const char16_t* PartImpl::EntryName() const noexcept {
    return ownEntryName_.empty() ? PartNameKey(name_.name).data() : ownEntryName_.c_str();
}

void PartImpl::Release() {
    DeleteIfExists(this);
}

// Kept: the stream stays, as callers share it. (PartClose.KeepsTheStreamAndDropsTheRelationships)
void PartImpl::Close() {
    relationships_.Clear();
    if (storage_ != nullptr) std::exchange(storage_, nullptr)->Release();
}

const unsigned short* PartImpl::GetContentType() const {
    return ToUnits(contentType_);
}

Relationship* PartImpl::GetRelationshipById(const unsigned short* id) {
    return relationships_.FindById(id);
}

Relationship* PartImpl::GetRelationshipByType(RelationshipTypeId type, RelationshipCursor* cursor) {
    return relationships_.FindByType(type, cursor);
}

RelationshipRange PartImpl::GetRelationshipsByType(const unsigned short* type) {
    return relationships_.FindRange(type);
}

bool PartImpl::HasRelationship(const unsigned short* id) {
    return GetRelationshipById(id) != nullptr;
}

// Kept: nothing here sets `bytes`, but it is copied, and freed when a caller says so: the record
// is published. (PartLoadData.GivesTheRecordWithTheStream,
// PartLoadData.FreesTheBytesThatACallerGivesToTheRecord)
PartData* PartImpl::LoadData() {
    if (data_.dataStream != nullptr) return &data_;
    IStream* made = nullptr;
    if (Failed(MakeStream(&made)) || made == nullptr) return &data_;

    stream_ = made;
    data_.position = data_.bytes;
    data_.end = data_.bytes;
    data_.dataStream = made;
    return &data_;
}

// Kept: everybody gets the one stream, with its one seek position.
// (PartGetStream.HandsEveryCallerTheSameStreamAndSeekPosition)
HRESULT PartImpl::GetStream(IStream** out) {
    if (out == nullptr) return E_INVALIDARG;
    if (data_.dataStream == nullptr) LoadData();
    *out = stream_;
    if (stream_ == nullptr) return E_FAIL;
    stream_->AddRef();
    return S_OK;
}

// Kept: the entry is extracted once more, apart from the stream. What is no compound file leaves
// *out alone, what cannot be extracted makes it null.
// (PartGetStorage.HandsOutOneStorageAndExtractsApartFromTheStream,
// PartGetStorage.OfAPartThatIsNoCompoundFileFailsAndLeavesOutUntouched,
// PartGetStorage.StoresNullWhenTheEntryCannotBeExtracted)
HRESULT PartImpl::GetStorage(IStorage** out) {
    if (out == nullptr) return E_INVALIDARG;
    if (storage_ == nullptr) {
        HGBL block = nullptr;
        IStorage* made = nullptr;
        if (Succeeded(ExtractEntry(&block)) &&
            Failed(_XStgOpenStorageOnHGBL2(&block, zip::kFreeBlockOnRelease, &made))) {
            return E_FAIL;
        }
        storage_ = made;
    }
    *out = storage_;
    if (storage_ == nullptr) return E_FAIL;
    storage_->AddRef();
    return S_OK;
}

// Kept: nothing ever sets the value; a name that the index lacks is added to it.
// (PartGetEntryValue.IsZeroForAnEntryAndWithoutOne,
// PartGetEntryValue.IsZeroForANameThatTheIndexLacks)
std::int64_t PartImpl::GetEntryValue() {
    if (archive_ == nullptr || !archive_->HasEntry(EntryName())) return 0;
    zip::UnZipArchiveImpl& archive = *archive_->GetImpl();
    auto& index = archive.entryIndexByName;
    // Looked up first: the index never frees the node of a name that emplace finds to be there.
    auto place = index.find(std::u16string_view(EntryName()));
    if (place == index.end()) place = index.emplace(EntryName(), 0).first;
    return archive.entries[place->second].value;
}

// Kept: the bytes are lost when there is no memory for their block. Opening a package frees
// them, the readers of parts never did. (PartData.OutOfMemoryForTheBlockLosesTheExtractedBytes,
// RelationshipStream.OutOfMemoryForItsBlockLosesTheExtractedBytes)
HRESULT PartImpl::ExtractEntry(HGBL* block) {
    zip::UnZipArchiveImpl* archive = archive_ == nullptr ? nullptr : archive_->GetImpl();
    if (archive == nullptr) return E_FAIL;
    return ExtractEntryToBlock(*archive, EntryName(), zip::OnBlockFailure::LoseBytes, block);
}

HRESULT PartImpl::MakeStream(IStream** out) {
    HGBL block = nullptr;
    const HRESULT result = ExtractEntry(&block);
    return Failed(result) ? result : _XCreateStreamOnHGBL(block, zip::kFreeBlockOnRelease, out);
}

}  // namespace tarn::opc
