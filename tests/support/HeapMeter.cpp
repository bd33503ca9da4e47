#include "tests/support/HeapMeter.h"

#include <malloc.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>

#include "tests/support/Sanitizers.h"

namespace {

std::atomic<std::size_t> live = 0;
std::atomic<std::size_t> peak = 0;
std::atomic<std::size_t> largest = 0;
std::atomic<std::size_t> count = 0;
std::atomic<std::size_t> bytes = 0;

void Raise(std::atomic<std::size_t>& mark, std::size_t to) {
    std::size_t seen = mark;
    while (seen < to && !mark.compare_exchange_weak(seen, to)) {
    }
}

void OnTaken(std::size_t wanted, std::size_t got) {
    ++count;
    bytes += wanted;
    Raise(largest, wanted);
    Raise(peak, live += got);
}

void OnGivenBack(std::size_t got) {
    live -= got;
}

}  // namespace

#if VEXPA_SANITIZER_ALLOCATES

// As sanitizer/allocator_interface.h has them, which does not come with every compiler.
extern "C" {
std::size_t __sanitizer_get_allocated_size(const volatile void* memory);
int __sanitizer_install_malloc_and_free_hooks(void (*onMalloc)(const volatile void*, std::size_t),
                                              void (*onFree)(const volatile void*));
}

namespace {

void OnMalloc(const volatile void* memory, std::size_t size) {
    OnTaken(size, __sanitizer_get_allocated_size(memory));
}
void OnFree(const volatile void* memory) {
    // What was taken before the hooks were in place was not counted, but is little.
    if (memory != nullptr) OnGivenBack(__sanitizer_get_allocated_size(memory));
}

[[maybe_unused]] const int hooks = __sanitizer_install_malloc_and_free_hooks(OnMalloc, OnFree);

}  // namespace

#else

namespace {

void OnMapped(std::size_t size, int protection, std::size_t liveNow) {
    if (protection == PROT_NONE) return;
    Raise(largest, size);
    Raise(peak, liveNow);
}

}  // namespace

// The C library calls what stands here in place of its own. So do the shared libraries under the
// program, which find it only where it is visible.
#pragma GCC visibility push(default)
extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t number, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);

void* malloc(std::size_t size) {
    void* memory = __libc_malloc(size);
    if (memory != nullptr) OnTaken(size, malloc_usable_size(memory));
    return memory;
}

void* calloc(std::size_t number, std::size_t size) {
    void* memory = __libc_calloc(number, size);
    if (memory != nullptr) OnTaken(number * size, malloc_usable_size(memory));
    return memory;
}

void* realloc(void* memory, std::size_t size) {
    const std::size_t before = malloc_usable_size(memory);
    void* moved = __libc_realloc(memory, size);
    if (moved != nullptr) OnTaken(size, malloc_usable_size(moved));
    if (moved != nullptr || size == 0) OnGivenBack(before);
    return moved;
}

void* memalign(std::size_t alignment, std::size_t size) {
    void* memory = __libc_memalign(alignment, size);
    if (memory != nullptr) OnTaken(size, malloc_usable_size(memory));
    return memory;
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return memalign(alignment, size);
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    *memory = memalign(alignment, size);
    return *memory == nullptr ? ENOMEM : 0;
}

void free(void* memory) {
    OnGivenBack(malloc_usable_size(memory));
    __libc_free(memory);
}

// malloc's own calls do not come by here, so what does was asked for by the product. Addresses
// without memory are no more than that until they get some.
void* mmap(void* address, std::size_t size, int protection, int flags, int file, off_t offset) {
    const long memory = syscall(SYS_mmap, address, size, protection, flags, file, offset);
    if (memory != -1 && (flags & MAP_ANONYMOUS) != 0) OnMapped(size, protection, live += size);
    return reinterpret_cast<void*>(memory);
}

int mprotect(void* memory, std::size_t size, int protection) noexcept {
    OnMapped(size, protection, live);
    return static_cast<int>(syscall(SYS_mprotect, memory, size, protection));
}

int munmap(void* memory, std::size_t size) {
    OnGivenBack(size);
    return static_cast<int>(syscall(SYS_munmap, memory, size));
}

}  // extern "C"
#pragma GCC visibility pop

#endif

namespace vexpa_test {

HeapMeter::HeapMeter() : liveBefore_(live), countBefore_(count), bytesBefore_(bytes) {
    peak = liveBefore_;
    largest = 0;
}

std::size_t HeapMeter::Live() const {
    const std::size_t now = live;
    return now < liveBefore_ ? 0 : now - liveBefore_;
}

std::size_t HeapMeter::Peak() const {
    return peak - liveBefore_;
}

std::size_t HeapMeter::Largest() const {
    return largest;
}

std::size_t HeapMeter::Count() const {
    return count - countBefore_;
}

std::size_t HeapMeter::Bytes() const {
    return bytes - bytesBefore_;
}

}  // namespace vexpa_test
