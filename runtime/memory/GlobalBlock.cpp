#include "runtime/memory/GlobalBlock.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include "runtime/memory/PagePool.h"
#include "runtime/memory/Poison.h"

namespace vexpa_runtime {

namespace {

// Blocks from here on are runs of pages; but a sanitizer knows the ends of malloc's blocks only.
constexpr std::size_t kLarge = 64UL * 1024;
constexpr bool kHasRuns = VEXPA_POISONS == 0;

struct Memory {
    std::byte* bytes;
    std::size_t room;  // see GlobalBlock
};

Memory TakeRun(std::size_t size, bool zero) noexcept {
    const PagePool::Taken taken = SharedPagePool().Take(size);
    if (zero && !taken.isZero && !taken.run.empty()) std::memset(taken.run.data(), 0, size);
    return {taken.run.data(), taken.run.size()};
}

bool IsRun(std::size_t room) noexcept {
    return kHasRuns && room >= kLarge;
}

// A block of no bytes still has an address, as callers lock it like any other.
Memory TakeMemory(std::size_t size) noexcept {
    if (IsRun(size)) return TakeRun(size, false);
    return {static_cast<std::byte*>(std::malloc(std::max<std::size_t>(size, 1))), size};
}

void GiveBackBytes(const GlobalBlock& block) noexcept {
    if (block.isInOnePiece) return;
    if (IsRun(block.room)) {
        SharedPagePool().Give({block.bytes, block.room});
    } else {
        std::free(block.bytes);
    }
}

GlobalBlock* MakeLarge(std::size_t size, bool zero) noexcept {
    const Memory memory = TakeRun(size, zero);
    if (memory.bytes == nullptr) return nullptr;
    void* record = std::malloc(sizeof(GlobalBlock));
    if (record != nullptr) return new (record) GlobalBlock{memory.bytes, size, memory.room, 0, false};
    SharedPagePool().Give({memory.bytes, memory.room});
    return nullptr;
}

static_assert(sizeof(GlobalBlock) % alignof(std::max_align_t) == 0, "bytes stand as malloc's do");

// In one piece, as there is one for each part of a document.
GlobalBlock* MakeSmall(std::size_t size, bool zero) noexcept {
    if (size > PTRDIFF_MAX - sizeof(GlobalBlock)) return nullptr;
    const std::size_t whole = sizeof(GlobalBlock) + size;
    void* memory = zero ? std::calloc(whole, 1) : std::malloc(whole);
    if (memory == nullptr) return nullptr;
    auto* bytes = static_cast<std::byte*>(memory) + sizeof(GlobalBlock);
    return new (memory) GlobalBlock{bytes, size, size, 0, true};
}

}  // namespace

bool ResizeBlock(GlobalBlock& block, std::size_t size) noexcept {
    const std::size_t kept = std::min(size, block.size);
    // What is left of memory of its own is given back when it is half.
    const bool isInPlace = size <= block.room && (block.isInOnePiece || size > block.room / 2);
    if (!isInPlace) {
        // What grows once may well grow again, and is not to be copied each time.
        const std::size_t more = IsRun(size) && size > block.size ? size / 8 : 0;
        const Memory memory = TakeMemory(size + more);
        if (memory.bytes == nullptr) return false;
        std::memcpy(memory.bytes, block.bytes, kept);
        GiveBackBytes(block);
        block.bytes = memory.bytes;
        block.room = memory.room;
        block.isInOnePiece = false;
    }
    std::memset(block.bytes + kept, 0, size - kept);
    block.size = size;
    return true;
}

void FreeBlock(HGBL block) noexcept {
    if (block == nullptr) return;
    GiveBackBytes(*block);
    std::free(block);
}

}  // namespace vexpa_runtime

HGBL _XGblAlloc(std::uint32_t flags, std::size_t size) {
    using namespace vexpa_runtime;
    const bool zero = (flags & kGblZeroInit) != 0;
    return IsRun(size) ? MakeLarge(size, zero) : MakeSmall(size, zero);
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
