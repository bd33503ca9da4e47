#include "runtime/memory/GlobalBlock.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace vexpa_runtime {

namespace {

// A block of no bytes still has an address, as callers lock it like any other.
std::size_t Room(std::size_t size) {
    return size == 0 ? 1 : size;
}

}  // namespace

bool ResizeBlock(GlobalBlock& block, std::size_t size) noexcept {
    void* bytes = std::realloc(block.bytes, Room(size));
    if (bytes == nullptr) return false;
    block.bytes = static_cast<std::byte*>(bytes);
    if (size > block.size) std::memset(block.bytes + block.size, 0, size - block.size);
    block.size = size;
    return true;
}

void FreeBlock(HGBL block) noexcept {
    if (block == nullptr) return;
    std::free(block->bytes);
    delete block;
}

}  // namespace vexpa_runtime

HGBL _XGblAlloc(std::uint32_t flags, std::size_t size) {
    const std::size_t room = vexpa_runtime::Room(size);
    void* bytes = (flags & kGblZeroInit) != 0 ? std::calloc(room, 1) : std::malloc(room);
    if (bytes == nullptr) return nullptr;
    auto* block = new (std::nothrow) GlobalBlock{static_cast<std::byte*>(bytes), size, 0};
    if (block == nullptr) std::free(bytes);
    return block;
}

void* _XGblLock(HGBL block) {
    if (block == nullptr) return nullptr;
    ++block->locks;
    return block->bytes;
}

int _XGblUnlock(HGBL block) {
    if (block == nullptr || block->locks == 0) return 0;
    return --block->locks > 0 ? 1 : 0;
}
