// runtime/zip/ForwardReader.h - reads a range of a file from its start to its end.
#ifndef VEXPA_RUNTIME_ZIP_FORWARDREADER_H_
#define VEXPA_RUNTIME_ZIP_FORWARDREADER_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "runtime/zip/ArchiveFile.h"

namespace vexpa_runtime::zip {

// Holds a window of the range only, so memory does not follow what a lying archive claims.
class ForwardReader {
public:
    // The bytes from `start` up to `end`, which must be at or after it.
    ForwardReader(const ArchiveFile& file, std::uint64_t start, std::uint64_t end);

    std::uint64_t Left() const noexcept { return end_ - position_; }

    // [borrowed] The next `size` bytes, until the next call; null when fewer are left or the
    // file cannot be read.
    const std::uint8_t* Peek(std::size_t size);

    // Moves on by `size` bytes, at most Left().
    void Skip(std::uint64_t size) noexcept { position_ += size; }

private:
    const ArchiveFile& file_;
    std::uint64_t position_;
    std::uint64_t end_;
    std::vector<std::uint8_t> window_;
    std::uint64_t windowStart_;
};

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_FORWARDREADER_H_
