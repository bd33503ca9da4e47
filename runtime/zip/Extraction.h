// runtime/zip/Extraction.h - from the path of an archive and a request to the entry's bytes.
#ifndef VEXPA_RUNTIME_ZIP_EXTRACTION_H_
#define VEXPA_RUNTIME_ZIP_EXTRACTION_H_

#include <memory>
#include <optional>
#include <string_view>

#include "runtime/zip/DirectoryCache.h"
#include "runtime/zip/EntryReader.h"

namespace vexpa_runtime::zip {

// The directory of the archive that `path` leads to now, or null.
std::shared_ptr<const Directory> OpenDirectory(DirectoryCache& cache, const char* path);

// What the cache knows of the file at a path, before the file is opened.
struct Prospect {
    FileIdentity identity;
    std::shared_ptr<const Directory> directory;  // null: not in the cache
    const Entry* entry;                          // in the directory; or null
};

// Extraction in two steps, so that a name that is not there costs no opening of the file. The first
// answers nothing when it is known already that there is no such entry.
std::optional<Prospect> LookUp(DirectoryCache& cache, const char* path, std::string_view request);

// The second reads the entry. The file that it opens may be another than the one that was
// looked at; then its own directory is read.
//
// A program may write to the file meanwhile. The check sum catches nearly every mixture of old
// and new bytes, but not one that an unlucky or prepared pair of contents allows, nor a
// directory header that is half old: so where the file has changed, or may have changed
// within one tick of its clock, only what reads the same twice is given out.
std::optional<EntryBytes> Extract(DirectoryCache& cache, const char* path, std::string_view request,
                                  Prospect prospect);

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_EXTRACTION_H_
