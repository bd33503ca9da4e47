// tool/check/PackageInfo.h - a package on one screen.
#ifndef VEXPA_TOOL_CHECK_PACKAGEINFO_H_
#define VEXPA_TOOL_CHECK_PACKAGEINFO_H_

#include <cstdint>
#include <optional>
#include <string>

#include "tool/InputFile.h"
#include "tool/check/DocumentKind.h"
#include "tool/check/Finding.h"

namespace vexpa_tool {

struct PackageInfo {
    DocumentKind document;

    // The container; all 0 where there is none.
    bool isZip = false;
    bool hasDirectory = false;
    std::uint64_t fileSize = 0;
    std::uint64_t entries = 0;
    std::uint64_t packedSize = 0;
    std::uint64_t unpackedSize = 0;  // as claimed

    // As the library answers them; of a package that does not open, as it would.
    bool hasModel = false;
    std::uint64_t packageRelationships = 0;
    std::uint64_t partRelationships = 0;
    std::uint64_t sourceParts = 0;  // parts that have any
    std::uint64_t external = 0;
    std::uint64_t dangling = 0;
    std::uint64_t parts = 0;  // reached
    std::uint64_t partsWithoutType = 0;

    std::uint64_t defaults = 0;
    std::uint64_t overrides = 0;

    std::optional<Finding> stop;  // why it does not open
};

PackageInfo InfoOf(const InputFile& file);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_PACKAGEINFO_H_
