// runtime/zip/OverlapCheck.h - finds the entries of an archive that claim the bytes of others.
#ifndef VEXPA_RUNTIME_ZIP_OVERLAPCHECK_H_
#define VEXPA_RUNTIME_ZIP_OVERLAPCHECK_H_

#include <cstdint>
#include <vector>

#include "runtime/zip/Directory.h"

namespace vexpa_runtime::zip {

// Marks entries so that the data of those left unmarked is at most as large as the file.
//
// Deflate unpacks a kilobyte into a megabyte, which is bearable; but a directory of thousands of
// entries that all lie over the same kilobyte makes gigabytes of it. Where the compressed sizes
// together are no more than the file has, nothing is marked: an entry that overlaps another is
// odd, but does no harm. Where they are more, each entry may reach as far as the next one begins,
// and of those that begin at one place the first of the directory may. So an entry that lies about
// its size costs itself and not those after it.
void MarkOverlaps(std::vector<Entry>& entries, std::uint64_t fileSize);

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_OVERLAPCHECK_H_
