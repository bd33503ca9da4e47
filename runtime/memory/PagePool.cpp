#include "runtime/memory/PagePool.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstdint>
#include <limits>

#include "runtime/NeverDestroyed.h"

namespace vexpa_runtime {

namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kHugePage = 2UL << 20;

// What stays with the process when all packages are closed: the media of most documents.
constexpr std::size_t kMostKept = 32UL << 20;

constexpr std::size_t RoundUp(std::size_t size, std::size_t unit) {
    return (size + unit - 1) / unit * unit;
}

std::byte* Map(std::size_t size, int protection) noexcept {
    void* memory = mmap(nullptr, size, protection, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return memory == MAP_FAILED ? nullptr : static_cast<std::byte*>(memory);
}

void Unmap(PagePool::Run run) noexcept {
    if (!run.empty()) munmap(run.data(), run.size());
}

// A huge page begins at a multiple of its size. So addresses for one more are reserved, without
// memory for them, and what lies before and behind the run is given up again.
PagePool::Run MapAligned(std::size_t size) noexcept {
    std::byte* reserved = Map(size + kHugePage, PROT_NONE);
    if (reserved == nullptr) return {};
    const std::size_t head = -reinterpret_cast<std::uintptr_t>(reserved) % kHugePage;
    const PagePool::Run run(reserved + head, size);
    Unmap({reserved, head});
    Unmap({run.data() + size, kHugePage - head});
    if (mprotect(run.data(), run.size(), PROT_READ | PROT_WRITE) != 0) {
        Unmap(run);
        return {};
    }
    madvise(run.data(), run.size(), MADV_HUGEPAGE);  // advice: nothing is lost where there are none
    return run;
}

PagePool::Run NewRun(std::size_t size) noexcept {
    if (size >= kHugePage) return MapAligned(size);
    std::byte* memory = Map(size, PROT_READ | PROT_WRITE);
    return {memory, memory == nullptr ? 0 : size};
}

}  // namespace

// Runs go to the system after the lock is released: that takes as long as they are large.
class PagePool::Dropped {
public:
    ~Dropped() {
        for (std::size_t i = 0; i < count_; ++i) Unmap(runs_[i]);
    }
    void Add(Run run) noexcept { runs_[count_++] = run; }

private:
    std::array<Run, kMostRuns> runs_;
    std::size_t count_ = 0;
};

void PagePool::Empty() noexcept {
    Dropped dropped;
    const std::lock_guard lock(mutex_);
    while (count_ != 0) dropped.Add(RemoveKept(count_ - 1));
}

PagePool::Taken PagePool::Take(std::size_t size) noexcept {
    if (size > std::numeric_limits<std::ptrdiff_t>::max() / 2) return {{}, false};
    const std::size_t wanted = RoundUp(size, kPage);
    const Run kept = FindKept(wanted);
    if (!kept.empty()) return {kept, false};
    return {NewRun(wanted), true};
}

void PagePool::Give(Run run) noexcept {
    if (run.size() > mostKept_) return Unmap(run);
    Dropped dropped;
    const std::lock_guard lock(mutex_);
    while (count_ == kMostRuns || bytes_ + run.size() > mostKept_) dropped.Add(RemoveKept(0));
    kept_[count_++] = run;
    bytes_ += run.size();
}

std::size_t PagePool::BytesKept() const noexcept {
    const std::lock_guard lock(mutex_);
    return bytes_;
}

// The one given last is the likeliest to be in the processor's cache.
PagePool::Run PagePool::FindKept(std::size_t size) noexcept {
    const std::lock_guard lock(mutex_);
    for (std::size_t i = count_; i-- != 0;) {
        if (kept_[i].size() >= size && kept_[i].size() - size <= size / 8) return RemoveKept(i);
    }
    return {};
}

PagePool::Run PagePool::RemoveKept(std::size_t index) noexcept {
    const Run run = kept_[index];
    std::copy(kept_.begin() + index + 1, kept_.begin() + count_, kept_.begin() + index);
    --count_;
    bytes_ -= run.size();
    return run;
}

PagePool& SharedPagePool() noexcept {
    static NeverDestroyed<PagePool> pool(kMostKept);
    return pool.Get();
}

}  // namespace vexpa_runtime
