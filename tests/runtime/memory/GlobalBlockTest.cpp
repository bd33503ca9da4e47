#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "runtime/memory/GlobalBlock.h"
#include "tests/support/FailingMalloc.h"

namespace {

using vexpa_runtime::FreeBlock;
using vexpa_runtime::ResizeBlock;
using vexpa_test::FailingMalloc;
using vexpa_test::LiveBlocks;

std::string BytesOf(const GlobalBlock& block) {
    return {reinterpret_cast<const char*>(block.bytes), block.size};
}

HGBL NewBlock(const std::string& bytes) {
    HGBL block = _XGblAlloc(0, bytes.size());
    std::memcpy(block->bytes, bytes.data(), bytes.size());
    return block;
}

TEST(GlobalBlock, IsZeroWhenAskedToBe) {
    HGBL block = _XGblAlloc(kGblZeroInit, 1000);
    EXPECT_EQ(BytesOf(*block), std::string(1000, '\0'));
    FreeBlock(block);
}

TEST(GlobalBlock, OfNoBytesIsLockedLikeAnyOther) {
    HGBL block = _XGblAlloc(0, 0);
    EXPECT_EQ(block->size, 0u);
    EXPECT_NE(_XGblLock(block), nullptr);
    FreeBlock(block);
}

TEST(GlobalBlock, KnowsWhetherAnotherLockIsLeft) {
    HGBL block = _XGblAlloc(0, 8);
    EXPECT_EQ(_XGblLock(block), block->bytes);
    EXPECT_EQ(_XGblLock(block), block->bytes);
    EXPECT_EQ(_XGblUnlock(block), 1);
    EXPECT_EQ(_XGblUnlock(block), 0);
    FreeBlock(block);
}

TEST(GlobalBlock, IsNotUnlockedOnceTooOften) {
    HGBL block = _XGblAlloc(0, 8);
    EXPECT_EQ(_XGblUnlock(block), 0);
    EXPECT_EQ(block->locks, 0);
    FreeBlock(block);
}

TEST(GlobalBlock, OfNullCanBeLockedUnlockedAndFreed) {
    EXPECT_EQ(_XGblLock(nullptr), nullptr);
    EXPECT_EQ(_XGblUnlock(nullptr), 0);
    FreeBlock(nullptr);
}

TEST(GlobalBlock, IsNullWhicheverOfItsAllocationsFails) {
    for (const std::size_t size : {8U, 100'000U}) {
        SCOPED_TRACE(size);
        bool hasFailed = true;
        for (long successes = 0; hasFailed; ++successes) {
            const std::size_t before = LiveBlocks();
            HGBL block = nullptr;
            {
                const FailingMalloc failing(successes);
                block = _XGblAlloc(successes % 2 == 0 ? 0 : kGblZeroInit, size);
                hasFailed = failing.HasFailed();
            }
            EXPECT_EQ(block == nullptr, hasFailed) << successes;
            FreeBlock(block);
            EXPECT_EQ(LiveBlocks(), before) << successes;
        }
    }
}

TEST(GlobalBlock, IsNullForMoreBytesThanThereCanBe) {
    EXPECT_EQ(_XGblAlloc(0, SIZE_MAX), nullptr);
    EXPECT_EQ(_XGblAlloc(kGblZeroInit, SIZE_MAX - sizeof(GlobalBlock)), nullptr);
}

TEST(GlobalBlock, GrowsByZerosAndShrinksKeepingItsBytes) {
    HGBL block = NewBlock("abc");
    EXPECT_TRUE(ResizeBlock(*block, 5));
    EXPECT_EQ(BytesOf(*block), std::string("abc\0\0", 5));
    EXPECT_TRUE(ResizeBlock(*block, 2));
    EXPECT_EQ(BytesOf(*block), "ab");
    EXPECT_TRUE(ResizeBlock(*block, 3));
    EXPECT_EQ(BytesOf(*block), std::string("ab\0", 3));
    EXPECT_TRUE(ResizeBlock(*block, 0));
    EXPECT_NE(_XGblLock(block), nullptr);
    FreeBlock(block);
}

// From memory of malloc to a run of pages and back, within one, and to another.
TEST(GlobalBlock, KeepsItsBytesHoweverLargeItGrows) {
    HGBL block = NewBlock("abc");
    std::string bytes = "abc";
    for (const std::size_t size : {70'000U, 71'000U, 3'000'000U, 2'900'000U, 1'000U, 100'000U, 2U}) {
        SCOPED_TRACE(size);
        ASSERT_TRUE(ResizeBlock(*block, size));
        bytes.resize(size);
        EXPECT_EQ(BytesOf(*block), bytes);
        std::memset(block->bytes, 'x', size);
        bytes.assign(size, 'x');
    }
    FreeBlock(block);
}

TEST(GlobalBlock, IsZeroAlsoWhereALargeOneWasBefore) {
    constexpr std::size_t kSize = 200'000;
    HGBL before = _XGblAlloc(0, kSize);
    std::memset(before->bytes, 'x', kSize);
    FreeBlock(before);
    HGBL block = _XGblAlloc(kGblZeroInit, kSize);
    EXPECT_EQ(BytesOf(*block), std::string(kSize, '\0'));
    FreeBlock(block);
}

TEST(GlobalBlock, IsAsItWasWhenItCannotGrow) {
    HGBL block = NewBlock("abc");
    {
        const FailingMalloc failing;
        EXPECT_FALSE(ResizeBlock(*block, 5));
    }
    EXPECT_EQ(BytesOf(*block), "abc");
    FreeBlock(block);
}

}  // namespace
