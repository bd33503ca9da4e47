#include "runtime/zip/ForwardReader.h"

#include <algorithm>

namespace vexpa_runtime::zip {

namespace {

constexpr std::uint64_t kWindow = 64ULL * 1024;

}  // namespace

ForwardReader::ForwardReader(const ArchiveFile& file, std::uint64_t start, std::uint64_t end)
    : file_(file), position_(start), end_(end), windowStart_(start) {}

const std::uint8_t* ForwardReader::Peek(std::size_t size) {
    if (size > Left()) return nullptr;
    const std::uint64_t windowEnd = windowStart_ + window_.size();
    if (position_ + size > windowEnd) {
        // What is still wanted of the old window is read once more: simpler than moving it, and
        // seldom more than one record.
        window_.resize(std::min<std::uint64_t>(std::max<std::uint64_t>(size, kWindow), Left()));
        windowStart_ = position_;
        if (!file_.ReadAt(position_, window_.data(), window_.size())) {
            window_.clear();
            return nullptr;
        }
    }
    return window_.data() + (position_ - windowStart_);
}

}  // namespace vexpa_runtime::zip
