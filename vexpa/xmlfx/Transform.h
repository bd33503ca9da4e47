// vexpa/xmlfx/Transform.h - attribute sets from what a parser reports.
#ifndef VEXPA_XMLFX_TRANSFORM_H_
#define VEXPA_XMLFX_TRANSFORM_H_

#include "vexpa/base/Export.h"
#include "vexpa/base/Handle.h"
#include "vexpa/xmlfx/Attributes.h"
#include "vexpa/xmlfx/XmlRoAttr.h"

namespace tarn::xmlfx {

// [shared] The set of an element whose attributes the parser lists in `attrs`. An attribute of the
// vocabulary becomes its token and its value, in the parser's order; any other is dropped.
//
//   attrs       may be null; without attributes the answer is the shared empty set, and
//               `value` is ignored
//   defaultUri  the namespace of the attributes that have none; null is the empty one
//   value       the value string of the new set; null is the empty one
//
// Errors   Out of memory and what `attrs` throws pass through; nothing is left behind.
// Threads  Serialised by the callers against any other use of the namespace maps: a URI
//          that is not in XmlMapper::GetNSMap() is added there, without names.
[[nodiscard]] VEXPA_API Handle<XmlRoAttr> Transform(const Attributes* attrs,
                                                    const unsigned short* defaultUri,
                                                    const unsigned short* value);

// [shared] A set with one attribute: `token` with a value that has this value string. For a
// null `value` the shared empty set.
//
// Errors   Out of memory passes through; nothing is left behind.
// Threads  Any thread at any time.
[[nodiscard]] VEXPA_API Handle<XmlRoAttr> Transform(const unsigned short* value, unsigned int token);

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_TRANSFORM_H_
