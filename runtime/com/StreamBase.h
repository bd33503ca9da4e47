// runtime/com/StreamBase.h - what every stream here has in common.
#ifndef VEXPA_RUNTIME_COM_STREAMBASE_H_
#define VEXPA_RUNTIME_COM_STREAMBASE_H_

#include "runtime/com/ComObject.h"

namespace vexpa_runtime {

// The seek position and all that follows from it. Nothing is buffered, hence nothing to
// commit or to take back; regions cannot be locked.
class StreamBase : public ComObject<IStream, IID_ISequentialStream, IID_IStream> {
public:
    HRESULT Seek(std::int64_t move, std::uint32_t origin, std::uint64_t* position) final;
    HRESULT CopyTo(IStream* destination, std::uint64_t size, std::uint64_t* read,
                   std::uint64_t* written) final;
    HRESULT Commit(std::uint32_t) final { return S_OK; }
    HRESULT Revert() final { return S_OK; }
    HRESULT LockRegion(std::uint64_t, std::uint64_t, std::uint32_t) final {
        return STG_E_INVALIDFUNCTION;
    }
    HRESULT UnlockRegion(std::uint64_t, std::uint64_t, std::uint32_t) final {
        return STG_E_INVALIDFUNCTION;
    }

protected:
    explicit StreamBase(std::uint64_t position) noexcept : position_(position) {}

    virtual std::uint64_t Size() const noexcept = 0;

    // How many of `wanted` bytes lie between the seek position and the end.
    std::uint64_t Available(std::uint64_t wanted) const noexcept;

    std::uint64_t position_;  // at most INT64_MAX
};

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_COM_STREAMBASE_H_
