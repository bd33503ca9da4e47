#include "tests/runtime/com/FailingNew.h"

#include <cstdlib>
#include <new>

namespace {

constexpr int kOff = -1;
constexpr int kFailed = -2;
thread_local int callsLeft = kOff;

void CountOne() {
    if (callsLeft < 0) return;
    if (callsLeft == 0) {
        callsLeft = kFailed;
        throw std::bad_alloc();
    }
    --callsLeft;
}

}  // namespace

void* operator new(std::size_t size) {
    CountOne();
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return operator new(size);
    } catch (...) {
        return nullptr;
    }
}

void* operator new(std::size_t size, std::align_val_t alignment) {
    CountOne();
    const auto step = static_cast<std::size_t>(alignment);
    void* memory = std::aligned_alloc(step, (size + step - 1) / step * step);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    std::free(memory);
}

namespace vexpa_test {

FailingNew::FailingNew(int calls) {
    callsLeft = calls;
}
FailingNew::~FailingNew() {
    callsLeft = kOff;
}
bool FailingNew::HasFailed() const {
    return callsLeft == kFailed;
}

}  // namespace vexpa_test
