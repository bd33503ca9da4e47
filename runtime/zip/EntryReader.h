// runtime/zip/EntryReader.h - reads the bytes of one entry.
#ifndef VEXPA_RUNTIME_ZIP_ENTRYREADER_H_
#define VEXPA_RUNTIME_ZIP_ENTRYREADER_H_

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <optional>

#include "runtime/zip/ArchiveFile.h"
#include "runtime/zip/Directory.h"

namespace vexpa_runtime::zip {

struct FreeMemory {
    void operator()(void* memory) const noexcept { std::free(memory); }
};

struct EntryBytes {
    std::unique_ptr<char, FreeMemory> bytes;  // from malloc; null for an entry of no bytes
    std::size_t size;
};

// The bytes of `entry`, or nothing: when it is encrypted, overlaps others (OverlapCheck.h), begins
// on another disk or uses a method other than stored and deflate, when its data runs out of the
// file, and when the bytes are not as many or not those (CRC) that the directory says. Nothing is
// allocated on the word of a directory that cannot be true. Throws only when memory is exhausted.
//
// *isDamaged, when asked for, tells whether the data could be read but is not what the directory
// says, so that to read it again from the same file is of no use.
std::optional<EntryBytes> ReadEntry(const ArchiveFile& file, const Entry& entry,
                                    bool* isDamaged = nullptr);

// What can be said of an entry before anything is read or allocated for it: only of one that is
// plausible ReadEntry() gives bytes.
bool IsPlausible(const ArchiveFile& file, const Entry& entry) noexcept;

// How many bytes from its header on a plausible entry takes up, as far as that can be said before
// they are read.
std::uint64_t LikelySize(const ArchiveFile& file, const Entry& entry) noexcept;

// Whether all that ReadEntry() would read is in memory.
bool IsInMemory(const ArchiveFile& file, const Entry& entry) noexcept;

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_ENTRYREADER_H_
