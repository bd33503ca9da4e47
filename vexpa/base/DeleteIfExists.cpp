#include "vexpa/base/DeleteIfExists.h"

#include "vexpa/base/Object.h"

namespace tarn {

void DeleteIfExists(Object* object) {
    asm volatile("" : "+r"(object));  // what callers promise about `this` ends here
    delete object;                    // which itself passes over null
}

}  // namespace tarn
