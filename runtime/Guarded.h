// runtime/Guarded.h - keeps exceptions behind the C interface.
#ifndef VEXPA_RUNTIME_GUARDED_H_
#define VEXPA_RUNTIME_GUARDED_H_

#include <new>

#include "vexpa/platform/Runtime.h"

namespace vexpa_runtime {

// The action's own result, or what an exception of it comes to.
template <class Action>
HRESULT Guarded(Action&& action) noexcept {
    try {
        return action();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_GUARDED_H_
