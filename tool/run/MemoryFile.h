// tool/run/MemoryFile.h - a file in memory, for what only reads by path.
#ifndef VEXPA_TOOL_RUN_MEMORYFILE_H_
#define VEXPA_TOOL_RUN_MEMORYFILE_H_

#include <string>
#include <string_view>

namespace vexpa_tool {

// Gone with the object. Each throws a ToolError when there is no memory for it.
class MemoryFile {
public:
    // Programs that this one starts see it under the same path when it is `inherited`.
    explicit MemoryFile(bool inherited = false);
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    void Append(std::string_view bytes);
    std::string Path() const;

private:
    int descriptor_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_RUN_MEMORYFILE_H_
