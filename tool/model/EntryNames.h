// tool/model/EntryNames.h - what an archive holds, by name.
#ifndef VEXPA_TOOL_MODEL_ENTRYNAMES_H_
#define VEXPA_TOOL_MODEL_ENTRYNAMES_H_

#include <string>
#include <vector>

#include "tool/InputFile.h"

namespace vexpa_tool {

// In the order of the directory; empty for what is no sound archive.
std::vector<std::u16string> EntryNames(const InputFile& file);

// Those of them that can name a part, once each: no folders.
std::vector<std::u16string> PartNames(const InputFile& file);

// Whether the entry holds relationships, or the content types: what a package is made of
// besides parts.
bool IsPackageEntry(const std::u16string& name);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_ENTRYNAMES_H_
