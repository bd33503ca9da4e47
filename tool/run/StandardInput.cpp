#include "tool/run/StandardInput.h"

#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <string>
#include <system_error>

#include "tool/ExitStatus.h"
#include "tool/run/Interrupt.h"
#include "tool/run/MemoryFile.h"

namespace vexpa_tool {

namespace {

// A pipe without an end would take all memory.
constexpr std::uint64_t kMostBytes = std::uint64_t{4} << 30;

constexpr const char* kDescriptor = "/proc/self/fd/0";

[[noreturn]] void ThrowSystemError() {
    const int error = errno;
    StopIfInterrupted();
    throw ToolError(kReadOrWriteError, "standard input: " + std::generic_category().message(error));
}

// Reading by path starts at the beginning, so what was read before must be nothing.
bool IsWholeFile() {
    struct stat status;
    return fstat(STDIN_FILENO, &status) == 0 && S_ISREG(status.st_mode) &&
           lseek(STDIN_FILENO, 0, SEEK_CUR) == 0 && access(kDescriptor, R_OK) == 0;
}

// Unlike a read, this ends when there is an interrupt.
void WaitForInput() {
    pollfd input = {STDIN_FILENO, POLLIN, 0};
    if (poll(&input, 1, -1) < 0) ThrowSystemError();
}

void CopyTo(MemoryFile& memory) {
    std::array<char, 64 << 10> piece;
    for (std::uint64_t total = 0;;) {
        WaitForInput();
        const ssize_t got = read(STDIN_FILENO, piece.data(), piece.size());
        if (got < 0) ThrowSystemError();
        if (got == 0) {
            // An end that comes with an interrupt is where whoever wrote was stopped by it, too.
            StopIfInterrupted();
            return;
        }
        total += static_cast<std::uint64_t>(got);
        if (total > kMostBytes) throw ToolError(kReadOrWriteError, "standard input: more than 4 GiB");
        memory.Append({piece.data(), static_cast<std::size_t>(got)});
    }
}

std::string MakePath() {
    if (IsWholeFile()) return kDescriptor;
    static MemoryFile memory;  // its path has to be good as long as anyone may open it
    CopyTo(memory);
    return memory.Path();
}

}  // namespace

InputFile StandardInput() {
    static const std::string path = MakePath();
    return {"-", path};
}

}  // namespace vexpa_tool
