#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

#include "vexpa/base/ComPtr.h"

namespace {

using tarn::ComPtr;

// Counts the references as a platform object does, and nothing else.
struct Counted {
    void Release() { --references; }

    int references = 1;
};

TEST(ComPtr, ReleasesItsReferenceOnce) {
    Counted object;
    {
        ComPtr<Counted> first(&object);
        const ComPtr<Counted> second(std::move(first));
        EXPECT_FALSE(first);
        EXPECT_TRUE(second);
    }
    EXPECT_EQ(object.references, 0);
}

TEST(ComPtr, GivesUpItsReferenceForAnother) {
    Counted old;
    Counted other;
    ComPtr<Counted> pointer(&old);
    ComPtr<Counted> source(&other);
    pointer = std::move(source);
    EXPECT_EQ(old.references, 0);
    EXPECT_EQ(other.references, 1);
    EXPECT_EQ(pointer.Get(), &other);
    EXPECT_FALSE(source);
}

TEST(ComPtr, AssignedToItselfKeepsItsReference) {
    Counted object;
    ComPtr<Counted> pointer(&object);
    ComPtr<Counted>& same = pointer;
    pointer = std::move(same);
    EXPECT_EQ(pointer.Get(), &object);
    EXPECT_EQ(object.references, 1);
}

TEST(ComPtr, ResetGivesUpItsReference) {
    Counted object;
    ComPtr<Counted> pointer(&object);
    pointer.Reset();
    EXPECT_FALSE(pointer);
    EXPECT_EQ(object.references, 0);
}

TEST(ComPtr, GivesUpItsReferenceBeforeACallStoresAnother) {
    Counted old;
    Counted other;
    ComPtr<Counted> pointer(&old);
    *pointer.Out() = &other;
    EXPECT_EQ(old.references, 0);
    EXPECT_EQ(pointer.Get(), &other);
}

TEST(ComPtr, SwapExchangesWhatTheTwoHold) {
    Counted one;
    Counted other;
    ComPtr<Counted> first(&one);
    ComPtr<Counted> second(&other);
    first.Swap(second);
    EXPECT_EQ(first.Get(), &other);
    EXPECT_EQ(second.Get(), &one);
    EXPECT_EQ(one.references + other.references, 2);
}

TEST(ComPtr, DetachedLeavesTheReferenceToTheCaller) {
    Counted object;
    {
        ComPtr<Counted> pointer(&object);
        EXPECT_EQ(pointer.Detach(), &object);
        EXPECT_FALSE(pointer);
    }
    EXPECT_EQ(object.references, 1);
}

TEST(ComPtr, LeadsToTheObject) {
    Counted object;
    const ComPtr<Counted> pointer(&object);
    EXPECT_EQ(&*pointer, &object);
    EXPECT_EQ(pointer->references, 1);
}

TEST(ComPtr, IsMovedAndNotCopied) {
    EXPECT_FALSE(std::is_copy_constructible_v<ComPtr<Counted>>);
    EXPECT_FALSE(std::is_copy_assignable_v<ComPtr<Counted>>);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<ComPtr<Counted>>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<ComPtr<Counted>>);
}

}  // namespace
