// runtime/com/StorageEnumerator.h - goes through the elements of a storage.
#ifndef VEXPA_RUNTIME_COM_STORAGEENUMERATOR_H_
#define VEXPA_RUNTIME_COM_STORAGEENUMERATOR_H_

#include <cstdint>
#include <memory>
#include <utility>

#include "runtime/com/ComObject.h"
#include "runtime/com/StorageElements.h"

namespace vexpa_runtime {

// Stands on a list of its own, so it may outlive the storage.
class StorageEnumerator final : public ComObject<IEnumSTATSTG, IID_IEnumSTATSTG> {
public:
    explicit StorageEnumerator(std::shared_ptr<const StorageElements> elements,
                               std::size_t next = 0) noexcept
        : elements_(std::move(elements)), next_(next) {}

    HRESULT Next(std::uint32_t count, STATSTG* elements, std::uint32_t* fetched) override;
    HRESULT Skip(std::uint32_t count) override;
    HRESULT Reset() override;
    HRESULT Clone(IEnumSTATSTG** out) override;

private:
    std::size_t Left() const { return elements_->All().size() - next_; }

    std::shared_ptr<const StorageElements> elements_;
    std::size_t next_;
};

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_COM_STORAGEENUMERATOR_H_
