// tool/check/FileKind.h - what a file that is no zip archive looks like.
#ifndef VEXPA_TOOL_CHECK_FILEKIND_H_
#define VEXPA_TOOL_CHECK_FILEKIND_H_

#include <string>
#include <string_view>

namespace vexpa_tool {

inline constexpr std::size_t kFileKindBytes = 512;

// "a PDF document", "a web page"; empty when its first bytes say nothing known. The name helps
// with the small files that editors lay beside an open document.
std::string LooksLike(std::string_view firstBytes, std::string_view fileName, std::uint64_t fileSize);

bool LooksLikeCompoundFile(std::string_view firstBytes);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_FILEKIND_H_
