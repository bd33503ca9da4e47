// tool/check/CompoundLook.h - what a compound file in place of a package is.
#ifndef VEXPA_TOOL_CHECK_COMPOUNDLOOK_H_
#define VEXPA_TOOL_CHECK_COMPOUNDLOOK_H_

#include <string>
#include <vector>

#include "tool/check/Finding.h"
#include "tool/container/Container.h"

namespace vexpa_tool {

struct CompoundLook {
    FindingId id = FindingId::OtherCompoundFile;
    std::string what;                     // "with EncryptedPackage (password-protected document)"
    std::vector<std::string> names = {};  // below the root, where they are all that is known
};

// By the streams below the root, as the platform's storage lists them.
CompoundLook LookAtCompoundFile(const Container& file);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_COMPOUNDLOOK_H_
