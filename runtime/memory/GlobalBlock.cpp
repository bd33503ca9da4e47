#include "runtime/memory/GlobalBlock.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include "runtime/memory/PagePool.h"

namespace vexpa_runtime {

namespace {

// Blocks from here on are runs of pages; but a sanitizer knows the ends of malloc's blocks only.
constexpr std::size_t kLarge = 64UL * 1024;
#ifdef __SANITIZE_ADDRESS__
constexpr bool kHasRuns = false;
#else
constexpr bool kHasRuns = true;
#endif

struct Memory {
    std::byte* bytes;
    std::size_t run;  // see GlobalBlock
};

Memory TakeRun(std::size_t size, bool zero) noexcept {
    const PagePool::Taken taken = SharedPagePool().Take(size);
    if (zero && !taken.isZero) std::memset(taken.run.data(), 0, size);
    return {taken.run.data(), taken.run.size()};
}

// A block of no bytes still has an address, as callers lock it like any other.
Memory TakeMemory(std::size_t size, bool zero) noexcept {
    if (kHasRuns && size >= kLarge) return TakeRun(size, zero);
    const std::size_t room = std::max<std::size_t>(size, 1);
    return {static_cast<std::byte*>(zero ? std::calloc(room, 1) : std::malloc(room)), 0};
}

void GiveBack(const Memory& memory) noexcept {
    if (memory.run != 0) {
        SharedPagePool().Give({memory.bytes, memory.run});
    } else {
        std::free(memory.bytes);
    }
}

}  // namespace

bool ResizeBlock(GlobalBlock& block, std::size_t size) noexcept {
    const std::size_t kept = std::min(size, block.size);
    const bool isInPlace = size <= block.run && size > block.run / 2;
    if (!isInPlace) {
        // What grows once may well grow again, and is not to be copied each time.
        const std::size_t more = kHasRuns && size >= kLarge && size > block.size ? size / 8 : 0;
        const Memory memory = TakeMemory(size + more, false);
        if (memory.bytes == nullptr) return false;
        std::memcpy(memory.bytes, block.bytes, kept);
        GiveBack({block.bytes, block.run});
        block.bytes = memory.bytes;
        block.run = memory.run;
    }
    std::memset(block.bytes + kept, 0, size - kept);
    block.size = size;
    return true;
}

void FreeBlock(HGBL block) noexcept {
    if (block == nullptr) return;
    GiveBack({block->bytes, block->run});
    delete block;
}

}  // namespace vexpa_runtime

HGBL _XGblAlloc(std::uint32_t flags, std::size_t size) {
    using namespace vexpa_runtime;
    const Memory memory = TakeMemory(size, (flags & kGblZeroInit) != 0);
    if (memory.bytes == nullptr) return nullptr;
    auto* block = new (std::nothrow) GlobalBlock{memory.bytes, size, memory.run, 0};
    if (block == nullptr) GiveBack(memory);
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
