// examples/Library.h - the library, started for as long as an object lives.
#ifndef VEXPA_EXAMPLES_LIBRARY_H_
#define VEXPA_EXAMPLES_LIBRARY_H_

#include "vexpa/base/Lifecycle.h"
#include "vexpa/base/Noncopyable.h"

// Made in main(), before any thread is started, and ended after all of them.
class Library : tarn::Noncopyable {
public:
    Library() { _vexpa_Initialize(); }
    ~Library() { _vexpa_Terminate(); }
};

#endif  // VEXPA_EXAMPLES_LIBRARY_H_
