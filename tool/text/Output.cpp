#include "tool/text/Output.h"

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

#include "tool/ExitStatus.h"

namespace vexpa_tool {

namespace {

[[noreturn]] void ThrowWriteError() {
    throw FatalError(kReadOrWriteError, "standard output: " + std::generic_category().message(errno));
}

class StandardStream final : public Output {
public:
    void Write(const char* bytes, std::size_t size) override {
        if (size == 0) return;  // nothing has no address
        if (std::fwrite(bytes, 1, size, stdout) != size) ThrowWriteError();
    }
};

void WriteError(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stderr);
}

}  // namespace

void Output::WriteLine(std::string_view line) {
    Write(line);
    Write("\n", 1);
}

Output& StandardOutput() {
    static StandardStream output;
    return output;
}

void FlushOutput() {
    if (std::fflush(stdout) != 0) ThrowWriteError();
}

void WriteNote(std::string_view line) {
    WriteError(std::string(line) + "\n");
}

void Complain(std::string_view what) {
    WriteNote("vexpa: " + std::string(what));
}

}  // namespace vexpa_tool
