// vexpa/zip/EntryNameSet.h - the names of an archive without regard to case.
#ifndef VEXPA_ZIP_ENTRYNAMESET_H_
#define VEXPA_ZIP_ENTRYNAMESET_H_

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "vexpa/base/Noncopyable.h"
#include "vexpa/platform/Runtime.h"

namespace lumo::Compression::Zip {

// The ELF (PJW) hash over 16-bit units, ASCII letters folded to upper case first.
std::uint32_t HashEntryName(std::u16string_view name) noexcept;

// A set of BSTRs that holds one of each group of names differing in the case of ASCII letters only.
//
// Buckets are blocks of (hash, name) pairs in the order of their hashes; names that share
// a hash stand in the order of _Xu2_stricmp, so an archive whose names all collide by
// design still costs a logarithmic number of comparisons for each name.
class EntryNameSet : tarn::Noncopyable {
public:
    EntryNameSet();
    ~EntryNameSet();

    // Takes over `name` and answers true, unless a name equal but for case is there already:
    // then the name stays the caller's.
    bool Insert(BSTR name);

    std::size_t GetCount() const noexcept { return count_; }
    std::size_t GetBucketCount() const noexcept { return buckets_.size(); }

    // Whether a name equal but for case is in the set.
    bool Contains(const char16_t* name) const;

    // Frees every name and goes back to 16 empty buckets.
    void Clear() noexcept;

    struct Pair {
        std::uint64_t hash;
        BSTR name;
    };
    class Block;  // EntryNameSetBlock.h

    // [borrowed] The names of one bucket, null for none, until the set is changed.
    const Block* GetBucket(std::size_t index) const noexcept { return buckets_[index]; }

private:
    struct BlockList;
    struct Place {
        std::uint32_t index;
        bool found;
    };

    std::size_t BucketOf(std::uint64_t hash) const noexcept { return hash & (buckets_.size() - 1); }
    static Place FindPlace(const Block* block, std::uint64_t hash, const char16_t* name);
    void InsertAt(Block*& slot, std::uint32_t place, const Pair& pair);
    void GrowFor(std::size_t count);
    void FreeBlocks() noexcept;

    Block* pendingBucket_ = nullptr;  // [owned] a block being built by an insertion
    std::vector<Block*> buckets_;
    std::size_t count_ = 0;
};

}  // namespace lumo::Compression::Zip

#endif  // VEXPA_ZIP_ENTRYNAMESET_H_
