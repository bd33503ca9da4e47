// tests/opc/ResolveTarget.h - from a part and a target to the part that is meant.
#ifndef VEXPA_TESTS_OPC_RESOLVETARGET_H_
#define VEXPA_TESTS_OPC_RESOLVETARGET_H_

#include <string>

#include "vexpa/opc/TargetResolution.h"

namespace vexpa_test {

// As the library does it, in the two steps that it takes.
inline std::u16string ResolveTarget(const std::u16string& source, const std::u16string& target) {
    return tarn::opc::ResolveTargetFrom(tarn::opc::SourceDirectory(source), target);
}

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_OPC_RESOLVETARGET_H_
