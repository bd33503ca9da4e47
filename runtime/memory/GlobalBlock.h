// runtime/memory/GlobalBlock.h - a movable memory block, what an HGBL points to.
#ifndef VEXPA_RUNTIME_MEMORY_GLOBALBLOCK_H_
#define VEXPA_RUNTIME_MEMORY_GLOBALBLOCK_H_

#include <cstddef>

#include "vexpa/platform/Runtime.h"

// The bytes lie behind this record, or where a stream has grown them to, while the handle that
// callers hold stays the same.
struct GlobalBlock {
    std::byte* bytes;
    std::size_t size;
    std::size_t room;  // for how many bytes there is memory; a run of pages if it is a large one
    int locks;
    bool isInOnePiece;  // the bytes lie behind this record
};

namespace vexpa_runtime {

// Changes the block's size, keeping its bytes; new ones are zero. False, and no change,
// when memory is exhausted.
bool ResizeBlock(GlobalBlock& block, std::size_t size) noexcept;

void FreeBlock(HGBL block) noexcept;  // null does nothing

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_MEMORY_GLOBALBLOCK_H_
