// tool/check/ArchiveWriter.h - writes a small archive of stored entries.
#ifndef VEXPA_TOOL_CHECK_ARCHIVEWRITER_H_
#define VEXPA_TOOL_CHECK_ARCHIVEWRITER_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace vexpa_tool {

// Below 4 GiB, names below 64 KiB.
class ArchiveWriter {
public:
    void Add(std::string_view name, std::string_view content);
    // An entry that cannot be extracted.
    void AddDamaged(std::string_view name);

    std::size_t Size() const noexcept { return body_.size() + directory_.size(); }
    std::string Finish();

private:
    void Add(std::string_view name, std::string_view content, std::uint32_t crc);

    std::string body_;
    std::string directory_;
    std::uint64_t count_ = 0;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_ARCHIVEWRITER_H_
