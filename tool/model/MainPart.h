// tool/model/MainPart.h - where a package begins.
#ifndef VEXPA_TOOL_MODEL_MAINPART_H_
#define VEXPA_TOOL_MODEL_MAINPART_H_

#include "vexpa/opc/Package.h"

namespace vexpa_tool {

// [borrowed] The officeDocument relationship, by the library's look-up; of Strict documents and of
// other formats, in which it finds none, the relationship that stands in its place. Null without
// any.
tarn::opc::Relationship* MainRelationship(tarn::opc::Package& package);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_MAINPART_H_
