#include "tool/run/MemoryFile.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "tool/ExitStatus.h"

namespace vexpa_tool {

namespace {

[[noreturn]] void ThrowSystemError() {
    throw ToolError(kReadOrWriteError, "a file in memory: " + std::generic_category().message(errno));
}

}  // namespace

MemoryFile::MemoryFile(bool inherited)
    : descriptor_(memfd_create("vexpa", inherited ? 0U : MFD_CLOEXEC)) {
    if (descriptor_ < 0) ThrowSystemError();
}

MemoryFile::~MemoryFile() {
    close(descriptor_);
}

void MemoryFile::Append(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor_, bytes.data(), bytes.size());
        if (written < 0) ThrowSystemError();
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

std::string MemoryFile::Path() const {
    return "/proc/self/fd/" + std::to_string(descriptor_);
}

}  // namespace vexpa_tool
