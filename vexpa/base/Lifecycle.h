// vexpa/base/Lifecycle.h - brackets all use of the library.
#ifndef VEXPA_BASE_LIFECYCLE_H_
#define VEXPA_BASE_LIFECYCLE_H_

#include "vexpa/base/Export.h"
#include "vexpa/base/Noncopyable.h"

extern "C" {

// Every user in the process calls this before anything else, and balances it with
// _vexpa_Terminate. The first call starts the platform's XML service and fills the namespace
// maps; further ones only count. Always 0.
//
// Errors   Filling the maps may run out of memory: that throws std::bad_alloc, and the call
//          counts as not made.
// Threads  Serialised by the callers, against all other use of the library.
VEXPA_API int _vexpa_Initialize();

// Ends what one _vexpa_Initialize began. The last call empties the namespace maps and stops
// the XML service. Always 0. One call too many wraps the count, and the next
// _vexpa_Initialize only brings it back.
//
// Errors   None.
// Threads  As _vexpa_Initialize.
VEXPA_API int _vexpa_Terminate();

}  // extern "C"

namespace tarn {

// The pair of calls as an object: the library is in use for as long as one lives. What the
// calls return is always 0, so nothing of it is kept.
//
// Lifetime  The caller's: made before anything else of the library, as a local of main() for
//           instance, and ended after all that came from it. There may be several at a time.
// Errors    Making one may throw std::bad_alloc; then there is nothing to end.
// Threads   As _vexpa_Initialize: made before other threads use the library, and ended after they
//           have stopped.
class Library : Noncopyable {
public:
    // Calls _vexpa_Initialize.
    Library() { _vexpa_Initialize(); }
    // Calls _vexpa_Terminate.
    ~Library() { _vexpa_Terminate(); }
};

}  // namespace tarn

#endif  // VEXPA_BASE_LIFECYCLE_H_
