// runtime/com/ComObject.h - references and interface queries of a COM object.
#ifndef VEXPA_RUNTIME_COM_COMOBJECT_H_
#define VEXPA_RUNTIME_COM_COMOBJECT_H_

#include "vexpa/platform/Runtime.h"

namespace vexpa_runtime {

// An object that begins with one reference, ends with its last, and answers to IUnknown
// and the interfaces in `ids`.
//
// The count is a plain integer, as an object belongs to one thread at a time. What several
// objects share (a block under a stream and its clones) is counted by std::shared_ptr,
// which stays right when those objects live on different threads.
template <class Interface, GUID... ids>
class ComObject : public Interface {
public:
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT QueryInterface(const GUID& iid, void** out) final {
        if (out == nullptr) return E_INVALIDARG;
        *out = nullptr;
        if (iid != IID_IUnknown && (... && (iid != ids))) return E_NOINTERFACE;
        AddRef();
        *out = static_cast<Interface*>(this);
        return S_OK;
    }

    std::uint32_t AddRef() final { return ++references_; }

    std::uint32_t Release() final {
        const std::uint32_t left = --references_;
        if (left == 0) delete this;
        return left;
    }

protected:
    ComObject() noexcept = default;
    virtual ~ComObject() = default;

private:
    std::uint32_t references_ = 1;
};

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_COM_COMOBJECT_H_
