// tool/container/LocalScan.h - the entries of an archive that has lost its directory.
#ifndef VEXPA_TOOL_CONTAINER_LOCALSCAN_H_
#define VEXPA_TOOL_CONTAINER_LOCALSCAN_H_

#include <cstdint>
#include <functional>
#include <string>

#include "tool/container/LocalHeader.h"

namespace vexpa_tool {

// What comes after the last entry that was found.
enum class ScanEnd {
    Directory,     // a directory's header
    FileEnd,       // nothing: the file ends with the entry
    InsideData,    // the file ends before the entry does
    InsideHeader,  // or before its header does
    OtherBytes,
};

struct LocalScan {
    std::uint64_t end = 0;  // where it stopped
    ScanEnd how = ScanEnd::OtherBytes;
};

// An entry, its sizes as far as they are told or can be seen.
using LocalSink = std::function<void(const LocalHeader& header, const std::string& name)>;

// Goes from local header to local header, from the first byte of the file on. Sizes that only
// follow the data are found by the next header. Time is linear.
LocalScan ScanLocalHeaders(const Container& container, const LocalSink& sink);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CONTAINER_LOCALSCAN_H_
