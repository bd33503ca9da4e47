// vexpa/base/ShallowCloneableImpl.h - sharing by a reference count inside the object.
#ifndef VEXPA_BASE_SHALLOWCLONEABLEIMPL_H_
#define VEXPA_BASE_SHALLOWCLONEABLEIMPL_H_

#include <cstdint>

#include "vexpa/base/Handle.h"
#include "vexpa/base/Object.h"

namespace tarn {

// Implements ShallowClone and Release for an interface T by a count that its factory
// starts at 1.
//
// Threads  The count is a plain integer: whoever shares an object between threads
//          serialises ShallowClone and Release on it.
template <class T>
class ShallowCloneableImpl : public T {
public:
    Handle<Object> ShallowClone() override {
        ++referenceCount_;
        return Handle<Object>(this);
    }

    void Release() override {
        if (DropReference()) delete this;
    }

protected:
    using T::T;
    ~ShallowCloneableImpl() override = default;

    // Whether that was the last one; for a class that ends its objects in a way of its own.
    bool DropReference() noexcept { return --referenceCount_ == 0; }

private:
    std::uint32_t referenceCount_ = 1;
};

}  // namespace tarn

#endif  // VEXPA_BASE_SHALLOWCLONEABLEIMPL_H_
