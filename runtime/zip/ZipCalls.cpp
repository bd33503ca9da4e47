#include <cstdint>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "runtime/Guarded.h"
#include "runtime/ThreadsOwn.h"
#include "runtime/text/LocalText.h"
#include "runtime/text/Utf8.h"
#include "runtime/zip/Extraction.h"
#include "vexpa/platform/Runtime.h"

namespace vexpa_runtime::zip {

namespace {

// The names that a thread was given last. They end with its next call of the service.
struct Listed {
    std::u16string names;
};

std::u16string& ListedNames() {
    return ThreadsOwn<Listed>().names;
}

// Those of a large archive do not stay with the thread for good.
void ForgetLargeList() {
    constexpr std::size_t kMostKept = 64UL * 1024 / sizeof(char16_t);
    if (ListedNames().capacity() > kMostKept) std::u16string().swap(ListedNames());
}

// What every call begins with.
template <class Call>
HRESULT Begin(Call call) noexcept {
    return Guarded([&] {
        ForgetLargeList();
        return call();
    });
}

std::shared_ptr<const Directory> OpenDirectory(const char16_t* path) {
    return OpenDirectory(SharedDirectoryCache(), ToLocal(path).c_str());
}

// All names, each with its terminating zero.
std::u16string JoinedNames(const Directory& directory) {
    std::u16string names;
    for (const Entry& entry : directory.Entries()) {
        AppendUtf16(names, directory.NameOf(entry));
        names.push_back(u'\0');
    }
    return names;
}

HRESULT List(const char16_t* path, const char16_t** names, std::int32_t count) {
    const auto directory = OpenDirectory(path);
    if (directory == nullptr || std::cmp_not_equal(directory->Count(), count)) return E_FAIL;

    ListedNames() = JoinedNames(*directory);
    const char16_t* name = ListedNames().c_str();
    for (std::int32_t i = 0; i < count; ++i) {
        names[i] = name;
        name += std::char_traits<char16_t>::length(name) + 1;
    }
    return S_OK;
}

HRESULT Unzip(const char* path, const char* request, UzpBuffer& result) {
    DirectoryCache& cache = SharedDirectoryCache();
    std::optional<Prospect> prospect = LookUp(cache, path, request);
    if (!prospect) return E_FAIL;
    std::optional<EntryBytes> entry = Extract(cache, path, request, *std::move(prospect));
    if (!entry) return E_FAIL;
    result = {entry->size, entry->bytes.release()};
    return S_OK;
}

}  // namespace

}  // namespace vexpa_runtime::zip

HRESULT _XGetZipFileCount(const char16_t* path, std::int32_t* count) {
    using namespace vexpa_runtime::zip;
    if (count == nullptr) return E_INVALIDARG;
    *count = 0;
    if (path == nullptr) return E_FAIL;
    return Begin([&] {
        const auto directory = OpenDirectory(path);
        if (directory == nullptr) return E_FAIL;
        *count = static_cast<std::int32_t>(directory->Count());
        return S_OK;
    });
}

HRESULT _XGetZipFileList(const char16_t* path, const char16_t** names, std::int32_t count) {
    using namespace vexpa_runtime::zip;
    if (path == nullptr) return E_FAIL;
    if (names == nullptr && count != 0) return E_INVALIDARG;
    return Begin([&] { return List(path, names, count); });
}

// The messages that the callbacks ask for exist for a person at a terminal; there are none here.
int UzpUnzipToMemory(char* zip, char* entry, UzpOpts*, UzpCB*, UzpBuffer* result) {
    using namespace vexpa_runtime::zip;
    if (result == nullptr) return 0;
    *result = {0, nullptr};
    if (zip == nullptr || entry == nullptr) return 0;
    return Begin([&] { return Unzip(zip, entry, *result); }) == S_OK ? 1 : 0;
}
