// vexpa/base/Handle.h - the one-pointer owner that factories and look-ups return.
#ifndef VEXPA_BASE_HANDLE_H_
#define VEXPA_BASE_HANDLE_H_

#include <utility>

namespace tarn {

// Holds one object and gives it up with Release(). Empty: there is none, and no code says why.
//
// One pointer wide, with a destructor that is not trivial, hence returned through
// memory: a second member, or a trivial destructor, breaks compiled callers.
//
// Lifetime  The caller's. As long as the handle holds it, the object is there.
// Errors    None: nothing here is allocated.
// Threads   As the object it holds.
template <class T>
class Handle {
public:
    // Empty.
    Handle() noexcept = default;
    explicit Handle(T* object) noexcept : object_(object) {}  // takes over one hold

    // Moving leaves the other one empty.
    Handle(Handle&& other) noexcept : object_(other.Detach()) {}
    Handle& operator=(Handle&& other) noexcept {
        Handle(std::move(other)).Swap(*this);
        return *this;
    }

    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        if (object_ != nullptr) object_->Release();
    }

    // [borrowed] The object, or null.
    T* Get() const noexcept { return object_; }
    T* operator->() const noexcept { return object_; }  // [borrowed] the object; not when empty
    T& operator*() const noexcept { return *object_; }  // the same
    explicit operator bool() const noexcept { return object_ != nullptr; }  // whether there is one

    // [owned] The object, to be ended with Release(), or null; nothing is held any more.
    [[nodiscard]] T* Detach() noexcept { return std::exchange(object_, nullptr); }
    // Gives up what is held.
    void Reset() noexcept { Handle().Swap(*this); }
    // Exchanges what the two hold.
    void Swap(Handle& other) noexcept { std::swap(object_, other.object_); }

private:
    T* object_ = nullptr;
};

}  // namespace tarn

#endif  // VEXPA_BASE_HANDLE_H_
