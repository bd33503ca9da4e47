// fuzz/MemoryFile.h - a file that exists in memory only.
#ifndef VEXPA_FUZZ_MEMORYFILE_H_
#define VEXPA_FUZZ_MEMORYFILE_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace vexpa_fuzz {

// The archive calls take paths; this one has a path, yet no run ever touches a disk.
class MemoryFile {
public:
    // The bytes, behind as many others that take no room.
    explicit MemoryFile(std::string_view bytes, std::size_t before = 0);
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    const std::string& Path() const { return path_; }
    std::u16string Path16() const { return {path_.begin(), path_.end()}; }

private:
    int descriptor_;
    std::string path_;
};

}  // namespace vexpa_fuzz

#endif  // VEXPA_FUZZ_MEMORYFILE_H_
