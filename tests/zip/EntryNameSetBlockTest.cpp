#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <memory>

#include "vexpa/zip/EntryNameSetBlock.h"

namespace {

using lumo::Compression::Zip::EntryNameSet;
using Block = EntryNameSet::Block;

struct FreeBlock {
    void operator()(Block* block) const noexcept { Block::Free(block); }
};

std::unique_ptr<Block, FreeBlock> NewBlock(std::uint32_t capacity, std::uint32_t count) {
    std::unique_ptr<Block, FreeBlock> block(Block::Make(capacity));
    EXPECT_EQ(block->GetCount(), 0u);
    block->SetCount(count);
    return block;
}

// The two words in front of the pairs.
std::array<std::uint32_t, 2> WordsOf(const Block& block) {
    std::array<std::uint32_t, 2> words;
    std::memcpy(words.data(), &block, sizeof words);
    return words;
}

TEST(EntryNameSetBlock, OfASmallCapacityHasBothNumbersInOneWord) {
    const auto block = NewBlock(0x7FFF, 0x1234);
    EXPECT_EQ(WordsOf(*block)[0], 0x12347FFFu);
    EXPECT_EQ(block->GetCount(), 0x1234u);
    EXPECT_EQ(block->GetCapacity(), 0x7FFFu);
}

TEST(EntryNameSetBlock, OfALargeCapacityHasAWordForEach) {
    const auto block = NewBlock(0x8000, 0x7654);
    EXPECT_EQ(WordsOf(*block), (std::array<std::uint32_t, 2>{0x80007654, 0x8000}));
    EXPECT_EQ(block->GetCount(), 0x7654u);
    EXPECT_EQ(block->GetCapacity(), 0x8000u);
}

TEST(EntryNameSetBlock, HasItsPairsAfterItsWords) {
    const auto block = NewBlock(1, 0);
    EXPECT_EQ(static_cast<const void*>(block->GetPairs()),
              reinterpret_cast<const char*>(block.get()) + 8);
}

}  // namespace
