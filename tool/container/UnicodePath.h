// tool/container/UnicodePath.h - the second name that an entry may have.
#ifndef VEXPA_TOOL_CONTAINER_UNICODEPATH_H_
#define VEXPA_TOOL_CONTAINER_UNICODEPATH_H_

#include <optional>
#include <string>

#include "tool/container/Container.h"

namespace vexpa_tool {

// The name in the entry's Info-ZIP Unicode Path field (0x7075), when the field stands for the
// name in the header (its CRC says so) and is valid UTF-8. The library leaves it aside.
std::optional<std::string> UnicodePath(const Container& container, const ContainerEntry& entry);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CONTAINER_UNICODEPATH_H_
