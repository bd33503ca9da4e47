#include "tool/text/Output.h"

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

#include "tool/ExitStatus.h"

namespace vexpa_tool {

namespace {

[[noreturn]] void ThrowWriteError() {
    throw ToolError(kReadOrWriteError, "standard output: " + std::generic_category().message(errno));
}

}  // namespace

void Write(const char* bytes, std::size_t size) {
    if (std::fwrite(bytes, 1, size, stdout) != size) ThrowWriteError();
}

void Write(std::string_view text) {
    Write(text.data(), text.size());
}

void WriteLine(std::string_view line) {
    Write(line);
    Write("\n", 1);
}

void FlushOutput() {
    if (std::fflush(stdout) != 0) ThrowWriteError();
}

}  // namespace vexpa_tool
