#include <unistd.h>

#include <cerrno>
#include <new>
#include <string>

#include "runtime/Uninterrupted.h"
#include "runtime/text/LocalText.h"
#include "vexpa/platform/Runtime.h"

int _Xaccess(const char16_t* path, int mode) {
    if (path == nullptr) {
        errno = EINVAL;
        return -1;
    }
    try {
        const std::string local = vexpa_runtime::ToLocal(path);
        return vexpa_runtime::Uninterrupted([&] { return access(local.c_str(), mode); });
    } catch (const std::bad_alloc&) {
        errno = ENOMEM;
        return -1;
    }
}
