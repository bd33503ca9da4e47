#include "vexpa/base/Handle.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

#include "vexpa/base/DeleteIfExists.h"
#include "vexpa/base/ShallowCloneable.h"
#include "vexpa/base/ShallowCloneableImpl.h"

namespace {

using namespace tarn;

class Counted : public Object {
public:
    explicit Counted(int& alive) : alive_(alive) { ++alive_; }
    ~Counted() override { --alive_; }
    void Release() override { DeleteIfExists(this); }

private:
    int& alive_;
};

class Shareable : public Object, public ShallowCloneable {
public:
    explicit Shareable(int& alive) : alive_(alive) { ++alive_; }
    ~Shareable() override { --alive_; }

private:
    int& alive_;
};

class Shared : public ShallowCloneableImpl<Shareable> {
public:
    static Handle<Shareable> Make(int& alive) { return Handle<Shareable>(new Shared(alive)); }

private:
    explicit Shared(int& alive) : ShallowCloneableImpl(alive) {}
    ~Shared() override = default;
};

static_assert(sizeof(Handle<Object>) == sizeof(void*));
static_assert(!std::is_trivially_destructible_v<Handle<Object>>, "returned through memory");
static_assert(!std::is_copy_constructible_v<Handle<Object>>);

TEST(Handle, GivesItsObjectUpAtTheEnd) {
    int alive = 0;
    {
        const Handle<Object> handle(new Counted(alive));
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
}

TEST(Handle, MovesItsObject) {
    int alive = 0;
    Handle<Object> first(new Counted(alive));
    Object* object = first.Get();
    Handle<Object> second(std::move(first));
    EXPECT_EQ(second.Get(), object);
    first = std::move(second);
    EXPECT_EQ(first.Get(), object);
    EXPECT_EQ(alive, 1);
}

TEST(Handle, GivesItsOldObjectUpWhenItGetsAnother) {
    int alive = 0;
    Handle<Object> handle(new Counted(alive));
    handle = Handle<Object>(new Counted(alive));
    EXPECT_EQ(alive, 1);
    handle.Reset();
    EXPECT_EQ(alive, 0);
}

TEST(Handle, LetsGoOfADetachedObject) {
    int alive = 0;
    Handle<Object> handle(new Counted(alive));
    Object* object = handle.Detach();
    EXPECT_FALSE(handle);
    EXPECT_EQ(alive, 1);
    object->Release();
    EXPECT_EQ(alive, 0);
}

TEST(ShallowClone, SharesTheObjectUntilTheSecondRelease) {
    int alive = 0;
    Handle<Shareable> first = Shared::Make(alive);
    Handle<Object> second = first->ShallowClone();
    EXPECT_EQ(second.Get(), first.Get());
    first.Reset();
    EXPECT_EQ(alive, 1);
    second.Reset();
    EXPECT_EQ(alive, 0);
}

TEST(DeleteIfExists, DoesNothingForNull) { DeleteIfExists(nullptr); }

}  // namespace
