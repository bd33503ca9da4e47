// vexpa/base/ComPtr.h - one reference on a platform object.
#ifndef VEXPA_BASE_COMPTR_H_
#define VEXPA_BASE_COMPTR_H_

#include <utility>

namespace tarn {

// Gives its reference up with Release() when it ends. Used inside; callers may use it too.
template <class T>
class ComPtr {
public:
    ComPtr() noexcept = default;
    explicit ComPtr(T* object) noexcept : object_(object) {}  // takes over one reference
    ComPtr(ComPtr&& other) noexcept : object_(other.Detach()) {}
    ComPtr& operator=(ComPtr&& other) noexcept {
        ComPtr old(std::exchange(object_, other.Detach()));
        return *this;
    }
    ComPtr(const ComPtr&) = delete;
    ComPtr& operator=(const ComPtr&) = delete;
    ~ComPtr() {
        if (object_ != nullptr) object_->Release();
    }

    // Where a call stores its result: gives up what was held before.
    T** Out() noexcept {
        ComPtr old(Detach());
        return &object_;
    }
    T* Get() const noexcept { return object_; }
    T* operator->() const noexcept { return object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }
    [[nodiscard]] T* Detach() noexcept { return std::exchange(object_, nullptr); }

private:
    T* object_ = nullptr;
};

}  // namespace tarn

#endif  // VEXPA_BASE_COMPTR_H_
