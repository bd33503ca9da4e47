#include <clocale>

#include "fuzz/FuzzTarget.h"
#include "vexpa/base/Lifecycle.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    std::setlocale(LC_ALL, "C.UTF-8");
    return _vexpa_Initialize();
}
