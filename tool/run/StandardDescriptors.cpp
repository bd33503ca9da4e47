#include "tool/run/StandardDescriptors.h"

#include <fcntl.h>
#include <unistd.h>

namespace vexpa_tool {

void OccupyClosedDescriptors() {
    // The lowest free number is the one that is given out.
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        if (fcntl(descriptor, F_GETFD) < 0) open("/", O_PATH);
    }
}

}  // namespace vexpa_tool
