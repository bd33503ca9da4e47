// runtime/NeverDestroyed.h - a static object that nothing destroys.
#ifndef VEXPA_RUNTIME_NEVERDESTROYED_H_
#define VEXPA_RUNTIME_NEVERDESTROYED_H_

#include <cstddef>
#include <new>
#include <utility>

namespace vexpa_runtime {

// While a process ends, callers still come: from static destructors of their own, which run after
// ours, and from threads that nobody waits for. What is kept for the process has to be there
// for them, and the system takes back its memory.
template <class T>
class NeverDestroyed {
public:
    template <class... Arguments>
    explicit NeverDestroyed(Arguments&&... arguments)
        : object_(*::new (room_) T(std::forward<Arguments>(arguments)...)) {}
    NeverDestroyed(const NeverDestroyed&) = delete;
    NeverDestroyed& operator=(const NeverDestroyed&) = delete;

    T& Get() noexcept { return object_; }

private:
    alignas(T) std::byte room_[sizeof(T)];
    T& object_;
};

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_NEVERDESTROYED_H_
