#include "tests/support/ScratchFile.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace vexpa_test {

namespace {

// In memory where that can be had: some tests write thousands of files, each of which a disk
// would be waited for.
std::string MakeFolder() {
    const std::filesystem::path usual = std::filesystem::temp_directory_path();
    for (const std::filesystem::path& parent : {std::filesystem::path("/dev/shm"), usual}) {
        std::string folder = (parent / "vexpa-test-XXXXXX").string();
        if (mkdtemp(folder.data()) != nullptr) return folder;
    }
    throw std::runtime_error("no scratch folder");
}

}  // namespace

ScratchFile::ScratchFile(std::string_view bytes, const std::string& name)
    : folder_(MakeFolder()), path_(folder_ + "/" + name) {
    Write(bytes);
}

ScratchFile::~ScratchFile() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

void ScratchFile::Write(std::string_view bytes) const {
    std::ofstream file(path_, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) throw std::runtime_error("cannot write " + path_);
}

void ScratchFile::Remove() const {
    std::filesystem::remove(path_);
}

std::u16string ScratchFile::Path16() const {
    return Utf16(path_);
}

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::u16string Utf16(std::string_view utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end())).u16string();
}

}  // namespace vexpa_test
