// tool/check/Rfc3986.h - where a target leads by the general rules for URI references.
#ifndef VEXPA_TOOL_CHECK_RFC3986_H_
#define VEXPA_TOOL_CHECK_RFC3986_H_

#include <string>
#include <string_view>

namespace vexpa_tool {

// The path that the reference `target` (no scheme, no authority) means from the part `source`,
// with a leading '/'; query and fragment are left out (RFC 3986, 5.2). `source` has a leading '/'
// or none; it is empty for the package.
std::string ResolveByRfc(std::string_view source, std::string_view target);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_RFC3986_H_
