// runtime/Uninterrupted.h - system calls that a signal does not end.
#ifndef VEXPA_RUNTIME_UNINTERRUPTED_H_
#define VEXPA_RUNTIME_UNINTERRUPTED_H_

#include <cerrno>

namespace vexpa_runtime {

// What `call` answers, made again for as long as signals interrupt it. On file systems that
// programs serve (FUSE) or that a network brings, this can happen to any call on a file.
template <class Call>
auto Uninterrupted(Call call) noexcept {
    for (;;) {
        const auto result = call();
        if (result >= 0 || errno != EINTR) return result;
    }
}

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_UNINTERRUPTED_H_
