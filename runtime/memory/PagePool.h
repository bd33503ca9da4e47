// runtime/memory/PagePool.h - runs of pages for large blocks, kept for the next ones.
#ifndef VEXPA_RUNTIME_MEMORY_PAGEPOOL_H_
#define VEXPA_RUNTIME_MEMORY_PAGEPOOL_H_

#include <array>
#include <cstddef>
#include <mutex>
#include <span>

namespace vexpa_runtime {

// The system gives new memory page by page, a fault for each: for the media of a document that
// takes longer than to unpack them. So runs are kept when their blocks are freed, within bounds,
// for blocks of about the same size.
//
// Threads  All functions may be called from any thread.
class PagePool {
public:
    using Run = std::span<std::byte>;
    struct Taken {
        Run run;      // of no bytes when memory is exhausted
        bool isZero;  // else its bytes are whatever they were
    };

    explicit PagePool(std::size_t mostKept) noexcept : mostKept_(mostKept) {}
    PagePool(const PagePool&) = delete;
    PagePool& operator=(const PagePool&) = delete;
    ~PagePool() { Empty(); }

    // A run of at least `size` bytes: a new one to the page, or one that was kept and is at most an
    // eighth larger.
    Taken Take(std::size_t size) noexcept;

    // Back to the pool; one that is too large for it, to the system.
    void Give(Run run) noexcept;

    // All that is kept goes to the system.
    void Empty() noexcept;

    std::size_t BytesKept() const noexcept;

private:
    static constexpr std::size_t kMostRuns = 64;
    class Dropped;

    Run FindKept(std::size_t size) noexcept;
    Run RemoveKept(std::size_t index) noexcept;

    const std::size_t mostKept_;
    mutable std::mutex mutex_;         // guards what follows
    std::array<Run, kMostRuns> kept_;  // the one given last stands last
    std::size_t count_ = 0;
    std::size_t bytes_ = 0;
};

// The pool of the process, which is never destroyed.
PagePool& SharedPagePool() noexcept;

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_MEMORY_PAGEPOOL_H_
