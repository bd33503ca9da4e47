#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>
#include <utility>

#include "vexpa/base/DeleteIfExists.h"
#include "vexpa/base/Handle.h"
#include "vexpa/base/Noncopyable.h"
#include "vexpa/base/Object.h"
#include "vexpa/base/ShallowCloneable.h"
#include "vexpa/base/ShallowCloneableImpl.h"

namespace {

using tarn::DeleteIfExists;
using tarn::Handle;
using tarn::Noncopyable;
using tarn::Object;
using tarn::ShallowCloneable;
using tarn::ShallowCloneableImpl;

class Shape : public Object, public ShallowCloneable {
protected:
    Shape() = default;
};

class Shared final : public ShallowCloneableImpl<Shape> {
public:
    explicit Shared(int& ended) : ended_(ended) {}

private:
    ~Shared() override { ++ended_; }

    int& ended_;
};

class Single final : public Object, public Noncopyable {
public:
    explicit Single(int& ended) : ended_(ended) {}
    ~Single() override { ++ended_; }
    // Called for no object, too, as compiled callers do.
    __attribute__((no_sanitize("null"))) void Release() override { DeleteIfExists(this); }

private:
    int& ended_;
};

TEST(Sharing, AnObjectBeginsWithOneReference) {
    int ended = 0;
    Object* object = new Shared(ended);
    object->Release();
    EXPECT_EQ(ended, 1);
}

TEST(Sharing, AClonedObjectEndsAtTheSecondRelease) {
    int ended = 0;
    auto* object = new Shared(ended);
    Object* clone = object->ShallowClone().Detach();
    EXPECT_EQ(clone, object);
    object->Release();
    EXPECT_EQ(ended, 0);
    clone->Release();
    EXPECT_EQ(ended, 1);
}

TEST(Sharing, ReleaseOfANullObjectDoesNothing) {
    int ended = 0;
    Object* object = new Single(ended);
    using Release = void (*)(Object*);
    const Release* slots = nullptr;
    std::memcpy(&slots, static_cast<const void*>(object), sizeof slots);
    slots[2](nullptr);
    EXPECT_EQ(ended, 0);
    object->Release();
    EXPECT_EQ(ended, 1);
}

TEST(Handle, ReleasesItsObjectOnce) {
    int ended = 0;
    {
        Handle<Object> first(new Shared(ended));
        Handle<Object> second(std::move(first));
        EXPECT_FALSE(first);
        EXPECT_TRUE(second);
    }
    EXPECT_EQ(ended, 1);
}

TEST(Handle, GivesUpItsObjectForAnother) {
    int ended = 0;
    Handle<Object> handle(new Shared(ended));
    handle = Handle<Object>(new Shared(ended));
    EXPECT_EQ(ended, 1);
    handle.Reset();
    EXPECT_EQ(ended, 2);
}

TEST(Handle, AssignedToItselfKeepsItsObject) {
    int ended = 0;
    Handle<Object> handle(new Shared(ended));
    Handle<Object>& same = handle;
    handle = std::move(same);
    EXPECT_TRUE(handle);
    EXPECT_EQ(ended, 0);
}

TEST(Handle, DetachedLeavesTheObjectToTheCaller) {
    int ended = 0;
    Object* object = nullptr;
    {
        Handle<Object> handle(new Shared(ended));
        object = handle.Detach();
        EXPECT_EQ(handle.Get(), nullptr);
    }
    EXPECT_EQ(ended, 0);
    object->Release();
}

TEST(RootClasses, ForbidCopies) {
    EXPECT_FALSE(std::is_copy_constructible_v<Single>);
    EXPECT_FALSE(std::is_copy_assignable_v<Single>);
    EXPECT_FALSE(std::is_copy_constructible_v<Handle<Object>>);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<Handle<Object>>);
}

TEST(RootClasses, AddNoDataOfTheirOwn) {
    EXPECT_EQ(sizeof(Object), sizeof(void*));
    EXPECT_EQ(sizeof(ShallowCloneable), sizeof(void*));
    EXPECT_TRUE(std::is_empty_v<Noncopyable>);
}

TEST(Handle, IsOnePointerThatIsReturnedThroughMemory) {
    EXPECT_EQ(sizeof(Handle<Object>), sizeof(void*));
    EXPECT_FALSE(std::is_trivially_destructible_v<Handle<Object>>);
}

}  // namespace
