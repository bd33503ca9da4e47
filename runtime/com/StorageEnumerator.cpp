#include "runtime/com/StorageEnumerator.h"

#include <algorithm>
#include <new>
#include <utility>

namespace vexpa_runtime {

HRESULT StorageEnumerator::Next(std::uint32_t count, STATSTG* elements, std::uint32_t* fetched) {
    if (fetched != nullptr) *fetched = 0;
    if (elements == nullptr && count != 0) return E_INVALIDARG;
    if (fetched == nullptr && count != 1) return E_INVALIDARG;

    const auto stored = static_cast<std::uint32_t>(std::min<std::size_t>(count, Left()));
    for (std::uint32_t i = 0; i < stored; ++i) {
        const StorageElement& element = elements_->All()[next_ + i];
        const HRESULT copied = CopyStat(element.stat, element.name, STATFLAG_DEFAULT, &elements[i]);
        if (copied < 0) {
            // All or nothing: the caller of a failed call has no names to free.
            while (i-- > 0) _XCoTaskMemFree(std::exchange(elements[i].pwcsName, nullptr));
            return copied;
        }
    }
    next_ += stored;
    if (fetched != nullptr) *fetched = stored;
    return stored == count ? S_OK : S_FALSE;
}

HRESULT StorageEnumerator::Skip(std::uint32_t count) {
    const std::size_t skipped = std::min<std::size_t>(count, Left());
    next_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
}

HRESULT StorageEnumerator::Reset() {
    next_ = 0;
    return S_OK;
}

HRESULT StorageEnumerator::Clone(IEnumSTATSTG** out) {
    if (out == nullptr) return E_INVALIDARG;
    *out = new (std::nothrow) StorageEnumerator(elements_, next_);
    return *out != nullptr ? S_OK : E_OUTOFMEMORY;
}

}  // namespace vexpa_runtime
