// The beginning of another runtime.

#include "vexpa/platform/Runtime.h"

int _XMLInitialize(std::uint32_t) {
    return 0;
}
