// The main of a fuzz target without a fuzzer: runs it over the files and folders named, so
// that seeds and past finds are tested with any compiler.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/FuzzTarget.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesIn(const fs::path& path) {
    if (!fs::is_directory(path)) return {path};
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(path)) {
        if (entry.is_regular_file()) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool RunFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return false;
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    // On the heap and of the exact size, where a sanitizer sees a read past its end.
    const std::unique_ptr<std::uint8_t[]> exact(new std::uint8_t[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), exact.get());
    LLVMFuzzerTestOneInput(exact.get(), bytes.size());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    LLVMFuzzerInitialize(&argc, &argv);
    int runs = 0;
    for (int i = 1; i < argc; ++i) {
        for (const fs::path& file : FilesIn(argv[i])) {
            std::fprintf(stderr, "%s\n", file.c_str());
            if (!RunFile(file)) {
                std::fprintf(stderr, "cannot be read\n");
                return 2;
            }
            ++runs;
        }
    }
    std::fprintf(stderr, "%d inputs\n", runs);
    return runs == 0 ? 2 : 0;
}
