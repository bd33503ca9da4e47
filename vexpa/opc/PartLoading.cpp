// Making the parts of a package, each with its content type and its relationships.

#include <cstddef>
#include <limits>
#include <utility>

#include "vexpa/base/ComPtr.h"
#include "vexpa/opc/PackageImpl.h"
#include "vexpa/opc/ParseDocument.h"
#include "vexpa/opc/PartNameKey.h"
#include "vexpa/opc/RelationshipReader.h"
#include "vexpa/zip/ExtractEntry.h"
#include "vexpa/zip/UnZipArchiveImpl.h"

namespace tarn::opc {

namespace zip = lumo::Compression::Zip;

namespace {

// Beyond the end of any list of parts.
constexpr std::size_t kNotLoaded = std::numeric_limits<std::size_t>::max();

// Only then its entry is spelled in another way, see EntryName().
bool HasBackslash(std::u16string_view key) {
    return key.find(u'\\') != key.npos;
}

}  // namespace

Part* PackageImpl::GetPart(const PartUri& name) {
    const std::u16string_view key = PartNameKey(name.name);
    const auto place = partsByName_.lower_bound(key);
    if (PartImpl* loaded = LoadedAt(place, key)) return loaded;
    if (!archive_.HasEntry(key.data())) return nullptr;  // the end of the name, so it has its NUL
    return MayLoad(key) ? LoadPart(name, key, place) : nullptr;
}

// Whether the entry of this key may be a part under it.
bool PackageImpl::MayLoad(std::u16string_view key) {
    if (!HasBackslash(key)) return true;
    const std::u16string entryName = EntryName(key);
    const auto& index = archive_.GetImpl()->entryIndexByName;
    const auto found = index.find(std::u16string_view(entryName));
    // A name with a NUL in it has an entry up to there, but none as a whole.
    return found != index.end() && spellings_.Take(found->second);
}

// Kept: a part has the name that it was first asked for by, with or without a slash, and its
// targets are resolved against that. (GetPart.KeepsTheNameAsItWasFirstGiven)
PartImpl* PackageImpl::LoadPart(const PartUri& name, std::u16string_view key,
                                PartsByName::const_iterator place) {
    std::u16string entryName = HasBackslash(key) ? EntryName(key) : std::u16string();
    auto part =
        std::make_unique<PartImpl>(name, std::move(entryName), contentTypes_.Find(key), &archive_);
    ReadPartRelationships(*part);

    // Either may run out of memory: a key without its part is as good as none.
    const auto filed = partsByName_.emplace_hint(place, key, kNotLoaded);
    parts_.push_back(std::move(part));
    filed->second = parts_.size() - 1;
    return parts_.back().get();
}

// Files the relationships of `part` on it. A part without a readable relationship
// stream simply has none: most parts do not, and one broken .rels entry must not
// cost the caller the part itself.
//
// Kept: this happens once. What cannot be read now, be it for want of memory, the part goes
// without. (RelationshipStream.OfAFailingPlatformDoesNotCostThePart)
void PackageImpl::ReadPartRelationships(PartImpl& part) {
    const std::u16string& source = part.GetName().name;
    const std::u16string pathName = RelationshipEntryName(source);
    const std::u16string_view entryName = PartNameKey(pathName);
    if (entryName.empty() || allowance_.IsUsedUp()) return;

    HGBL block = nullptr;
    std::size_t size = 0;
    if (Failed(ExtractEntryToBlock(*archive_.GetImpl(), entryName.data(),
                                   zip::OnBlockFailure::LoseBytes, &block, &size))) {
        return;
    }
    ComPtr<IStream> stream;
    if (Failed(_XCreateStreamOnHGBL(block, zip::kFreeBlockOnRelease, stream.Out()))) return;

    ComPtr<IDomDocument> document;
    ParseDocument(stream.Get(), document.Out());
    std::size_t count = 0;
    const auto keep = [&](std::unique_ptr<RelationshipImpl> relationship) {
        if (!allowance_.TakeMemory(relationship->MemoryUse())) return false;
        part.Relationships().File(std::move(relationship), ownedObjects_);
        ++count;
        return true;
    };
    if (document) ReadRelationships(*document, source, types_, keep);
    allowance_.CountText(size, count);
}

}  // namespace tarn::opc
