#include "tool/run/StandardInput.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <string>
#include <system_error>

#include "tool/ExitStatus.h"
#include "tool/run/Interrupt.h"

namespace vexpa_tool {

namespace {

// A pipe without an end would take all memory.
constexpr std::uint64_t kMostBytes = std::uint64_t{4} << 30;

[[noreturn]] void ThrowSystemError() {
    const int error = errno;
    StopIfInterrupted();
    throw ToolError(kReadOrWriteError, "standard input: " + std::generic_category().message(error));
}

std::string PathOf(int descriptor) {
    return "/proc/self/fd/" + std::to_string(descriptor);
}

// Reading by path starts at the beginning, so what was read before must be nothing.
bool IsWholeFile() {
    struct stat status;
    return fstat(STDIN_FILENO, &status) == 0 && S_ISREG(status.st_mode) &&
           lseek(STDIN_FILENO, 0, SEEK_CUR) == 0 && access(PathOf(STDIN_FILENO).c_str(), R_OK) == 0;
}

void WriteAll(int memory, const char* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t written = write(memory, bytes, size);
        if (written < 0) ThrowSystemError();
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
}

void CopyTo(int memory) {
    std::array<char, 64 << 10> piece;
    for (std::uint64_t total = 0;;) {
        const ssize_t got = read(STDIN_FILENO, piece.data(), piece.size());
        if (got < 0) ThrowSystemError();
        if (got == 0) return;
        total += static_cast<std::uint64_t>(got);
        if (total > kMostBytes) throw ToolError(kReadOrWriteError, "standard input: more than 4 GiB");
        WriteAll(memory, piece.data(), static_cast<std::size_t>(got));
    }
}

// The descriptor stays open until the process ends: the path is good as long as it is.
std::string MakePath() {
    if (IsWholeFile()) return PathOf(STDIN_FILENO);
    const int memory = memfd_create("standard input", MFD_CLOEXEC);
    if (memory < 0) ThrowSystemError();
    CopyTo(memory);
    return PathOf(memory);
}

}  // namespace

InputFile StandardInput() {
    static const std::string path = MakePath();
    return {"-", path};
}

}  // namespace vexpa_tool
