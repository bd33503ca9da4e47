// runtime/zip/ReadAhead.h - the piece of a large file around the entry that a thread read last.
#ifndef VEXPA_RUNTIME_ZIP_READAHEAD_H_
#define VEXPA_RUNTIME_ZIP_READAHEAD_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "runtime/zip/ArchiveFile.h"
#include "runtime/zip/Directory.h"

namespace vexpa_runtime::zip {

// A package is read part by part, mostly in the order that it was written in. Where an entry
// begins near the one read before it, a large piece is read, which holds the next entries too:
// those cost no opening of the file. Entries here and there are read each by itself.
//
// A piece is found again only under the identity of the file that it was read from; the rules
// of DirectoryCache hold for it. Each thread has one, of a bounded size, which ends with it.
class ReadAhead {
public:
    static constexpr std::size_t kPiece = 256UL * 1024;

    static ReadAhead& OfThread();  // throws when memory is exhausted

    // The file of this identity as far as it is in memory, until the next call of Prepare.
    ArchiveFile Find(const FileIdentity& identity) const noexcept;

    // Says that `entry` is about to be read of `file`, and reads a piece around it where that may
    // pay and there is memory for it. What the piece holds, `file` takes from memory from then on,
    // until the next call. Whether there is a new piece to be kept.
    [[nodiscard]] bool Prepare(ArchiveFile& file, const Entry& entry) noexcept;

    // Keeps the piece that Prepare() has read. To be called when the file has not changed meanwhile,
    // and every later change will show in its identity.
    void Keep() noexcept { isKept_ = true; }

private:
    bool IsNear(const FileIdentity& identity, std::uint64_t position) const noexcept;

    std::unique_ptr<std::uint8_t[]> bytes_;
    std::optional<FileIdentity> identity_;  // of the file read last
    std::uint64_t last_ = 0;                // where that was
    std::uint64_t begin_ = 0;               // of the piece, in the file
    std::size_t size_ = 0;
    bool isKept_ = false;
};

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_READAHEAD_H_
