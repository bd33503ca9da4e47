// runtime/ThreadsOwn.h - an object for each thread, there until the last thing the thread does.
#ifndef VEXPA_RUNTIME_THREADSOWN_H_
#define VEXPA_RUNTIME_THREADSOWN_H_

#include <pthread.h>

#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>

namespace vexpa_runtime {

// A key for pointers of threads that `end` is called with; throws std::bad_alloc when there is none.
inline pthread_key_t NewThreadKey(void (*end)(void*)) {
    pthread_key_t key = 0;
    if (pthread_key_create(&key, end) != 0) throw std::bad_alloc();
    return key;
}

// The calling thread's T, made by its first call; T is a type that nobody else asks for. That
// call throws std::bad_alloc when the system has no room to write down how T ends.
//
// A thread_local object of ours would be gone when those of a caller that were made before it
// end, and on the main thread when static objects do; and their destructors may call us. So
// it is a key that ends T: a thread comes to its keys after all of its thread_local objects, and
// the end of the process does not come to them at all. Should another key's end call us once
// more, T is made once more.
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
