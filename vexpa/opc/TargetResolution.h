// vexpa/opc/TargetResolution.h - what the attributes TargetMode and Target of a relationship mean.
#ifndef VEXPA_OPC_TARGETRESOLUTION_H_
#define VEXPA_OPC_TARGETRESOLUTION_H_

#include <string>

#include "vexpa/opc/TargetMode.h"

namespace tarn::opc {

// External for the word "External" in any case; internal for anything else, null included.
TargetMode ParseTargetMode(const char16_t* text);

// The directory that the targets of the part `source` are relative to, without the separator at its
// end; empty when it is too long to count.
std::u16string SourceDirectory(const std::u16string& source);

// The name of the part that `target` means in the relationships of a part in this directory. Neither
// the target mode nor a fragment or an escape in the target changes the steps. Time is linear.
std::u16string ResolveTargetFrom(const std::u16string& directory, const std::u16string& target);

}  // namespace tarn::opc

#endif  // VEXPA_OPC_TARGETRESOLUTION_H_
