// One extraction by name: from the path of an archive to the bytes of an entry, and nothing
// kept by the caller between calls.
//
//     extraction_bench [BENCHMARK OPTIONS] LABEL FILE ENTRY ...
//
// There is no library of the Info-ZIP engine to link with; the peers are libraries that do the
// same in the same steps: open, find, inflate and check, close.

#include <benchmark/benchmark.h>
#include <minizip/unzip.h>
#include <zip.h>

#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "vexpa/platform/Runtime.h"

namespace {

// Each answers the number of bytes, or -1 for an absent entry.
using Extract = long(const std::string& file, const std::string& entry);

long ExtractHere(const std::string& file, const std::string& entry) {
    UzpOpts options{};
    UzpCB callbacks{};
    callbacks.structlen = sizeof callbacks;
    UzpBuffer result{};
    const int found = UzpUnzipToMemory(const_cast<char*>(file.c_str()),
                                       const_cast<char*>(entry.c_str()), &options, &callbacks, &result);
    std::free(result.strptr);
    return found != 0 ? static_cast<long>(result.strlength) : -1;
}

struct DiscardZip {
    void operator()(zip_t* zip) const { zip_discard(zip); }
};
struct CloseZipFile {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};

long ExtractWithLibzip(const std::string& file, const std::string& entry) {
    const std::unique_ptr<zip_t, DiscardZip> zip(zip_open(file.c_str(), ZIP_RDONLY, nullptr));
    if (!zip) throw std::runtime_error("cannot open " + file);
    zip_stat_t status;
    if (zip_stat(zip.get(), entry.c_str(), 0, &status) != 0) return -1;
    const std::unique_ptr<zip_file_t, CloseZipFile> in(zip_fopen_index(zip.get(), status.index, 0));
    const auto bytes = std::make_unique_for_overwrite<char[]>(status.size);
    return static_cast<long>(zip_fread(in.get(), bytes.get(), status.size));
}

struct CloseUnz {
    void operator()(unzFile zip) const { unzClose(zip); }
};

long ExtractWithMinizip(const std::string& file, const std::string& entry) {
    const std::unique_ptr<std::remove_pointer_t<unzFile>, CloseUnz> zip(unzOpen64(file.c_str()));
    if (!zip) throw std::runtime_error("cannot open " + file);
    constexpr int kCaseCounts = 1;
    if (unzLocateFile(zip.get(), entry.c_str(), kCaseCounts) != UNZ_OK) return -1;
    unz_file_info64 info;
    unzGetCurrentFileInfo64(zip.get(), &info, nullptr, 0, nullptr, 0, nullptr, 0);
    unzOpenCurrentFile(zip.get());
    const auto bytes = std::make_unique_for_overwrite<char[]>(info.uncompressed_size);
    const int got =
        unzReadCurrentFile(zip.get(), bytes.get(), static_cast<unsigned>(info.uncompressed_size));
    if (unzCloseCurrentFile(zip.get()) != UNZ_OK) return -1;
    return got;
}

void Register(const std::string& name, Extract* extract, const std::string& file,
              const std::string& entry) {
    // All must agree with each other, or one of them measures something else.
    if (extract(file, entry) != ExtractHere(file, entry)) {
        throw std::runtime_error(name + ": not the same bytes");
    }
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        for (auto _ : state) benchmark::DoNotOptimize(extract(file, entry));
    });
}

void RegisterAll(const std::string& label, const std::string& file, const std::string& entry) {
    struct Contender {
        const char* name;
        Extract* extract;
    };
    for (const auto& [name, extract] : {Contender{"vexpa", ExtractHere},
                                        {"libzip", ExtractWithLibzip},
                                        {"minizip", ExtractWithMinizip}}) {
        Register("hit/" + label + "/" + name, extract, file, entry);
        Register("absent/" + label + "/" + name, extract, file, entry + ".absent");
    }
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (argc % 3 != 1) return 1;
    for (int i = 1; i + 2 < argc; i += 3) RegisterAll(argv[i], argv[i + 1], argv[i + 2]);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
