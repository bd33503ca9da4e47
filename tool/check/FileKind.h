// tool/check/FileKind.h - what a file that is no zip archive looks like.
#ifndef VEXPA_TOOL_CHECK_FILEKIND_H_
#define VEXPA_TOOL_CHECK_FILEKIND_H_

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vexpa_tool {

inline constexpr std::size_t kFileKindBytes = 512;

struct FileLook {
    const char* kind = nullptr;  // "a PDF document"; null when the first bytes say nothing known
    const char* hint = nullptr;  // what to do about it
};

// The name helps with the small files that editors lay beside an open document.
FileLook LookAtFile(std::string_view firstBytes, std::string_view fileName, std::uint64_t fileSize);

bool LooksLikeCompoundFile(std::string_view firstBytes);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_FILEKIND_H_
