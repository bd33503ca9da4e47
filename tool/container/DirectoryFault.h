// tool/container/DirectoryFault.h - why an archive has no sound directory.
#ifndef VEXPA_TOOL_CONTAINER_DIRECTORYFAULT_H_
#define VEXPA_TOOL_CONTAINER_DIRECTORYFAULT_H_

#include <cstdint>
#include <string>

#include "tool/container/Container.h"

namespace vexpa_tool {

struct DirectoryFault {
    enum class Kind {
        NoArchive,            // neither an end record nor a local header at the start
        CutInsideEntry,       // no end record, and the file ends inside `entry` or its header
        CutBeforeDirectory,   // no end record and no directory: the file ends after `entry`
        CutInsideDirectory,   // no end record, and the directory at `position` is not whole
        CutInsideEndRecord,   // the end record at `position` is not whole
        NoEndRecord,          // behind entries or directory something else follows, at `position`
        NoDirectory,          // an end record that leads to no directory
        DirectoryBreaksOff,   // the header at `position` runs out of the directory
        DirectoryMiscounted,  // whole headers, but other than claimed in number and size
    };

    Kind kind = Kind::NoArchive;
    std::uint64_t position = 0;
    std::uint64_t endRecord = 0;     // where it lies
    std::uint64_t claimedCount = 0;  // what it says
    std::uint64_t claimedSize = 0;
    std::uint64_t claimedOffset = 0;
    std::uint64_t count = 0;  // entries found
    std::string entry;        // the last one that was found
};

// Of a container without a directory. The end record that is told of is the last in the file.
DirectoryFault FindDirectoryFault(const Container& container);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CONTAINER_DIRECTORYFAULT_H_
