#include "runtime/xml/DocumentMemory.h"

#include <sanitizer/asan_interface.h>

#include <functional>
#include <new>
#include <utility>

#include "runtime/ThreadsOwn.h"

namespace vexpa_runtime {

std::unique_ptr<DocumentMemory::Block> DocumentMemory::TakeBlock() {
    std::unique_ptr<Block> block = std::exchange(ThreadsOwn<Kept>().block, nullptr);
    if (block == nullptr) return std::make_unique_for_overwrite<Block>();
    ASAN_UNPOISON_MEMORY_REGION(block.get(), sizeof(Block));
    return block;
}

// A document may end in another thread than it was made in, which then has the block, and which
// goes without one when it has no memory to note that.
void DocumentMemory::KeepBlock(std::unique_ptr<Block> block) noexcept {
    try {
        Kept& kept = ThreadsOwn<Kept>();
        if (kept.block != nullptr) return;
        // Whoever reads a document after its end shall be told, though the memory is still there.
        ASAN_POISON_MEMORY_REGION(block.get(), sizeof(Block));
        kept.block = std::move(block);
    } catch (const std::bad_alloc&) {
        return;
    }
}

DocumentMemory::DocumentMemory()
    : block_(TakeBlock()), next_(block_->bytes), left_(sizeof block_->bytes) {}

DocumentMemory::~DocumentMemory() {
    KeepBlock(std::move(block_));
}

void* DocumentMemory::TakeFromBlock(std::size_t bytes, std::size_t alignment) noexcept {
    void* const taken = std::align(alignment, bytes, next_, left_);
    if (taken == nullptr) return nullptr;
    next_ = static_cast<std::byte*>(taken) + bytes;
    left_ -= bytes;
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
    if (!IsInBlock(memory)) ::operator delete(memory, bytes);
}

}  // namespace vexpa_runtime
