// vexpa/base/Lifecycle.h - brackets all use of the library.
#ifndef VEXPA_BASE_LIFECYCLE_H_
#define VEXPA_BASE_LIFECYCLE_H_

#include "vexpa/base/Export.h"

// Every user in the process calls _vexpa_Initialize before anything else and balances it
// with _vexpa_Terminate. The first call starts the platform's XML service and fills the
// namespace maps; the last one empties them and stops the service. Both always answer 0.
//
// Errors   Filling the maps may run out of memory: that throws std::bad_alloc, and the call
//          counts as not made.
// Threads  Serialised by the callers, against each other and any other use of the library.
extern "C" {
VEXPA_API int _vexpa_Initialize();
VEXPA_API int _vexpa_Terminate();
}

#endif  // VEXPA_BASE_LIFECYCLE_H_
