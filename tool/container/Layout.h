// tool/container/Layout.h - how an archive's entries lie in its file.
#ifndef VEXPA_TOOL_CONTAINER_LAYOUT_H_
#define VEXPA_TOOL_CONTAINER_LAYOUT_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "tool/container/Container.h"

namespace vexpa_tool {

// Bytes of the file, up to but not with `end`.
struct ByteRange {
    std::uint64_t start = 0;
    std::uint64_t end = 0;

    std::uint64_t Size() const { return end - start; }
};

struct Overlap {
    std::size_t first;   // indexes into the entries
    std::size_t second;  // begins before `first` ends
};

// What belongs to no entry, and what belongs to two. With a directory only.
struct Layout {
    // Every entry was found; otherwise what lies between them cannot be told.
    bool isComplete = false;
    ByteRange before;                  // the first entry, or the directory of an archive without any
    ByteRange afterEntries;            // and before the directory
    ByteRange afterDirectory;          // and before the end record
    ByteRange afterEnd;                // of the archive, its comment included
    std::uint64_t missingComment = 0;  // bytes of the comment that lie beyond the file
    std::uint64_t gapBytes = 0;        // between entries, in all
    ByteRange firstGap;
    std::vector<Overlap> overlaps;             // the first kMostOverlaps
    std::uint64_t overlapCount = 0;            // entries that begin before another ends
    std::optional<std::size_t> intoDirectory;  // the entry that reaches furthest into the directory

    static constexpr std::size_t kMostOverlaps = 1000;
};

// Reads the local header of every entry. Time is that of sorting the entries.
Layout LayOut(const Container& container);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CONTAINER_LAYOUT_H_
