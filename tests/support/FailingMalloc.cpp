#include "tests/support/FailingMalloc.h"

#include <expat.h>
#include <libdeflate.h>
#include <sys/mman.h>

#include <cerrno>
#include <memory_resource>
#include <mutex>
#include <new>
#include <unordered_map>

extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* memory, std::size_t size);
void __real_free(void* memory);
int __real_posix_memalign(void** memory, std::size_t alignment, std::size_t size);
void* __real_mmap(void* address, std::size_t size, int protection, int flags, int file, off_t offset);
int __real_mprotect(void* memory, std::size_t size, int protection);
void* __wrap_malloc(std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size);
void* __wrap_realloc(void* memory, std::size_t size);
void __wrap_free(void* memory);
int __wrap_posix_memalign(void** memory, std::size_t alignment, std::size_t size);
void* __wrap_mmap(void* address, std::size_t size, int protection, int flags, int file, off_t offset);
int __wrap_mprotect(void* memory, std::size_t size, int protection);
XML_Parser __wrap_XML_ParserCreate(const XML_Char* encoding);
}

namespace {

constexpr long kNever = -1;
constexpr long kHasFailed = -2;

thread_local long successesLeft = kNever;

bool Fails() {
    if (successesLeft == 0) {
        successesLeft = kHasFailed;
        return true;
    }
    if (successesLeft > 0) --successesLeft;
    return false;
}

// For the books, which must not be in themselves.
class RealMemory : public std::pmr::memory_resource {
    void* do_allocate(std::size_t size, std::size_t) override { return __real_malloc(size); }
    void do_deallocate(void* memory, std::size_t, std::size_t) override { __real_free(memory); }
    bool do_is_equal(const memory_resource& other) const noexcept override { return this == &other; }
};

class Books {
public:
    void* Enter(void* memory) {
        const std::lock_guard lock(mutex_);
        if (memory != nullptr) blocks_[memory] = next_++;
        return memory;
    }
    void Strike(void* memory) {
        const std::lock_guard lock(mutex_);
        blocks_.erase(memory);
    }
    std::size_t Count() {
        const std::lock_guard lock(mutex_);
        return blocks_.size();
    }
    std::size_t Next() {
        const std::lock_guard lock(mutex_);
        return next_;
    }
    std::size_t FreeSince(std::size_t first) {
        const std::lock_guard lock(mutex_);
        return std::erase_if(blocks_, [first](const auto& block) {
            if (block.second < first) return false;
            __real_free(block.first);
            return true;
        });
    }

private:
    std::mutex mutex_;
    RealMemory memory_;
    std::pmr::unordered_map<void*, std::size_t> blocks_{&memory_};
    std::size_t next_ = 0;
};

// Never destroyed: memory is freed until the very end.
Books& TheBooks() {
    alignas(Books) static unsigned char room[sizeof(Books)];
    static Books& books = *new (room) Books;
    return books;
}

const bool libdeflateIsOurs = (libdeflate_set_memory_allocator(__wrap_malloc, __wrap_free), true);

}  // namespace

void* __wrap_malloc(std::size_t size) {
    return Fails() ? nullptr : TheBooks().Enter(__real_malloc(size));
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
    return Fails() ? nullptr : TheBooks().Enter(__real_calloc(count, size));
}

void* __wrap_realloc(void* memory, std::size_t size) {
    if (Fails()) return nullptr;
    TheBooks().Strike(memory);
    return TheBooks().Enter(__real_realloc(memory, size));
}

void __wrap_free(void* memory) {
    TheBooks().Strike(memory);
    __real_free(memory);
}

int __wrap_posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    if (Fails()) return ENOMEM;
    const int error = __real_posix_memalign(memory, alignment, size);
    if (error == 0) TheBooks().Enter(*memory);
    return error;
}

void* __wrap_mmap(void* address, std::size_t size, int protection, int flags, int file, off_t offset) {
    return Fails() ? MAP_FAILED : __real_mmap(address, size, protection, flags, file, offset);
}

int __wrap_mprotect(void* memory, std::size_t size, int protection) {
    return Fails() ? -1 : __real_mprotect(memory, size, protection);
}

XML_Parser __wrap_XML_ParserCreate(const XML_Char* encoding) {
    static const XML_Memory_Handling_Suite suite{__wrap_malloc, __wrap_realloc, __wrap_free};
    return XML_ParserCreate_MM(encoding, &suite, nullptr);
}

namespace vexpa_test {

FailingMalloc::FailingMalloc(long successes) {
    successesLeft = successes;
}
FailingMalloc::~FailingMalloc() {
    successesLeft = kNever;
}
bool FailingMalloc::HasFailed() const {
    return successesLeft == kHasFailed;
}
std::size_t LiveBlocks() {
    return TheBooks().Count();
}
std::size_t NextBlock() {
    return TheBooks().Next();
}
std::size_t FreeBlocksSince(std::size_t first) {
    return TheBooks().FreeSince(first);
}

}  // namespace vexpa_test
