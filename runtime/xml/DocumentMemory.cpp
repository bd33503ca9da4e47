#include "runtime/xml/DocumentMemory.h"

#include <algorithm>
#include <functional>
#include <new>
#include <utility>

#include "runtime/ThreadsOwn.h"
#include "runtime/memory/Poison.h"

namespace vexpa_runtime {

// Null for a thread that has no room to note what it keeps: it goes without.
DocumentMemory::Kept* DocumentMemory::KeptByThread() noexcept {
    try {
        return &ThreadsOwn<Kept>();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

std::unique_ptr<DocumentMemory::Block> DocumentMemory::TakeBlock() {
    Kept* const kept = KeptByThread();
    if (kept != nullptr && kept->block != nullptr) return std::move(kept->block);
    return std::make_unique_for_overwrite<Block>();
}

// A document may end in another thread than it was made in; that one then keeps the block, unless
// it has one already.
void DocumentMemory::KeepBlock(std::unique_ptr<Block> block) noexcept {
    Kept* const kept = KeptByThread();
    if (kept != nullptr && kept->block == nullptr) kept->block = std::move(block);
}

DocumentMemory::DocumentMemory()
    : block_(TakeBlock()), next_(block_->bytes), left_(sizeof block_->bytes) {
    Poison(block_.get(), sizeof(Block));
}

DocumentMemory::~DocumentMemory() {
    Poison(block_.get(), sizeof(Block));
    KeepBlock(std::move(block_));
}

void* DocumentMemory::TakeFromBlock(std::size_t bytes, std::size_t alignment) noexcept {
    // What has no bytes takes one, as else it could begin where the block ends.
    const std::size_t room = std::max<std::size_t>(bytes, 1) + kPoisonedGap;
    void* const taken = std::align(std::max(alignment, kPoisonedGap), room, next_, left_);
    if (taken == nullptr) return nullptr;
    next_ = static_cast<std::byte*>(taken) + room;
    left_ -= room;
    Unpoison(taken, bytes);
    return taken;
}

bool DocumentMemory::IsInBlock(const void* memory) const noexcept {
    const std::less<const void*> isBefore;
    return !isBefore(memory, block_->bytes) && isBefore(memory, block_->bytes + kBlockBytes);
}

// Nothing in a document is aligned beyond what operator new gives.
void* DocumentMemory::do_allocate(std::size_t bytes, std::size_t alignment) {
    if (void* const taken = TakeFromBlock(bytes, alignment)) return taken;
    return ::operator new(bytes);
}

void DocumentMemory::do_deallocate(void* memory, std::size_t bytes, std::size_t) {
    if (IsInBlock(memory)) {
        Poison(memory, bytes);
    } else {
        ::operator delete(memory);
    }
}

}  // namespace vexpa_runtime
