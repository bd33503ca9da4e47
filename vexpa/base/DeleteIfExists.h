// vexpa/base/DeleteIfExists.h - Release for objects that are not shared.
#ifndef VEXPA_BASE_DELETEIFEXISTS_H_
#define VEXPA_BASE_DELETEIFEXISTS_H_

#include "vexpa/base/Object.h"

namespace tarn {

// Ends `object` through its deleting destructor; does nothing for null.
//
// Kept: a compiled caller may reach Release through a slot with a null object, and a compiler
// deletes a test of `this` against null. So the pointer passes a barrier that hides where
// it came from before it is tested. (Slots.ReleaseOfANullObjectDoesNothing)
template <class T>
void DeleteIfExists(T* object) {
    asm volatile("" : "+r"(object));  // what callers promise about `this` ends here
    if (object != nullptr) delete static_cast<Object*>(object);
}

}  // namespace tarn

#endif  // VEXPA_BASE_DELETEIFEXISTS_H_
