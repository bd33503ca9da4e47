// tool/container/Names.h - the numbers of zip headers in words.
#ifndef VEXPA_TOOL_CONTAINER_NAMES_H_
#define VEXPA_TOOL_CONTAINER_NAMES_H_

#include <cstdint>
#include <string>

namespace vexpa_tool {

// "stored", "deflate", "bzip2"; "method 77" for a number without a name (APPNOTE 4.4.5).
std::string MethodName(std::uint16_t method);

// "Unix", "FAT"; "host 77" (the upper byte of "version made by", APPNOTE 4.4.2).
std::string HostName(std::uint8_t host);

// "zip64", "Unicode path"; "0x7077" (APPNOTE 4.5.2).
std::string ExtraFieldName(std::uint16_t id);

// "2024-02-29 23:59:58"; the date as numbers even where it is none.
std::string DosTimeText(std::uint16_t date, std::uint16_t time);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CONTAINER_NAMES_H_
