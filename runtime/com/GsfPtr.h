// runtime/com/GsfPtr.h - one reference on an object of the compound file library.
#ifndef VEXPA_RUNTIME_COM_GSFPTR_H_
#define VEXPA_RUNTIME_COM_GSFPTR_H_

#include <glib-object.h>

#include <memory>

namespace vexpa_runtime {

struct GsfUnref {
    void operator()(gpointer object) const noexcept { g_object_unref(object); }
};

template <class T>
using GsfPtr = std::unique_ptr<T, GsfUnref>;

// One more reference on what somebody else holds.
template <class T>
GsfPtr<T> ShareGsf(T* object) noexcept {
    g_object_ref(object);
    return GsfPtr<T>(object);
}

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_COM_GSFPTR_H_
