// runtime/xml/DocumentMemory.h - where a document's texts and tables lie.
#ifndef VEXPA_RUNTIME_XML_DOCUMENTMEMORY_H_
#define VEXPA_RUNTIME_XML_DOCUMENTMEMORY_H_

#include <cstddef>
#include <memory>
#include <memory_resource>

namespace vexpa_runtime {

// One block while it lasts, as nearly every document fits into it, then the heap. Nothing in the
// block is given back before the end. The thread keeps the block from document to document: some
// twenty small allocations were a good part of the parse of a small stream.
class DocumentMemory final : public std::pmr::memory_resource {
public:
    DocumentMemory();  // throws std::bad_alloc
    ~DocumentMemory() override;
    DocumentMemory(const DocumentMemory&) = delete;
    DocumentMemory& operator=(const DocumentMemory&) = delete;

    // [borrowed] From the block, or null when its rest is too small.
    void* TakeFromBlock(std::size_t bytes, std::size_t alignment) noexcept;

private:
    static constexpr std::size_t kBlockBytes = 16UL * 1024;

    struct Block {
        std::byte bytes[kBlockBytes];
    };
    struct Kept {
        std::unique_ptr<Block> block;
    };

    static Kept* KeptByThread() noexcept;
    static std::unique_ptr<Block> TakeBlock();
    static void KeepBlock(std::unique_ptr<Block> block) noexcept;

    bool IsInBlock(const void* memory) const noexcept;
    void* do_allocate(std::size_t bytes, std::size_t alignment) override;
    void do_deallocate(void* memory, std::size_t bytes, std::size_t alignment) override;
    bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override {
        return this == &other;
    }

    std::unique_ptr<Block> block_;
    void* next_;
    std::size_t left_;
};

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_XML_DOCUMENTMEMORY_H_
