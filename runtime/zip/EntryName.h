// runtime/zip/EntryName.h - what the bytes of an entry's name spell.
#ifndef VEXPA_RUNTIME_ZIP_ENTRYNAME_H_
#define VEXPA_RUNTIME_ZIP_ENTRYNAME_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace vexpa_runtime::zip {

// Appends to `out`, in UTF-8, the name that `bytes` spell: UTF-8 when they are valid UTF-8,
// else code page 437 (APPNOTE D.1). So the UTF-8 flag (bit 11) need not be asked: where it is set
// truly the bytes are valid, and where it lies the code page still keeps distinct names distinct,
// which substitute characters would not.
//
// The Info-ZIP Unicode path field (0x7075) is left aside: package names are ASCII, and a second
// name would let one archive hold different parts for different readers.
//
// A name without '/' but with '\' from a system that writes '\' (host, the upper byte of
// "version made by": FAT, NTFS, VFAT) gets '/' for each '\'.
//
// A NUL becomes U+FFFD: names are handed out NUL-terminated, and cut there "a\0b" would stand
// for another entry's name.
void AppendEntryName(std::string& out, std::string_view bytes, std::uint8_t host);

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_ENTRYNAME_H_
