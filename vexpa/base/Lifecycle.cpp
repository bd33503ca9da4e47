#include "vexpa/base/Lifecycle.h"

#include <cstdint>

#include "vexpa/platform/Runtime.h"
#include "vexpa/xmlfx/RegisterNamespaces.h"
#include "vexpa/xmlfx/XmlMapper.h"

namespace {

// Kept: nothing guards the count. One _vexpa_Terminate too many wraps it, and the next
// _vexpa_Initialize only brings it back to zero. (Lifecycle.TerminateWithoutInitializeWrapsTheCount)
constinit std::uint32_t initCount = 0;

}  // namespace

using tarn::xmlfx::RegisterNamespaces;
using tarn::xmlfx::XmlMapper;

int _vexpa_Initialize() {
    if (initCount == 0) {
        _XMLInitialize(0);
        RegisterNamespaces();
    }
    ++initCount;
    return 0;
}

int _vexpa_Terminate() {
    if (--initCount != 0) return 0;
    XmlMapper::GetNSMap().clear();
    XmlMapper::GetNSMapInverse().clear();
    _XMLTerminate();
    return 0;
}
