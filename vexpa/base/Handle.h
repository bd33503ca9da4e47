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
// Threads  As the object it holds.
template <class T>
class Handle {
public:
    Handle() noexcept = default;
    explicit Handle(T* object) noexcept : object_(object) {}  // takes over one hold
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

    T* Get() const noexcept { return object_; }  // [borrowed]
    T* operator->() const noexcept { return object_; }
    T& operator*() const noexcept { return *object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }

    [[nodiscard]] T* Detach() noexcept { return std::exchange(object_, nullptr); }  // [owned]
    void Reset() noexcept { Handle().Swap(*this); }
    void Swap(Handle& other) noexcept { std::swap(object_, other.object_); }

private:
    T* object_ = nullptr;
};

}  // namespace tarn

#endif  // VEXPA_BASE_HANDLE_H_
