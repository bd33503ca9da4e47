#include <algorithm>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "vexpa/platform/Runtime.h"
#include "vexpa/zip/UnZipArchiveImpl.h"

namespace lumo::Compression::Zip {

namespace {

class OwnedBstr {
public:
    explicit OwnedBstr(const char16_t* text) : text_(_XSysAllocString(text)) {
        if (text_ == nullptr) throw std::bad_alloc();
    }
    ~OwnedBstr() { _XSysFreeString(text_); }
    OwnedBstr(const OwnedBstr&) = delete;
    OwnedBstr& operator=(const OwnedBstr&) = delete;

    BSTR Get() const noexcept { return text_; }
    void Detach() noexcept { text_ = nullptr; }

private:
    BSTR text_;
};

struct HashedName {
    std::uint32_t hash;
    const char16_t* name;
};

// The names go in by the order of the set, so that each comes last in its bucket: in the order
// of the directory, names made to share a hash would each move those already there. The sort
// is stable since of names equal but for case the first one listed is kept.
void FillNameSet(EntryNameSet& set, std::vector<HashedName> names) {
    std::stable_sort(names.begin(), names.end(), [](const HashedName& a, const HashedName& b) {
        return a.hash != b.hash ? a.hash < b.hash : _Xu2_stricmp(a.name, b.name) < 0;
    });
    for (const HashedName& hashed : names) {
        OwnedBstr text(hashed.name);
        if (set.Insert(text.Get())) text.Detach();
    }
}

void AddEntry(UnZipArchiveImpl& archive, const char16_t* name) {
    EntryRecord record;
    record.name = name;
    archive.entries.push_back(std::move(record));
    archive.entryIndexByName.emplace(name, archive.entries.size() - 1);
}

// A half-filled list would count as the whole one, so a failure on the way empties it.
class ListingGuard {
public:
    explicit ListingGuard(UnZipArchiveImpl& archive) : archive_(archive) {}
    ~ListingGuard() {
        if (done_) return;
        archive_.entryIndexByName.clear();
        archive_.indexMemory.release();
        archive_.entries.clear();
        archive_.entryNameSet.Clear();
    }
    ListingGuard(const ListingGuard&) = delete;
    ListingGuard& operator=(const ListingGuard&) = delete;
    void Done() noexcept { done_ = true; }

private:
    UnZipArchiveImpl& archive_;
    bool done_ = false;
};

}  // namespace

void ListEntries(UnZipArchiveImpl& archive) {
    const char16_t* path = archive.archivePath.c_str();
    if (!IsReadable(archive)) return;

    std::int32_t count = 0;
    _XGetZipFileCount(path, &count);
    if (count < 1) return;

    const auto names = std::make_unique<const char16_t*[]>(static_cast<std::size_t>(count));
    _XGetZipFileList(path, names.get(), count);

    ListingGuard guard(archive);
    std::vector<HashedName> hashedNames;
    hashedNames.reserve(static_cast<std::size_t>(count));
    archive.entries.reserve(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        // A file that changed after it was counted gives no names.
        if (names[i] == nullptr) continue;
        AddEntry(archive, names[i]);
        hashedNames.push_back({HashEntryName(names[i]), names[i]});
    }
    FillNameSet(archive.entryNameSet, std::move(hashedNames));
    guard.Done();
}

}  // namespace lumo::Compression::Zip
