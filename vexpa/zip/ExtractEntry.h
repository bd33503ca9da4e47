// vexpa/zip/ExtractEntry.h - an entry's bytes in memory.
#ifndef VEXPA_ZIP_EXTRACTENTRY_H_
#define VEXPA_ZIP_EXTRACTENTRY_H_

#include <cstddef>

#include "vexpa/platform/Runtime.h"

namespace lumo::Compression::Zip {

struct UnZipArchiveImpl;

// Extracts the entry that `entryName` matches: a name with slashes and without a leading
// one, or a pattern of the platform's unzip call. `result` must be zeroed; whatever comes
// back, the caller frees its strptr when it is not null. An empty entry has no bytes.
//
//   S_OK    *result holds the bytes
//   E_FAIL  no such file or entry, or it is damaged, encrypted or unreadable
HRESULT ExtractEntryToMemory(UnZipArchiveImpl& archive, const char16_t* entryName, UzpBuffer* result);

// What becomes of the extracted bytes when there is no memory for the block they go into.
// Opening a package frees them; the readers of parts lose them, and must: compiled
// platforms count on the order of their calls.
enum class OnBlockFailure { FreeBytes, LoseBytes };

// Extracts an entry into a new global block, null for an empty entry; *size, when asked for, is the
// number of its bytes.
//
//   S_OK           *block is the block [owned], or null
//   E_FAIL         as above; *block is null
//   E_OUTOFMEMORY  no memory for the block; *block is null
HRESULT ExtractEntryToBlock(UnZipArchiveImpl& archive, const char16_t* entryName,
                            OnBlockFailure onBlockFailure, HGBL* block, std::size_t* size = nullptr);

// Tells a stream or storage to free the block it is made over.
constexpr int kFreeBlockOnRelease = 1;

}  // namespace lumo::Compression::Zip

#endif  // VEXPA_ZIP_EXTRACTENTRY_H_
