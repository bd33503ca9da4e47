// vexpa/opc/TargetMode.h - whether a relationship points into its package or out of it.
#ifndef VEXPA_OPC_TARGETMODE_H_
#define VEXPA_OPC_TARGETMODE_H_

#include <cstdint>

namespace tarn::opc {

// What a relationship's target is: the attribute TargetMode of ECMA-376 Part 2. The values are part
// of the binary interface.
enum TargetMode : std::uint32_t {
    TargetModeInternal = 0,  // the target is a part of the same package
    TargetModeExternal = 1,  // the target is a resource elsewhere
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_TARGETMODE_H_
