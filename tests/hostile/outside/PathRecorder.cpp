#include "tests/hostile/outside/PathRecorder.h"

#include <dlfcn.h>

#include <atomic>
#include <cstdarg>
#include <cstdint>
#include <cstdio>

namespace vexpa_test {

namespace {
std::atomic<PathRecorder*> active = nullptr;
}

PathRecorder::PathRecorder() {
    active = this;
}

PathRecorder::~PathRecorder() {
    active = nullptr;
}

void PathRecorder::Note(const char* path) {
    // Noting a name may itself need the system, which is nothing to note.
    PathRecorder* recorder = active.exchange(nullptr);
    if (recorder == nullptr) return;
    recorder->paths_.insert(path == nullptr ? "(null)" : path);
    active = recorder;
}

}  // namespace vexpa_test

namespace {

using vexpa_test::PathRecorder;

// The function that would have been called.
template <class Function>
Function* Next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

// Only a call that may make a file passes its mode.
unsigned ModeOf(int flags, std::va_list more) {
    constexpr int kCreate = 0100;
    return (flags & kCreate) != 0 ? va_arg(more, unsigned) : 0;
}

}  // namespace

// Most of the headers that declare these functions are not included, as they define some of them
// inline. What only passes through is a pointer to nothing in particular.
#define VEXPA_SHOWN extern "C" __attribute__((visibility("default")))

#define VEXPA_RECORDED(result, name, noted, parameters, arguments) \
    VEXPA_SHOWN result name parameters {                           \
        PathRecorder::Note(noted);                                 \
        static const auto next = Next<result parameters>(#name);   \
        return next arguments;                                     \
    }

#define VEXPA_RECORDED_OPEN(name)                                         \
    VEXPA_SHOWN int name(const char* path, int flags, ...) {              \
        std::va_list more;                                                \
        va_start(more, flags);                                            \
        const unsigned mode = ModeOf(flags, more);                        \
        va_end(more);                                                     \
        PathRecorder::Note(path);                                         \
        static const auto next = Next<int(const char*, int, ...)>(#name); \
        return next(path, flags, mode);                                   \
    }

#define VEXPA_RECORDED_OPENAT(name)                                            \
    VEXPA_SHOWN int name(int at, const char* path, int flags, ...) {           \
        std::va_list more;                                                     \
        va_start(more, flags);                                                 \
        const unsigned mode = ModeOf(flags, more);                             \
        va_end(more);                                                          \
        PathRecorder::Note(path);                                              \
        static const auto next = Next<int(int, const char*, int, ...)>(#name); \
        return next(at, path, flags, mode);                                    \
    }

#define VEXPA_RECORDED_STATUS(name) \
    VEXPA_RECORDED(int, name, path, (const char* path, void* status), (path, status))

#define VEXPA_RECORDED_STATUS_AT(name)                                                   \
    VEXPA_RECORDED(int, name, path, (int at, const char* path, void* status, int flags), \
                   (at, path, status, flags))

VEXPA_RECORDED_OPEN(open)
VEXPA_RECORDED_OPEN(open64)
VEXPA_RECORDED_OPENAT(openat)
VEXPA_RECORDED_OPENAT(openat64)
// What the others are in code that is compiled with checks.
VEXPA_RECORDED(int, __open_2, path, (const char* path, int flags), (path, flags))
VEXPA_RECORDED(int, __open64_2, path, (const char* path, int flags), (path, flags))
VEXPA_RECORDED(int, __openat_2, path, (int at, const char* path, int flags), (at, path, flags))
VEXPA_RECORDED(int, __openat64_2, path, (int at, const char* path, int flags), (at, path, flags))

VEXPA_RECORDED(std::FILE*, fopen, path, (const char* path, const char* mode), (path, mode))
VEXPA_RECORDED(std::FILE*, fopen64, path, (const char* path, const char* mode), (path, mode))
VEXPA_RECORDED(int, creat, path, (const char* path, unsigned mode), (path, mode))
VEXPA_RECORDED(void*, opendir, path, (const char* path), (path))

VEXPA_RECORDED_STATUS(stat)
VEXPA_RECORDED_STATUS(stat64)
VEXPA_RECORDED_STATUS(lstat)
VEXPA_RECORDED_STATUS(lstat64)
VEXPA_RECORDED_STATUS_AT(fstatat)
VEXPA_RECORDED_STATUS_AT(fstatat64)
VEXPA_RECORDED(int, statx, path, (int at, const char* path, int flags, unsigned mask, void* status),
               (at, path, flags, mask, status))
VEXPA_RECORDED(int, access, path, (const char* path, int mode), (path, mode))
VEXPA_RECORDED(int, faccessat, path, (int at, const char* path, int mode, int flags),
               (at, path, mode, flags))
VEXPA_RECORDED(std::intptr_t, readlink, path, (const char* path, char* out, std::size_t size),
               (path, out, size))

VEXPA_RECORDED(int, mkdir, path, (const char* path, unsigned mode), (path, mode))
VEXPA_RECORDED(int, unlink, path, (const char* path), (path))
VEXPA_RECORDED(int, execve, path, (const char* path, char* const* argv, char* const* environment),
               (path, argv, environment))
VEXPA_RECORDED(int, getaddrinfo, host,
               (const char* host, const char* service, const void* hints, void** out),
               (host, service, hints, out))
