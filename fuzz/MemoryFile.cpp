#include "fuzz/MemoryFile.h"

#include <sys/mman.h>
#include <unistd.h>

#include "fuzz/FuzzTarget.h"

namespace vexpa_fuzz {

MemoryFile::MemoryFile(std::string_view bytes, std::size_t before)
    : descriptor_(memfd_create("vexpa-fuzz", MFD_CLOEXEC)),
      path_("/proc/self/fd/" + std::to_string(descriptor_)) {
    Require(descriptor_ >= 0, "a file in memory can be made");
    Require(lseek(descriptor_, static_cast<off_t>(before), SEEK_SET) >= 0, "a file can begin late");
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor_, bytes.data(), bytes.size());
        Require(written > 0, "a file in memory can be written");
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

MemoryFile::~MemoryFile() {
    close(descriptor_);
}

}  // namespace vexpa_fuzz
