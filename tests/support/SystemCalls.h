// tests/support/SystemCalls.h - the operating system's calls on files, watched and led astray.
#ifndef VEXPA_TESTS_SUPPORT_SYSTEMCALLS_H_
#define VEXPA_TESTS_SUPPORT_SYSTEMCALLS_H_

#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

namespace vexpa_test {

// What the files of a test system look like: any file at all was last changed then.
struct FileTimes {
    std::timespec modified;
    std::timespec changed;
};

// One call that is about to be made.
struct SystemCall {
    std::string_view name;  // access, stat, open, fstat or pread
    std::size_t number;     // counted from 1
    std::size_t wanted;     // bytes, of a pread
};

// What comes of it: an error, or fewer bytes than there are (none: the end of the file).
struct SystemAnswer {
    int error = 0;
    std::size_t most = SIZE_MAX;
};

// While one lives, the calls of the code under test come through here (the linker wraps
// them, see CMakeLists.txt), those of this thread only. One at a time.
class SystemCalls {
public:
    // Asked before every call; may do to the files what it likes.
    using Hook = std::function<SystemAnswer(const SystemCall&)>;

    SystemCalls();
    explicit SystemCalls(Hook hook) : SystemCalls() { SetHook(std::move(hook)); }
    ~SystemCalls();
    SystemCalls(const SystemCalls&) = delete;
    SystemCalls& operator=(const SystemCalls&) = delete;

    // Calls are numbered, and counted, anew.
    void SetHook(Hook hook);

    // What the system says about time from now on, by any clock. Without it the truth.
    void SetClock(std::timespec now) { now_ = now; }
    void SetFileTimes(const FileTimes& times) { times_ = times; }

    std::size_t Count() const { return count_; }
    std::uint64_t BytesRead() const { return bytesRead_; }

    // For the wrapped calls.
    static SystemCalls* Active();
    SystemAnswer OnCall(std::string_view name, std::size_t wanted = 0);
    void OnRead(std::size_t bytes) { bytesRead_ += bytes; }
    void OnStatus(struct stat& status) const;
    const std::optional<std::timespec>& Clock() const { return now_; }

private:
    Hook hook_;
    bool inHook_ = false;
    std::size_t count_ = 0;
    std::uint64_t bytesRead_ = 0;
    std::optional<std::timespec> now_;
    std::optional<FileTimes> times_;
};

// How many files this process has open.
std::size_t OpenDescriptors();

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_SUPPORT_SYSTEMCALLS_H_
