#include "runtime/zip/ArchiveFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

#include "runtime/Uninterrupted.h"

namespace vexpa_runtime::zip {

namespace {

std::optional<FileIdentity> RegularFile(const struct stat& status) {
    if (!S_ISREG(status.st_mode)) return std::nullopt;
    return FileIdentity{
        status.st_dev,         status.st_ino,          static_cast<std::uint64_t>(status.st_size),
        status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_ctim.tv_sec,
        status.st_ctim.tv_nsec};
}

std::optional<FileIdentity> IdentityOfOpen(int descriptor) {
    struct stat status;
    if (Uninterrupted([&] { return fstat(descriptor, &status); }) != 0) return std::nullopt;
    return RegularFile(status);
}

// O_NONBLOCK: between a look at the path and this call a FIFO can have taken its place.
int OpenForReading(const char* path) {
    return Uninterrupted([&] { return open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); });
}

}  // namespace

std::optional<FileIdentity> IdentityOf(const char* path) noexcept {
    struct stat status;
    if (Uninterrupted([&] { return stat(path, &status); }) != 0) return std::nullopt;
    return RegularFile(status);
}

std::optional<ArchiveFile> ArchiveFile::Open(const char* path) noexcept {
    ArchiveFile file;
    file.descriptor_ = OpenForReading(path);
    if (file.descriptor_ < 0) return std::nullopt;
    const std::optional<FileIdentity> identity = IdentityOfOpen(file.descriptor_);
    if (!identity) return std::nullopt;
    file.identity_ = *identity;
    return file;
}

ArchiveFile::ArchiveFile(ArchiveFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, kNone)),
      identity_(other.identity_),
      bytes_(other.bytes_),
      bytesAt_(other.bytesAt_) {}

ArchiveFile::~ArchiveFile() {
    if (descriptor_ != kNone) close(descriptor_);
}

bool ArchiveFile::IsUnchanged() const noexcept {
    return descriptor_ == kNone || IdentityOfOpen(descriptor_) == identity_;
}

const std::uint8_t* ArchiveFile::View(std::uint64_t position, std::size_t size) const noexcept {
    if (position < bytesAt_) return nullptr;
    const std::uint64_t offset = position - bytesAt_;
    if (offset > bytes_.size() || size > bytes_.size() - offset) return nullptr;
    return bytes_.data() + offset;
}

bool ArchiveFile::ReadAt(std::uint64_t position, void* destination, std::size_t size) const noexcept {
    if (position > Size() || size > Size() - position) return false;
    auto* out = static_cast<std::uint8_t*>(destination);
    if (const std::uint8_t* bytes = View(position, size)) {
        std::copy_n(bytes, size, out);
        return true;
    }
    if (descriptor_ == kNone) return false;
    while (size > 0) {
        const ssize_t got =
            Uninterrupted([&] { return pread(descriptor_, out, size, static_cast<off_t>(position)); });
        if (got <= 0) return false;  // 0: the file was cut since it was opened
        out += got;
        position += static_cast<std::uint64_t>(got);
        size -= static_cast<std::size_t>(got);
    }
    return true;
}

std::optional<std::vector<std::uint8_t>> ReadWhole(const ArchiveFile& file) {
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(file.Size()));
    if (!file.ReadAt(0, bytes.data(), bytes.size())) return std::nullopt;
    return bytes;
}

}  // namespace vexpa_runtime::zip
