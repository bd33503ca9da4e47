#include <cstdlib>

#include "vexpa/platform/Runtime.h"

void* _XCoTaskMemAlloc(std::size_t size) {
    return std::malloc(size == 0 ? 1 : size);
}

void _XCoTaskMemFree(void* memory) {
    std::free(memory);
}
