#include "tests/support/OldFiles.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <atomic>
#include <ctime>

namespace {

std::atomic<std::time_t> age = 0;

int Aged(int result, struct stat* status) {
    if (result != 0) return result;
    status->st_mtim.tv_sec -= age;
    status->st_ctim.tv_sec -= age;
    return result;
}

}  // namespace

// In place of the C library's, also for shared libraries, which find what is visible.
#pragma GCC visibility push(default)
extern "C" {

int stat(const char* path, struct stat* status) noexcept {
    return Aged(fstatat(AT_FDCWD, path, status, 0), status);
}

int fstat(int file, struct stat* status) noexcept {
    return Aged(fstatat(file, "", status, AT_EMPTY_PATH), status);
}

}  // extern "C"
#pragma GCC visibility pop

namespace vexpa_test {

OldFiles::OldFiles() {
    age = 3'600;
}

OldFiles::~OldFiles() {
    age = 0;
}

}  // namespace vexpa_test
