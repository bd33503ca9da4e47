#include "tool/container/LocalComparison.h"

#include <optional>

namespace vexpa_tool {

namespace {

constexpr std::uint32_t kAllOnes32 = 0xFFFFFFFF;

unsigned Bit(bool differs, LocalDifference difference) {
    return differs ? difference : 0U;
}

bool LiesInFile(const Container& container, std::uint64_t position, std::uint64_t size) {
    return position <= container.FileSize() && size <= container.FileSize() - position;
}

}  // namespace

unsigned LocalComparison::Compare(const ContainerEntry& entry) {
    const std::optional<LocalHeader> local =
        ReadLocalHeader(container_, entry.headerPosition, WideSizes::Leave);
    if (!local) return kNoLocalHeader;

    unsigned differences =
        Bit(!LiesInFile(container_, local->DataPosition(), entry.compressedSize), kDataBeyondFile);
    // Names of one length are all that is read, so no more is read than the directory is long.
    differences |= Bit(local->nameSize != entry.rawNameSize ||
                           LocalName(container_, *local) != container_.RawName(entry),
                       kNameDiffers);
    differences |= Bit(local->method != entry.method, kMethodDiffers);
    differences |= Bit(((local->flags ^ entry.flags) & kEncrypted) != 0, kEncryptionDiffers);
    const bool isLeftOpen = (local->flags & kHasDescriptor) != 0;
    differences |= Bit(local->crc != entry.crc && !(isLeftOpen && local->crc == 0), kCrcDiffers);
    return differences | CompareSizes(entry, *local);
}

unsigned LocalComparison::CompareSizes(const ContainerEntry& entry, LocalHeader local) {
    if (local.size == kAllOnes32 || local.compressedSize == kAllOnes32) {
        if (local.extraSize > extraLeft_) return 0;
        extraLeft_ -= local.extraSize;
        local = ReadLocalHeader(container_, local.position, WideSizes::WorkIn).value_or(local);
    }
    const bool isLeftOpen = (local.flags & kHasDescriptor) != 0;
    const auto differs = [&](std::uint64_t here, std::uint64_t there) {
        return here != there && !(isLeftOpen && (here == 0 || here == kAllOnes32));
    };
    return Bit(differs(local.compressedSize, entry.compressedSize), kCompressedSizeDiffers) |
           Bit(differs(local.size, entry.size), kSizeDiffers);
}

}  // namespace vexpa_tool
