#include "tool/container/EntryDamage.h"

#include <libdeflate.h>

#include <cstdlib>
#include <memory>
#include <new>
#include <optional>
#include <string>

#include "tool/container/LocalHeader.h"

namespace vexpa_tool {

namespace {

EntryDamage InflateInto(void* out, std::size_t size, const std::string& data) {
    if (data.empty() && size == 0) return EntryDamage::None;
    const std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor*)> decompressor(
        libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    if (!decompressor) throw std::bad_alloc();
    std::size_t actual = 0;
    switch (libdeflate_deflate_decompress(decompressor.get(), data.data(), data.size(), out, size,
                                          &actual)) {
        case LIBDEFLATE_SUCCESS:
            return actual == size ? EntryDamage::None : EntryDamage::WrongSize;
        case LIBDEFLATE_INSUFFICIENT_SPACE:
            return EntryDamage::WrongSize;
        default:
            return EntryDamage::BadData;
    }
}

EntryDamage FindDamageIn(const std::string& data, const ContainerEntry& entry) {
    const auto crcOf = [](const void* bytes, std::size_t size) {
        return libdeflate_crc32(0, bytes, size);
    };
    const auto size = static_cast<std::size_t>(entry.size);
    if (entry.method == kStored) {
        return crcOf(data.data(), data.size()) == entry.crc ? EntryDamage::None : EntryDamage::WrongCrc;
    }
    const std::unique_ptr<void, void (*)(void*)> inflated(std::malloc(size == 0 ? 1 : size), std::free);
    if (!inflated) throw std::bad_alloc();
    const EntryDamage damage = InflateInto(inflated.get(), size, data);
    if (damage != EntryDamage::None) return damage;
    return crcOf(inflated.get(), size) == entry.crc ? EntryDamage::None : EntryDamage::WrongCrc;
}

}  // namespace

bool IsImpossibleSize(const ContainerEntry& entry) {
    if ((entry.flags & kEncrypted) != 0) return false;  // its data has a header of its own
    if (entry.method == kStored) return entry.size != entry.compressedSize;
    return entry.method == kDeflated &&
           !vexpa_runtime::zip::MayInflateTo(entry.size, entry.compressedSize);
}

EntryDamage FindHeaderDamage(const Container& container, const ContainerEntry& entry) {
    if (entry.onOtherDisk) return EntryDamage::OnOtherDisk;
    if ((entry.flags & kEncrypted) != 0) return EntryDamage::Encrypted;
    if (entry.method != kStored && entry.method != kDeflated) return EntryDamage::UnknownMethod;
    const std::optional<LocalHeader> header =
        ReadLocalHeader(container, entry.headerPosition, WideSizes::Leave);
    if (!header) return EntryDamage::NoLocalHeader;
    const std::uint64_t fileSize = container.FileSize();
    const std::uint64_t position = header->DataPosition();
    if (position > fileSize || entry.compressedSize > fileSize - position) {
        return EntryDamage::DataBeyondFile;
    }
    return IsImpossibleSize(entry) ? EntryDamage::ImpossibleSize : EntryDamage::None;
}

EntryDamage FindDamage(const Container& container, const ContainerEntry& entry) {
    const EntryDamage damage = FindHeaderDamage(container, entry);
    if (damage != EntryDamage::None) return damage;
    const std::optional<LocalHeader> header =
        ReadLocalHeader(container, entry.headerPosition, WideSizes::Leave);
    if (!header) return EntryDamage::NoLocalHeader;
    return FindDamageIn(container.Bytes(header->DataPosition(), entry.compressedSize), entry);
}

}  // namespace vexpa_tool
