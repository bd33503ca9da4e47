// Loaded before the library: says on standard error when the vocabulary is filled, and fills it.
#include <dlfcn.h>

#include <cstdio>

#include "vexpa/base/Lifecycle.h"

int _vexpa_Initialize() {
    std::fputs("the vocabulary is filled\n", stderr);
    using Initialize = int (*)();
    return reinterpret_cast<Initialize>(dlsym(RTLD_NEXT, "_vexpa_Initialize"))();
}
