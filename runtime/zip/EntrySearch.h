// runtime/zip/EntrySearch.h - finds the entry that a caller's request means.
#ifndef VEXPA_RUNTIME_ZIP_ENTRYSEARCH_H_
#define VEXPA_RUNTIME_ZIP_ENTRYSEARCH_H_

#include <cstddef>
#include <string_view>

#include "runtime/zip/Directory.h"

namespace vexpa_runtime::zip {

// The entry named `request` (local 8-bit text), else the first in directory order that it
// matches as a pattern, else null. But a request with every special character escaped means the
// name without the escapes and no other: "\[Content_Types\].xml" is not for an entry spelled so.
//
// Only a request that truly is a pattern is tried on the names one by one (see PatternSearch); a
// plain name, or one whose special characters are all escaped, is looked up. *namesTried, when
// asked for, is the number of names that a pattern was tried on.
const Entry* FindEntry(const Directory& directory, std::string_view request,
                       std::size_t* namesTried = nullptr);

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_ENTRYSEARCH_H_
