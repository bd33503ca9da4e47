// runtime/RandomKey.h - the secret that keeps hashes out of the reach of hostile files.
#ifndef VEXPA_RUNTIME_RANDOMKEY_H_
#define VEXPA_RUNTIME_RANDOMKEY_H_

#include <cstdint>

namespace vexpa_runtime {

struct RandomKey {
    std::uint64_t k0;
    std::uint64_t k1;
};

// Drawn once for the process: names that collide cannot be prepared, so looking up is never slow.
// To ask the system each time would cost more than a small document.
const RandomKey& ProcessKey();

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_RANDOMKEY_H_
