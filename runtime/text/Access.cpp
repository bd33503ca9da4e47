#include <unistd.h>

#include <cerrno>
#include <new>

#include "runtime/Runtime.h"
#include "runtime/text/LocalText.h"

int _Xaccess(const char16_t* path, int mode) {
    if (path == nullptr) {
        errno = EINVAL;
        return -1;
    }
    try {
        return access(vexpa_runtime::ToLocal(path).c_str(), mode);
    } catch (const std::bad_alloc&) {
        errno = ENOMEM;
        return -1;
    }
}
