// tool/container/ReadWindow.h - small reads of a file, most of them without a call of the system.
#ifndef VEXPA_TOOL_CONTAINER_READWINDOW_H_
#define VEXPA_TOOL_CONTAINER_READWINDOW_H_

#include <array>
#include <cstddef>
#include <cstdint>

#include "runtime/zip/ArchiveFile.h"

namespace vexpa_tool {

// Headers and what follows them are read field by field, entry by entry, mostly in the order of the
// file. Small, so that headers strewn over a large file cost little more than themselves.
class ReadWindow {
public:
    // The same as the file's ReadAt.
    bool ReadAt(const vexpa_runtime::zip::ArchiveFile& file, std::uint64_t position, void* destination,
                std::size_t size);

private:
    std::array<std::uint8_t, 4096> bytes_;
    std::uint64_t start_ = 0;
    std::size_t size_ = 0;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CONTAINER_READWINDOW_H_
