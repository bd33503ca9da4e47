// tests/xmlfx/SetWithoutRtti.h - an attribute set from a library that knows no RTTI.
#ifndef VEXPA_TESTS_XMLFX_SETWITHOUTRTTI_H_
#define VEXPA_TESTS_XMLFX_SETWITHOUTRTTI_H_

#include <cstdint>

#include "vexpa/base/Export.h"
#include "vexpa/xmlfx/XmlRoAttr.h"

namespace vexpa_test {

// [owned] A set whose one attribute has this token and, as its value, the set itself.
VEXPA_API tarn::xmlfx::XmlRoAttr* NewSetWithoutRtti(std::uint32_t token);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_XMLFX_SETWITHOUTRTTI_H_
