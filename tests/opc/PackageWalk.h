// tests/opc/PackageWalk.h - opens a package and visits everything in it.
#ifndef VEXPA_TESTS_OPC_PACKAGEWALK_H_
#define VEXPA_TESTS_OPC_PACKAGEWALK_H_

#include <cstddef>
#include <string>

#include "vexpa/opc/Package.h"

namespace vexpa_test {

// Reads every part that is reached from the package, as a stream and as a storage; how many
// parts there were.
std::size_t Walk(tarn::opc::Package& package);

// The same with a package that is opened for it; 0 when it does not open.
std::size_t OpenAndWalk(const std::u16string& path);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_OPC_PACKAGEWALK_H_
