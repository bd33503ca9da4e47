#include "runtime/zip/Extraction.h"

#include <utility>

#include "runtime/zip/EntrySearch.h"

namespace vexpa_runtime::zip {

std::shared_ptr<const Directory> OpenDirectory(DirectoryCache& cache, const char* path) {
    const std::optional<FileIdentity> identity = IdentityOf(path);
    if (!identity) return nullptr;
    if (auto directory = cache.Find(*identity)) return directory;
    const std::optional<ArchiveFile> file = ArchiveFile::Open(path);
    return file ? cache.Read(*file) : nullptr;
}

std::optional<Prospect> LookUp(DirectoryCache& cache, const char* path, std::string_view request) {
    const std::optional<FileIdentity> identity = IdentityOf(path);
    if (!identity) return std::nullopt;
    auto directory = cache.Find(*identity);
    if (directory == nullptr) return Prospect{*identity, nullptr, nullptr};
    const Entry* entry = FindEntry(*directory, request);
    if (entry == nullptr) return std::nullopt;
    return Prospect{*identity, std::move(directory), entry};
}

std::optional<EntryBytes> Extract(DirectoryCache& cache, const char* path, std::string_view request,
                                  Prospect prospect) {
    const std::optional<ArchiveFile> file = ArchiveFile::Open(path);
    if (!file) return std::nullopt;
    if (prospect.directory == nullptr || file->Identity() != prospect.identity) {
        prospect.directory = cache.Read(*file);
        if (prospect.directory == nullptr) return std::nullopt;
        prospect.entry = FindEntry(*prospect.directory, request);
        if (prospect.entry == nullptr) return std::nullopt;
    }
    return ReadEntry(*file, *prospect.entry);
}

}  // namespace vexpa_runtime::zip
