// runtime/ThreadsOwn.h - an object for each thread, there until the last thing the thread does.
#ifndef VEXPA_RUNTIME_THREADSOWN_H_
#define VEXPA_RUNTIME_THREADSOWN_H_

#include <pthread.h>

#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>

namespace vexpa_runtime {

// A pthread key whose destructor is `end`; throws std::bad_alloc when the process has none left.
inline pthread_key_t NewThreadKey(void (*end)(void*)) {
    pthread_key_t key = 0;
    if (pthread_key_create(&key, end) != 0) throw std::bad_alloc();
    return key;
}

// The calling thread's T, made on its first call, which throws std::bad_alloc when the system cannot
// note the destructor. T is a type that nobody else asks for.
//
// Not a plain thread_local: that would be destroyed before older thread_local objects of a caller,
// and on the main thread before static objects, whose destructors may call us. The destructors of
// keys run after all of a thread's thread_local objects, and at the end of the process not at all.
// Should another key's destructor call us once more, T is made once more.
template <class T>
T& ThreadsOwn() {
    static_assert(std::is_nothrow_default_constructible_v<T>);
    constinit thread_local T* own = nullptr;
    if (own == nullptr) {
        alignas(T) constinit thread_local std::byte room[sizeof(T)] = {};
        static const pthread_key_t key = NewThreadKey([](void*) {
            std::destroy_at(own);
            own = nullptr;
        });
        if (pthread_setspecific(key, room) != 0) throw std::bad_alloc();
        own = ::new (room) T();
    }
    return *own;
}

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_THREADSOWN_H_
