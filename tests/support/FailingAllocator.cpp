#include "tests/support/FailingAllocator.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>

namespace {

constexpr long kNever = -1;
constexpr long kHasFailed = -2;

thread_local long successesLeft = kNever;
std::atomic<long> live = 0;
std::atomic<long> made = 0;

void* Allocate(std::size_t size, std::size_t alignment) {
    if (successesLeft == 0) {
        successesLeft = kHasFailed;
        throw std::bad_alloc();
    }
    if (successesLeft > 0) --successesLeft;
    const std::size_t rounded = (size / alignment + 1) * alignment;
    void* memory = std::aligned_alloc(alignment, rounded);
    if (memory == nullptr) throw std::bad_alloc();
    ++live;
    ++made;
    return memory;
}

void Free(void* memory) noexcept {
    if (memory == nullptr) return;
    --live;
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
    return Allocate(size, alignof(std::max_align_t));
}
void* operator new[](std::size_t size) {
    return Allocate(size, alignof(std::max_align_t));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return Allocate(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return Allocate(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory) noexcept {
    Free(memory);
}
void operator delete[](void* memory) noexcept {
    Free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    Free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    Free(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept {
    Free(memory);
}
void operator delete[](void* memory, std::align_val_t) noexcept {
    Free(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    Free(memory);
}
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept {
    Free(memory);
}

namespace vexpa_test {

FailingAllocator::FailingAllocator(long successes) {
    successesLeft = successes;
}
FailingAllocator::~FailingAllocator() {
    successesLeft = kNever;
}
bool FailingAllocator::HasFailed() const {
    return successesLeft == kHasFailed;
}
long LiveAllocations() {
    return live;
}
long Allocations() {
    return made;
}

}  // namespace vexpa_test
