#include "vexpa/zip/EntryNameSet.h"

#include <algorithm>
#include <utility>

#include "vexpa/zip/EntryNameSetBlock.h"

namespace lumo::Compression::Zip {

namespace {

// Powers of four, so that growing stays rare.
constexpr std::size_t kFewestBuckets = 16;
constexpr std::size_t kMostBuckets = 16777216;

constexpr char16_t FoldAscii(char16_t unit) noexcept {
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
}

}  // namespace

// Kept: other letters than ASCII keep their case, so two names may differ in that alone.
// (EntryNameSet.TakesNamesForTwoThatDifferInTheCaseOfLettersOutsideAscii)
std::uint32_t HashEntryName(std::u16string_view name) noexcept {
    std::uint32_t hash = 0;
    for (const char16_t unit : name) {
        hash = (hash << 4) + FoldAscii(unit);
        const std::uint32_t high = hash & 0xF0000000;
        hash ^= high >> 24;
        hash &= ~high;
    }
    return hash;
}

// Blocks without the names in them, which another list of blocks holds as well.
struct EntryNameSet::BlockList {
    std::vector<Block*> blocks;
    ~BlockList() {
        for (Block* block : blocks) Block::Free(block);
    }
};

EntryNameSet::EntryNameSet() : buckets_(kFewestBuckets, nullptr) {}

EntryNameSet::~EntryNameSet() {
    FreeBlocks();
}

bool EntryNameSet::Contains(const char16_t* name) const {
    const std::uint64_t hash = HashEntryName(name);
    return FindPlace(buckets_[BucketOf(hash)], hash, name).found;
}

bool EntryNameSet::Insert(BSTR name) {
    const std::uint64_t hash = HashEntryName(name);
    Place place = FindPlace(buckets_[BucketOf(hash)], hash, name);
    if (place.found) return false;

    const std::size_t before = buckets_.size();
    GrowFor(count_ + 1);
    if (buckets_.size() != before) place = FindPlace(buckets_[BucketOf(hash)], hash, name);
    InsertAt(buckets_[BucketOf(hash)], place.index, {hash, name});
    ++count_;
    return true;
}

EntryNameSet::Place EntryNameSet::FindPlace(const Block* block, std::uint64_t hash,
                                            const char16_t* name) {
    if (block == nullptr) return {0, false};
    std::uint32_t low = 0;
    std::uint32_t high = block->GetCount();
    while (low < high) {
        const std::uint32_t middle = low + (high - low) / 2;
        const Pair& pair = block->GetPairs()[middle];
        int order = pair.hash < hash ? -1 : pair.hash > hash ? 1 : 0;
        if (order == 0) order = _Xu2_stricmp(pair.name, name);
        if (order == 0) return {middle, true};
        if (order < 0) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return {low, false};
}

void EntryNameSet::InsertAt(Block*& slot, std::uint32_t place, const Pair& pair) {
    Block* block = slot;
    const std::uint32_t count = block == nullptr ? 0 : block->GetCount();
    if (block != nullptr && count < block->GetCapacity()) {
        Pair* pairs = block->GetPairs();
        std::copy_backward(pairs + place, pairs + count, pairs + count + 1);
        pairs[place] = pair;
        block->SetCount(count + 1);
        return;
    }

    pendingBucket_ = Block::Make(count == 0 ? 1 : 2 * count);
    Pair* pairs = pendingBucket_->GetPairs();
    if (block != nullptr) {
        const Pair* old = block->GetPairs();
        std::copy(old, old + place, pairs);
        std::copy(old + place, old + count, pairs + place + 1);
    }
    pairs[place] = pair;
    pendingBucket_->SetCount(count + 1);
    Block::Free(block);
    slot = std::exchange(pendingBucket_, nullptr);
}

// Keeps the number of names at most the number of buckets, up to the last step.
void EntryNameSet::GrowFor(std::size_t count) {
    std::size_t enough = buckets_.size();
    while (enough < std::min(count, kMostBuckets)) enough *= 4;
    if (enough == buckets_.size()) return;

    BlockList grown{std::vector<Block*>(enough, nullptr)};
    for (const Block* block : buckets_) {
        if (block == nullptr) continue;
        for (std::uint32_t i = 0; i < block->GetCount(); ++i) {
            const Pair& pair = block->GetPairs()[i];
            Block*& slot = grown.blocks[pair.hash & (enough - 1)];
            InsertAt(slot, FindPlace(slot, pair.hash, pair.name).index, pair);
        }
    }
    std::swap(buckets_, grown.blocks);
}

void EntryNameSet::Clear() noexcept {
    FreeBlocks();
    buckets_.resize(kFewestBuckets);
    count_ = 0;
}

void EntryNameSet::FreeBlocks() noexcept {
    for (Block*& block : buckets_) {
        if (block == nullptr) continue;
        for (std::uint32_t i = 0; i < block->GetCount(); ++i)
            _XSysFreeString(block->GetPairs()[i].name);
        Block::Free(block);
        block = nullptr;
    }
}

}  // namespace lumo::Compression::Zip
