#include "runtime/zip/DirectoryHeader.h"

#include "runtime/zip/ExtraFields.h"

namespace vexpa_runtime::zip {

namespace {

constexpr std::uint16_t kAllOnes16 = 0xFFFF;
constexpr std::uint32_t kAllOnes32 = 0xFFFFFFFF;

}  // namespace

// The zip64 field holds, in this order, only what the header leaves at all ones (APPNOTE
// 4.5.3). What it does not hold keeps the header's value, which then says what it says.
WideFields ReadWideFields(const DirectoryHeader& header) {
    WideFields wide{header.Size(), header.CompressedSize(), header.Offset(), header.Disk()};
    FieldBytes field = FindField({header.Extra(), header.ExtraSize()}, kZip64Field);
    if (wide.size == kAllOnes32 && !field.Take(wide.size)) return wide;
    if (wide.compressedSize == kAllOnes32 && !field.Take(wide.compressedSize)) return wide;
    if (wide.offset == kAllOnes32 && !field.Take(wide.offset)) return wide;
    if (wide.disk == kAllOnes16) field.Take(wide.disk);
    return wide;
}

}  // namespace vexpa_runtime::zip
