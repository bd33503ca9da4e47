#include "tool/container/ReadWindow.h"

#include <algorithm>
#include <cstring>

namespace vexpa_tool {

bool ReadWindow::ReadAt(const vexpa_runtime::zip::ArchiveFile& file, std::uint64_t position,
                        void* destination, std::size_t size) {
    if (size > bytes_.size()) return file.ReadAt(position, destination, size);
    if (position > file.Size() || size > file.Size() - position) return false;
    const bool isInside =
        position >= start_ && position - start_ <= size_ && size <= size_ - (position - start_);
    if (!isInside) {
        size_ = 0;
        const auto wanted =
            static_cast<std::size_t>(std::min<std::uint64_t>(bytes_.size(), file.Size() - position));
        if (!file.ReadAt(position, bytes_.data(), wanted)) return false;
        start_ = position;
        size_ = wanted;
    }
    std::memcpy(destination, bytes_.data() + (position - start_), size);
    return true;
}

}  // namespace vexpa_tool
