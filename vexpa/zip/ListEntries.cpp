#include <memory>
#include <new>
#include <utility>

#include "runtime/Runtime.h"
#include "vexpa/zip/UnZipArchiveImpl.h"

namespace lumo::Compression::Zip {

namespace {

constexpr int kReadAccess = 4;

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

void AddEntry(UnZipArchiveImpl& archive, const char16_t* name) {
    OwnedBstr text(name);
    if (archive.entryNameSet.Insert(text.Get())) text.Detach();

    EntryRecord record;
    record.name = name;
    archive.entries.push_back(std::move(record));
    archive.entryIndexByName.try_emplace(name, archive.entries.size() - 1);
}

// A half-filled list would count as the whole one, so a failure on the way empties it.
class ListingGuard {
public:
    explicit ListingGuard(UnZipArchiveImpl& archive) : archive_(archive) {}
    ~ListingGuard() {
        if (done_) return;
        archive_.entryIndexByName.clear();
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
    if (_Xaccess(path, kReadAccess) != 0) return;

    std::int32_t count = 0;
    _XGetZipFileCount(path, &count);
    if (count < 1) return;

    const auto names = std::make_unique<const char16_t*[]>(static_cast<std::size_t>(count));
    _XGetZipFileList(path, names.get(), count);

    ListingGuard guard(archive);
    for (std::int32_t i = 0; i < count; ++i) {
        // A file that changed after it was counted gives no names.
        if (names[static_cast<std::size_t>(i)] != nullptr) AddEntry(archive, names[static_cast<std::size_t>(i)]);
    }
    guard.Done();
}

}  // namespace lumo::Compression::Zip
