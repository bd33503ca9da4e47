// vexpa/base/ShallowCloneable.h - sharing an object by one more handle to it.
#ifndef VEXPA_BASE_SHALLOWCLONEABLE_H_
#define VEXPA_BASE_SHALLOWCLONEABLE_H_

#include "vexpa/base/Handle.h"
#include "vexpa/base/Object.h"

namespace tarn {

// A second base, with a virtual table of its own, for interfaces whose objects may be shared.
//
// Lifetime  A shared object ends with the last handle to it.
// Errors    An empty handle: the class cannot be shared.
// Threads   Sharing and releasing the same object is serialised by the callers: the count of
//           its handles is a plain integer.
class ShallowCloneable {
public:
    // [shared] A new handle to the same object: nothing is copied. Empty when the class cannot be
    // shared. The handle's Object is the primary base of the interface that was asked.
    virtual Handle<Object> ShallowClone() = 0;

    ShallowCloneable(const ShallowCloneable&) = delete;
    ShallowCloneable& operator=(const ShallowCloneable&) = delete;

protected:
    ShallowCloneable() noexcept = default;
    ~ShallowCloneable() = default;
};

}  // namespace tarn

#endif  // VEXPA_BASE_SHALLOWCLONEABLE_H_
