#include "runtime/zip/Extraction.h"

#include <cstdint>
#include <span>
#include <utility>

#include "runtime/zip/DirectoryReader.h"
#include "runtime/zip/EntrySearch.h"
#include "runtime/zip/NameHash.h"
#include "runtime/zip/ReadAhead.h"

namespace vexpa_runtime::zip {

namespace {

std::optional<EntryBytes> ReadAfresh(const ArchiveFile& file, std::string_view request) {
    const auto directory = ReadDirectory(file);
    if (directory == nullptr) return std::nullopt;
    const Entry* entry = FindEntry(*directory, request);
    if (entry == nullptr) return std::nullopt;
    return ReadEntry(file, *entry);
}

std::uint64_t Digest(const EntryBytes& entry) {
    return HashName({entry.bytes.get(), entry.size}, ProcessKey());
}

// A change in one of two readings leaves the other one whole, and they agree only if both are.
std::optional<EntryBytes> ReadTwice(const ArchiveFile& file, std::string_view request) {
    std::optional<EntryBytes> entry = ReadAfresh(file, request);
    if (!entry) return std::nullopt;
    const std::uint64_t digest = Digest(*entry);
    entry.reset();  // large entries are not held twice
    entry = ReadAfresh(file, request);
    if (!entry || Digest(*entry) != digest) return std::nullopt;
    return entry;
}

// The file, if reading the entry needs nothing of it that is not in memory.
std::optional<ArchiveFile> FindInMemory(const Prospect& prospect) {
    if (prospect.directory == nullptr) return std::nullopt;
    const std::span<const std::uint8_t> whole = prospect.directory->File();
    if (!whole.empty()) return ArchiveFile(prospect.identity, whole);
    ArchiveFile piece = ReadAhead::OfThread().Find(prospect.identity);
    if (!IsInMemory(piece, *prospect.entry)) return std::nullopt;
    return piece;
}

std::optional<EntryBytes> ReadFrom(const ArchiveFile& file, const Prospect& prospect) {
    bool isDamaged = false;
    std::optional<EntryBytes> bytes = ReadEntry(file, *prospect.entry, &isDamaged);
    if (isDamaged && file.IsUnchanged()) prospect.directory->NoteDamage(*prospect.entry);
    return bytes;
}

}  // namespace

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
    if (entry == nullptr || directory->IsDamaged(*entry)) return std::nullopt;
    return Prospect{*identity, std::move(directory), entry};
}

std::optional<EntryBytes> Extract(DirectoryCache& cache, const char* path, std::string_view request,
                                  Prospect prospect) {
    if (const auto inMemory = FindInMemory(prospect)) return ReadFrom(*inMemory, prospect);
    std::optional<ArchiveFile> file = ArchiveFile::Open(path);
    if (!file) return std::nullopt;
    if (!cache.HasSettled(*file)) return ReadTwice(*file, request);
    if (prospect.directory == nullptr || file->Identity() != prospect.identity) {
        prospect.directory = cache.Read(*file);
        if (prospect.directory == nullptr) return std::nullopt;
        prospect.entry = FindEntry(*prospect.directory, request);
        if (prospect.entry == nullptr) return std::nullopt;
        prospect.identity = file->Identity();
        if (const auto inMemory = FindInMemory(prospect)) return ReadFrom(*inMemory, prospect);
    }
    ReadAhead& ahead = ReadAhead::OfThread();
    const bool isAhead = ahead.Prepare(*file, *prospect.entry);
    std::optional<EntryBytes> bytes = ReadFrom(*file, prospect);
    if (file->IsUnchanged()) {
        if (isAhead) ahead.Keep();
        return bytes;
    }
    if (!bytes) return std::nullopt;
    // It may only have been replaced: then all that was in it is still there. But what is in memory
    // says nothing of that.
    file->HoldInMemory({}, 0);
    return ReadTwice(*file, request);
}

}  // namespace vexpa_runtime::zip
