// tool/container/SpelledName.h - a name with the NULs that it has.
#ifndef VEXPA_TOOL_CONTAINER_SPELLEDNAME_H_
#define VEXPA_TOOL_CONTAINER_SPELLEDNAME_H_

#include <string>

#include "tool/container/Container.h"

namespace vexpa_tool {

// The entry's name as the library lists it, save that a NUL, for which that has U+FFFD, is one.
std::string SpelledName(const Container& container, const ContainerEntry& entry);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CONTAINER_SPELLEDNAME_H_
