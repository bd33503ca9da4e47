#include "vexpa/zip/UnZipArchive.h"

#include <algorithm>
#include <atomic>
#include <string>

#include "vexpa/base/Utf16.h"
#include "vexpa/platform/Runtime.h"
#include "vexpa/zip/UnZipArchiveImpl.h"

namespace lumo::Compression::Zip {

bool IsReadable(const UnZipArchiveImpl& archive) {
    constexpr int kReadAccess = 4;
    return _Xaccess(archive.archivePath.c_str(), kReadAccess) == 0;
}

UnZipArchive::UnZipArchive() noexcept = default;

// A compiled caller may end an archive in place and look at the pointer after it. Without the fence
// GCC leaves the null out, as nobody may read an object that has ended.
UnZipArchive::~UnZipArchive() {
    Close();
    std::atomic_signal_fence(std::memory_order_seq_cst);
}

// Kept: a file that is open and readable stays; one that is gone makes room for another.
// (UnZipArchiveOpen.RefusesAnotherFileWhileOneIsOpenAndReadable,
// UnZipArchiveOpen.TakesAnotherFileWhenTheOldOneIsGone)
HRESULT UnZipArchive::Open(const char16_t* path) {
    if (impl_ && IsReadable(*impl_)) return E_ACCESSDENIED;
    impl_ = std::make_unique<UnZipArchiveImpl>();
    impl_->archivePath = tarn::CopyText(path);
    return IsReadable(*impl_) ? S_OK : E_FAIL;
}

void UnZipArchive::Close() noexcept {
    impl_.reset();
}

bool UnZipArchive::HasEntry(const char16_t* name) {
    if (!impl_) return false;
    if (impl_->entries.empty()) ListEntries(*impl_);
    const std::u16string_view given = name == nullptr ? u"" : name;
    if (given.find(u'\\') == given.npos) return impl_->entryIndexByName.contains(given);
    std::u16string converted(given);
    std::replace(converted.begin(), converted.end(), u'\\', u'/');
    return impl_->entryIndexByName.contains(std::u16string_view(converted));
}

}  // namespace lumo::Compression::Zip
