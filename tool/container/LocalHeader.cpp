#include "tool/container/LocalHeader.h"

#include "runtime/zip/ExtraFields.h"
#include "runtime/zip/LittleEndian.h"

namespace vexpa_tool {

namespace zip = vexpa_runtime::zip;

namespace {

constexpr std::uint32_t kAllOnes32 = 0xFFFFFFFF;

// Both sizes stand in the field of a local header, in this order (APPNOTE 4.5.3).
void WorkInWideSizes(const std::string& extra, LocalHeader& header) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(extra.data());
    zip::FieldBytes field = zip::FindField({bytes, extra.size()}, zip::kZip64Field);
    if (header.size == kAllOnes32 && !field.Take(header.size)) return;
    if (header.compressedSize == kAllOnes32) field.Take(header.compressedSize);
}

}  // namespace

std::optional<LocalHeader> ReadLocalHeader(const Container& container, std::uint64_t position,
                                           WideSizes wideSizes) {
    std::uint8_t bytes[kLocalHeaderSize];
    if (!container.ReadAt(position, bytes, sizeof bytes)) return std::nullopt;
    if (zip::Le32(bytes) != kLocalHeaderSignature) return std::nullopt;

    LocalHeader header{};
    header.position = position;
    header.neededVersion = zip::Le16(bytes + 4);
    header.flags = zip::Le16(bytes + 6);
    header.method = zip::Le16(bytes + 8);
    header.time = zip::Le16(bytes + 10);
    header.date = zip::Le16(bytes + 12);
    header.crc = zip::Le32(bytes + 14);
    header.compressedSize = zip::Le32(bytes + 18);
    header.size = zip::Le32(bytes + 22);
    header.nameSize = zip::Le16(bytes + 26);
    header.extraSize = zip::Le16(bytes + 28);
    const bool isWide = header.compressedSize == kAllOnes32 || header.size == kAllOnes32;
    if (isWide && wideSizes == WideSizes::WorkIn) {
        WorkInWideSizes(LocalExtraData(container, header), header);
    }
    return header;
}

std::string LocalName(const Container& container, const LocalHeader& header) {
    return container.Bytes(header.position + kLocalHeaderSize, header.nameSize);
}

std::string LocalExtraData(const Container& container, const LocalHeader& header) {
    return container.Bytes(header.position + kLocalHeaderSize + header.nameSize, header.extraSize);
}

}  // namespace vexpa_tool
