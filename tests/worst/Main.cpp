// Measures what the worst packages of a megabyte cost. No test: seconds are for people to look at.
// Prints the table of docs/robustness.md: processor seconds to open the package, to walk it with
// every stream, and to walk it again with every stream and storage; and the peak of all that.
//
//     worst_shapes              all shapes
//     worst_shapes NAME         one of them
//     worst_shapes --keep DIR [NAME]   leaves the files in a folder, for a profiler
//     worst_shapes --measure FILE

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <ctime>
#include <fstream>
#include <string>

#include "tests/support/ScratchFile.h"
#include "tests/worst/FullWalk.h"
#include "tests/worst/Shapes.h"
#include "vexpa/base/Lifecycle.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

double Seconds() {
    std::timespec now;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

long PeakMegabytes() {
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

// Opens, then walks; once more with compound files, as that extracts every part again.
void Measure(const char* path) {
    _vexpa_Initialize();
    const std::u16string path16 = Utf16(path);
    const double start = Seconds();
    Handle<opc::Package> package = opc::Package::Open(path16.c_str());
    const double opened = Seconds();
    Walked walked;
    if (package) walked = WalkAll(*package, WalkStorages::kNo);
    const double streams = Seconds();
    package.Reset();
    package = opc::Package::Open(path16.c_str());
    const double again = Seconds();
    Walked all;
    if (package) all = WalkAll(*package, WalkStorages::kYes);
    const double storages = Seconds();
    std::printf("%s | %.3f | %.3f | %.3f | %ld | %zu | %zu | %zu | %.0f |\n", package ? "yes" : "no",
                opened - start, streams - opened, storages - again, PeakMegabytes(), walked.parts,
                walked.relationships, all.elements, static_cast<double>(walked.bytes) / (1 << 20));
    package.Reset();
    _vexpa_Terminate();
}

std::string WithCommas(long long number) {
    std::string text = std::to_string(number);
    for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, 1, ',');
    return text;
}

// In a process of its own, so that neither making the file nor another one counts.
void Run(const char* self, const Shape& shape, const std::string& folder) {
    const std::string path = folder + "/" + shape.name + ".zip";
    const pid_t maker = fork();
    if (maker == 0) {
        std::ofstream(path, std::ios::binary) << shape.bytes();
        _exit(0);
    }
    waitpid(maker, nullptr, 0);
    const auto size = std::ifstream(path, std::ios::binary | std::ios::ate).tellg();
    std::printf("| %s | %s | ", shape.name, WithCommas(static_cast<long long>(size)).c_str());
    std::fflush(stdout);
    const pid_t reader = fork();
    if (reader == 0) {
        execl(self, self, "--measure", path.c_str(), nullptr);
        _exit(1);
    }
    int status = 0;
    waitpid(reader, &status, 0);
    if (status != 0) std::printf("ended with status %d |\n", status);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--measure") == 0) {
        Measure(argv[2]);
        return 0;
    }
    const bool keep = argc >= 3 && std::strcmp(argv[1], "--keep") == 0;
    const char* only = keep ? argv[3] : argv[1];  // null at the end
    const ScratchFile scratch("");
    const std::string own = scratch.Path().substr(0, scratch.Path().rfind('/'));
    std::puts(
        "| shape | bytes | opens | open s | streams s | and storages s | peak MB | parts "
        "| relationships | elements | unpacked MB |\n"
        "|---|---|---|---|---|---|---|---|---|---|---|");
    for (const std::vector<Shape>& shapes : {DenseShapes(), BombShapes()}) {
        for (const Shape& shape : shapes) {
            if (only != nullptr && std::strcmp(only, shape.name) != 0) continue;
            Run(argv[0], shape, keep ? argv[2] : own);
        }
    }
    return 0;
}
