// Opening a package: content types first, then the relationships and the parts they name.

#include <utility>

#include "vexpa/base/ComPtr.h"
#include "vexpa/opc/PackageImpl.h"
#include "vexpa/opc/ParseDocument.h"
#include "vexpa/opc/RelationshipReader.h"
#include "vexpa/zip/ExtractEntry.h"
#include "vexpa/zip/UnZipArchiveImpl.h"

namespace tarn::opc {

namespace zip = lumo::Compression::Zip;

// Kept: the flags do nothing; they are part of the exported name. (PackageOpen.IgnoresTheFlags)
Handle<Package> Package::Open(const unsigned short* path, unsigned int /*flags*/) {
    if (path == nullptr) return {};
    Handle<PackageImpl> package(new PackageImpl);
    if (Failed(package->OpenArchive(CopyText(path).c_str())) || Failed(package->ReadContentTypes()) ||
        Failed(package->ReopenArchive()) || Failed(package->ReadPackageRelationships())) {
        return {};
    }
    return Handle<Package>(package.Detach());
}

HRESULT PackageImpl::OpenArchive(const char16_t* path) {
    packagePath_ = path;
    return archive_.Open(packagePath_.c_str());
}

HRESULT PackageImpl::ReadContentTypes() {
    ComPtr<IStream> stream;
    // The entry name is a pattern, so the brackets are escaped.
    HRESULT result = OpenEntry(u"\\[Content_Types\\].xml", stream.Out());
    if (Failed(result)) return result;

    ComPtr<IDomDocument> document;
    result = ParseDocument(stream.Get(), document.Out());
    // Kept: a parse that neither failed nor gave a document leaves the tables empty, and so does
    // a positive answer with one.
    // (PackageOpen.GoesOnWithoutContentTypesWhenTheParseGivesNoDocument,
    // PackageOpen.ReadsContentTypesOnlyWhenTheirParseAnswersZero)
    if (result == S_OK && document) contentTypes_.Read(*document);
    return result;
}

// The package starts afresh for the relationships: a file that was replaced since its
// content types were read is read as the new one.
//
// Kept: the second opening is a call of its own to the platform, and compiled platforms count
// on it. (PackageOpen.CallsThePlatformInItsOrder)
HRESULT PackageImpl::ReopenArchive() {
    archive_.Close();
    return archive_.Open(packagePath_.c_str());
}

HRESULT PackageImpl::ReadPackageRelationships() {
    ComPtr<IStream> stream;
    HRESULT result = OpenEntry(u"_rels/.rels", stream.Out());
    if (Failed(result)) return result;

    // Kept: a document counts, whatever the parse answers.
    // (PackageOpen.TakesTheRelationshipsOfADocumentWhateverItsParseAnswers)
    ComPtr<IDomDocument> document;
    ParseDocument(stream.Get(), document.Out());
    if (!document) return E_FAIL;

    // Kept: each relationship overwrites the result, so the last one alone decides whether
    // the package opens, and one that leads out of it never does. Without any the package opens.
    // (PackageOpen.TheLastRelationshipDecides, PackageOpen.FailsWhenTheLastRelationshipIsExternal,
    // PackageOpen.SucceedsWithoutAnyRelationship)
    const auto keep = [&](std::unique_ptr<RelationshipImpl> relationship) {
        result = E_FAIL;
        if (!allowance_.TakeMemory(relationship->MemoryUse())) return false;
        const Relationship& filed = *relationship;
        relationships_.File(std::move(relationship), ownedObjects_);
        if (GetPart(filed.GetTarget()) != nullptr) result = S_OK;
        return true;
    };
    ReadRelationships(*document, {}, types_, keep);
    return result;
}

HRESULT PackageImpl::OpenEntry(const char16_t* entryName, IStream** stream) {
    HGBL block = nullptr;
    const HRESULT result =
        ExtractEntryToBlock(*archive_.GetImpl(), entryName, zip::OnBlockFailure::FreeBytes, &block);
    if (Failed(result)) return result;
    return _XCreateStreamOnHGBL(block, zip::kFreeBlockOnRelease, stream);
}

}  // namespace tarn::opc
