// tests/worst/FullWalk.h - visits everything in a package, and keeps nothing of it.
#ifndef VEXPA_TESTS_WORST_FULLWALK_H_
#define VEXPA_TESTS_WORST_FULLWALK_H_

#include <cstddef>
#include <cstdint>

#include "vexpa/opc/Package.h"

namespace vexpa_test {

struct Walked {
    std::size_t parts = 0;
    std::size_t relationships = 0;
    std::size_t elements = 0;  // of compound files
    std::uint64_t bytes = 0;   // read from streams
    std::uint64_t largestPart = 0;
};

enum class WalkStorages { kNo, kYes };

// Follows the relationships from the package on; reads each part that it comes to as a stream,
// and as a compound file with everything in it.
Walked WalkAll(tarn::opc::Package& package, WalkStorages storages);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_WORST_FULLWALK_H_
