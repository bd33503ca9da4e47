// tool/container/LocalHeader.h - the header that stands before an entry's data.
#ifndef VEXPA_TOOL_CONTAINER_LOCALHEADER_H_
#define VEXPA_TOOL_CONTAINER_LOCALHEADER_H_

#include <cstdint>
#include <optional>
#include <string>

#include "runtime/zip/EntryFormat.h"
#include "tool/container/Container.h"

namespace vexpa_tool {

using vexpa_runtime::zip::kLocalHeaderSignature;
using vexpa_runtime::zip::kLocalHeaderSize;

// The fields of a local header. Sizes and CRC may be 0 where kHasDescriptor is set.
struct LocalHeader {
    std::uint64_t position;
    std::uint64_t compressedSize;  // the zip64 field worked in, when it was asked for
    std::uint64_t size;
    std::uint32_t crc;
    std::uint16_t neededVersion;
    std::uint16_t flags;
    std::uint16_t method;
    std::uint16_t time;
    std::uint16_t date;
    std::uint16_t nameSize;
    std::uint16_t extraSize;

    std::uint64_t DataPosition() const { return position + kLocalHeaderSize + nameSize + extraSize; }
};

enum class WideSizes { Leave, WorkIn };

// Nothing when no local header begins there. Working in the zip64 field may read the extra data
// (up to 64 KiB), which a caller that goes through many headers has to bound.
std::optional<LocalHeader> ReadLocalHeader(const Container& container, std::uint64_t position,
                                           WideSizes wideSizes = WideSizes::WorkIn);

// The header's name and extra data as they lie; empty when they cannot be read.
std::string LocalName(const Container& container, const LocalHeader& header);
std::string LocalExtraData(const Container& container, const LocalHeader& header);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CONTAINER_LOCALHEADER_H_
