#include "tests/support/SystemCalls.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <filesystem>
#include <iterator>
#include <utility>

namespace vexpa_test {

namespace {
thread_local SystemCalls* active = nullptr;
}

SystemCalls::SystemCalls() {
    active = this;
}

SystemCalls::~SystemCalls() {
    active = nullptr;
}

void SystemCalls::SetHook(Hook hook) {
    hook_ = std::move(hook);
    count_ = 0;
    bytesRead_ = 0;
}

// What a hook itself calls is the truth.
SystemCalls* SystemCalls::Active() {
    return active != nullptr && !active->inHook_ ? active : nullptr;
}

SystemAnswer SystemCalls::OnCall(std::string_view name, std::size_t wanted) {
    ++count_;
    if (!hook_) return {};
    inHook_ = true;
    const SystemAnswer answer = hook_({name, count_, wanted});
    inHook_ = false;
    return answer;
}

void SystemCalls::OnStatus(struct stat& status) const {
    if (!times_) return;
    status.st_mtim = times_->modified;
    status.st_ctim = times_->changed;
}

std::size_t OpenDescriptors() {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

}  // namespace vexpa_test

namespace {

using vexpa_test::SystemAnswer;
using vexpa_test::SystemCalls;

// Makes the call unless it fails.
template <class Call>
int Watched(const char* name, Call call) {
    SystemCalls* system = SystemCalls::Active();
    const SystemAnswer answer = system == nullptr ? SystemAnswer{} : system->OnCall(name);
    if (answer.error == 0) return call();
    errno = answer.error;
    return -1;
}

int CorrectTimes(int result, struct stat* status) {
    if (result == 0 && SystemCalls::Active() != nullptr) SystemCalls::Active()->OnStatus(*status);
    return result;
}

}  // namespace

extern "C" {

int __real_access(const char* path, int mode);
int __real_stat(const char* path, struct stat* status);
int __real_fstat(int descriptor, struct stat* status);
int __real_open(const char* path, int flags, ...);
ssize_t __real_pread(int descriptor, void* destination, std::size_t size, off_t position);
int __real_clock_gettime(clockid_t clock, std::timespec* now);

int __wrap_access(const char* path, int mode) {
    return Watched("access", [&] { return __real_access(path, mode); });
}

int __wrap_stat(const char* path, struct stat* status) {
    return CorrectTimes(Watched("stat", [&] { return __real_stat(path, status); }), status);
}

int __wrap_fstat(int descriptor, struct stat* status) {
    return CorrectTimes(Watched("fstat", [&] { return __real_fstat(descriptor, status); }), status);
}

int __wrap_open(const char* path, int flags, ...) {
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return Watched("open", [&] { return __real_open(path, flags, mode); });
}

ssize_t __wrap_pread(int descriptor, void* destination, std::size_t size, off_t position) {
    SystemCalls* system = SystemCalls::Active();
    if (system == nullptr) return __real_pread(descriptor, destination, size, position);
    const SystemAnswer answer = system->OnCall("pread", size);
    if (answer.error != 0) {
        errno = answer.error;
        return -1;
    }
    const ssize_t got = __real_pread(descriptor, destination, std::min(size, answer.most), position);
    if (got > 0) system->OnRead(static_cast<std::size_t>(got));
    return got;
}

int __wrap_clock_gettime(clockid_t clock, std::timespec* now) {
    SystemCalls* system = SystemCalls::Active();
    if (system == nullptr || !system->Clock()) return __real_clock_gettime(clock, now);
    *now = *system->Clock();
    return 0;
}

}  // extern "C"
