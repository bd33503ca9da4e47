// tool/model/PartWalk.h - the parts that a package reaches.
#ifndef VEXPA_TOOL_MODEL_PARTWALK_H_
#define VEXPA_TOOL_MODEL_PARTWALK_H_

#include <vector>

#include "vexpa/opc/Package.h"

namespace vexpa_tool {

// [borrowed] The part that an internal relationship leads to; null when there is none.
tarn::opc::Part* TargetPart(tarn::opc::Package& package, const tarn::opc::Relationship& relationship);

// [borrowed] Each part once, breadth first, from the package's relationships on, in the
// order of the Ids.
std::vector<tarn::opc::Part*> ReachedParts(tarn::opc::Package& package);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_PARTWALK_H_
