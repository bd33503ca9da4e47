// vexpa/zip/EntryNameSetBlock.h - one bucket of the set of entry names.
#ifndef VEXPA_ZIP_ENTRYNAMESETBLOCK_H_
#define VEXPA_ZIP_ENTRYNAMESETBLOCK_H_

#include <cstddef>
#include <cstdint>
#include <new>

#include "vexpa/zip/EntryNameSet.h"

namespace lumo::Compression::Zip {

// One heap block: a header, then room for `capacity` pairs of which `count` are in use.
//
// Most buckets hold a name or two, so a small block packs both numbers into one word:
// count in the upper 16 bits, capacity in the lower. A large one, of capacity 32768 or
// more, has two words: the flag bit with the count, then the capacity.
class EntryNameSet::Block {
public:
    static Block* Make(std::uint32_t capacity) {
        void* memory = ::operator new(sizeof(Block) + capacity * sizeof(Pair));
        auto* block = new (memory) Block;
        if (capacity < kLargeCapacity) {
            block->first_ = capacity;
        } else {
            block->first_ = kLargeFlag;
            block->second_ = capacity;
        }
        return block;
    }
    static void Free(Block* block) noexcept { ::operator delete(block); }

    std::uint32_t GetCount() const noexcept { return IsLarge() ? first_ & ~kLargeFlag : first_ >> 16; }
    std::uint32_t GetCapacity() const noexcept { return IsLarge() ? second_ : first_ & 0xFFFF; }
    void SetCount(std::uint32_t count) noexcept {
        first_ = IsLarge() ? kLargeFlag | count : count << 16 | (first_ & 0xFFFF);
    }

    Pair* GetPairs() noexcept { return reinterpret_cast<Pair*>(this + 1); }
    const Pair* GetPairs() const noexcept { return reinterpret_cast<const Pair*>(this + 1); }

private:
    static constexpr std::uint32_t kLargeCapacity = 32768;
    static constexpr std::uint32_t kLargeFlag = 0x80000000;

    Block() = default;
    bool IsLarge() const noexcept { return (first_ & kLargeFlag) != 0; }

    std::uint32_t first_ = 0;
    std::uint32_t second_ = 0;  // in a small block the padding before its pairs
};

}  // namespace lumo::Compression::Zip

#endif  // VEXPA_ZIP_ENTRYNAMESETBLOCK_H_
