// vexpa/base/ComPtr.h - one reference on a platform object.
#ifndef VEXPA_BASE_COMPTR_H_
#define VEXPA_BASE_COMPTR_H_

#include <utility>

namespace tarn {

// Holds one reference on a stream, storage or other platform object, and gives it up with
// Release() when it ends. Used inside; callers may use it too.
//
// Lifetime  The caller's. As long as it holds the object, the object is there, also after the
//           package that it came from is gone.
// Errors    None: nothing here is allocated.
// Threads   As the object it holds.
template <class T>
class ComPtr {
public:
    // Empty.
    ComPtr() noexcept = default;
    explicit ComPtr(T* object) noexcept : object_(object) {}  // takes over one reference

    // Moving leaves the other one empty.
    ComPtr(ComPtr&& other) noexcept : object_(other.Detach()) {}
    ComPtr& operator=(ComPtr&& other) noexcept {
        ComPtr(std::move(other)).Swap(*this);
        return *this;
    }

    ComPtr(const ComPtr&) = delete;
    ComPtr& operator=(const ComPtr&) = delete;
    ~ComPtr() {
        if (object_ != nullptr) object_->Release();
    }

    // [borrowed] Where a call stores its result, with the reference that comes with it: gives up
    // what was held before.
    T** Out() noexcept {
        Reset();
        return &object_;
    }

    // [borrowed] The object, or null.
    T* Get() const noexcept { return object_; }
    T* operator->() const noexcept { return object_; }  // [borrowed] the object; not when empty
    T& operator*() const noexcept { return *object_; }  // the same
    explicit operator bool() const noexcept { return object_ != nullptr; }  // whether there is one

    // [owned] The object with its reference, or null; nothing is held any more.
    [[nodiscard]] T* Detach() noexcept { return std::exchange(object_, nullptr); }
    // Gives up what is held.
    void Reset() noexcept { ComPtr().Swap(*this); }
    // Exchanges what the two hold.
    void Swap(ComPtr& other) noexcept { std::swap(object_, other.object_); }

private:
    T* object_ = nullptr;
};

}  // namespace tarn

#endif  // VEXPA_BASE_COMPTR_H_
