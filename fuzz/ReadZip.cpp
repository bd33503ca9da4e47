#include "fuzz/ReadZip.h"

#include <libdeflate.h>

#include <cstdint>
#include <memory>
#include <string>

namespace vexpa_fuzz {

namespace {

using vexpa_test::ZipEntry;
using vexpa_test::ZipFile;

constexpr std::size_t kEnd = 22;  // sizes of the fixed parts, APPNOTE 4.3
constexpr std::size_t kDirectoryHeader = 46;
constexpr std::size_t kLocalHeader = 30;
constexpr std::size_t kMostContent = 1 << 20;

// Little-endian numbers at given places; 0 outside.
class Reader {
public:
    explicit Reader(std::string_view bytes) : bytes_(bytes) {}

    std::size_t Number(std::size_t at, int size) const {
        if (at > bytes_.size() || bytes_.size() - at < static_cast<std::size_t>(size)) return 0;
        std::size_t number = 0;
        for (int i = size; i-- > 0;)
            number = number << 8 | static_cast<unsigned char>(bytes_[at + static_cast<std::size_t>(i)]);
        return number;
    }
    std::optional<std::string_view> Piece(std::size_t at, std::size_t size) const {
        if (at > bytes_.size() || bytes_.size() - at < size) return std::nullopt;
        return bytes_.substr(at, size);
    }

private:
    std::string_view bytes_;
};

std::optional<std::string> Unpack(std::string_view packed, std::size_t method, std::size_t size) {
    if (size > kMostContent) return std::nullopt;
    if (method == 0) return std::string(packed);
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)> inflate(
        libdeflate_alloc_decompressor(), &libdeflate_free_decompressor);
    std::string content(size, '\0');
    if (libdeflate_deflate_decompress(inflate.get(), packed.data(), packed.size(), content.data(), size,
                                      nullptr) != LIBDEFLATE_SUCCESS)
        return std::nullopt;
    return content;
}

// The entry whose directory header is at `at`.
std::optional<ZipEntry> ReadEntry(const Reader& file, std::size_t at) {
    if (file.Number(at, 4) != 0x02014b50) return std::nullopt;
    const std::size_t header = file.Number(at + 42, 4);
    const std::size_t data =
        header + kLocalHeader + file.Number(header + 26, 2) + file.Number(header + 28, 2);
    const auto name = file.Piece(at + kDirectoryHeader, file.Number(at + 28, 2));
    const auto packed = file.Piece(data, file.Number(at + 20, 4));
    if (!name || !packed) return std::nullopt;

    const std::size_t method = file.Number(at + 10, 2);
    std::optional<std::string> content = Unpack(*packed, method, file.Number(at + 24, 4));
    if (!content) return std::nullopt;
    ZipEntry entry;
    entry.name = *name;
    entry.content = std::move(*content);
    entry.rawData = *packed;
    entry.stored = method == 0;
    return entry;
}

}  // namespace

std::optional<ZipFile> ReadZip(std::string_view bytes) {
    const Reader file(bytes);
    if (bytes.size() < kEnd || file.Number(bytes.size() - kEnd, 4) != 0x06054b50) return std::nullopt;
    const std::size_t count = file.Number(bytes.size() - 12, 2);
    std::size_t at = file.Number(bytes.size() - 6, 4);
    std::size_t total = 0;
    ZipFile zip;
    for (std::size_t i = 0; i < count; ++i) {
        std::optional<ZipEntry> entry = ReadEntry(file, at);
        if (!entry || (total += entry->content.size()) > kMostContent) return std::nullopt;
        at += kDirectoryHeader + file.Number(at + 28, 2) + file.Number(at + 30, 2) +
              file.Number(at + 32, 2);
        zip.entries.push_back(std::move(*entry));
    }
    return zip;
}

}  // namespace vexpa_fuzz
