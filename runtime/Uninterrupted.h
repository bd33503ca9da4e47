// runtime/Uninterrupted.h - system calls that a signal does not end.
#ifndef VEXPA_RUNTIME_UNINTERRUPTED_H_
#define VEXPA_RUNTIME_UNINTERRUPTED_H_

#include <cerrno>

namespace vexpa_runtime {

// The result of `call`, made again for as long as signals interrupt it. On FUSE and network file
// systems that can happen to any call on a file.
template <class Call>
auto Uninterrupted(Call call) noexcept {
    for (;;) {
        const auto result = call();
        if (result >= 0 || errno != EINTR) return result;
    }
}

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_UNINTERRUPTED_H_
