// runtime/zip/DirectoryReader.h - reads an archive's central directory.
#ifndef VEXPA_RUNTIME_ZIP_DIRECTORYREADER_H_
#define VEXPA_RUNTIME_ZIP_DIRECTORYREADER_H_

#include <cstdint>
#include <memory>

#include "runtime/zip/ArchiveFile.h"
#include "runtime/zip/Directory.h"
#include "runtime/zip/EndRecord.h"

namespace vexpa_runtime::zip {

// Where a directory was found.
struct DirectoryPlace {
    std::uint64_t start;         // of its first header, in the file
    std::uint64_t end;           // behind its last
    std::uint64_t archiveStart;  // what offsets count from; modulo 2^64, as a cut off head is below 0
    EndRecord endRecord;         // the one that tells of it
};

// The directory of the archive in `file`, or null when there is no sound one. Throws only
// when memory is exhausted.
//
// An end record says three things about the directory: its size, its offset, and how many
// entries it has. Real archives get any one of them wrong - bytes were put before the archive,
// or between directory and end record, or the count ran over at 65,536 - so two that agree
// with what lies in the file are enough:
//
//   size    `size` bytes that end where the end record begins hold whole entry headers and
//           nothing else. Where that start is not the claimed offset, bytes were put before
//           the archive (or cut off it), and every offset is shifted by as much.
//   count   from the claimed offset on lie as many entry headers as claimed, then something
//           else, all of it before the end record.
//
// An archive of which neither is true has no sound directory; nor has one that begins with
// the signature of a compound file, whatever archives may lie inside.
//
// *place, when asked for, is where the directory that was found lies.
std::shared_ptr<Directory> ReadDirectory(const ArchiveFile& file, DirectoryPlace* place = nullptr);

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_DIRECTORYREADER_H_
