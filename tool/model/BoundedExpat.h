// tool/model/BoundedExpat.h - Expat parsers that cannot take all memory.
#ifndef VEXPA_TOOL_MODEL_BOUNDEDEXPAT_H_
#define VEXPA_TOOL_MODEL_BOUNDEDEXPAT_H_

#include <expat.h>

#include <cstddef>
#include <memory>
#include <type_traits>

namespace vexpa_tool {

struct FreeExpat {
    void operator()(XML_Parser parser) const noexcept { XML_ParserFree(parser); }
};

using ExpatHandle = std::unique_ptr<std::remove_pointer_t<XML_Parser>, FreeExpat>;

// A parser keeps every name it has met and some hundred bytes for each open element, so a part of
// a few bytes for each could take forty times its size. Documents need some megabytes.
inline constexpr std::size_t kMostParserMemory = 256 << 20;

// What a document that asks for more is told of with.
inline constexpr const char* kTooMuchMemory = "too many names or open elements to go on";

// The separator stands between namespace and local name; null leaves names as written. Beyond the
// limit the parser ends with XML_ERROR_NO_MEMORY.
//
// Threads  A parser belongs to the thread that made it, and all of a thread share its limit.
ExpatHandle MakeExpat(const char* namespaceSeparator);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_BOUNDEDEXPAT_H_
