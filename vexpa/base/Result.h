// vexpa/base/Result.h - the result codes of operations with an out argument.
#ifndef VEXPA_BASE_RESULT_H_
#define VEXPA_BASE_RESULT_H_

#include "vexpa/platform/Com.h"

namespace tarn {

// HRESULT, S_OK, E_OUTOFMEMORY, E_INVALIDARG, E_FAIL and E_ACCESSDENIED are the platform's.

// Whether a result is one of a failure.
[[nodiscard]] constexpr bool Failed(HRESULT result) noexcept {
    return result < 0;
}
// Whether it is not.
[[nodiscard]] constexpr bool Succeeded(HRESULT result) noexcept {
    return result >= 0;
}

}  // namespace tarn

#endif  // VEXPA_BASE_RESULT_H_
