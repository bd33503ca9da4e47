// tests/fault/ChangingFile.h - how a file becomes another one, and what its times tell of it.
#ifndef VEXPA_TESTS_FAULT_CHANGINGFILE_H_
#define VEXPA_TESTS_FAULT_CHANGINGFILE_H_

#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/ScratchFile.h"
#include "tests/support/SystemCalls.h"

namespace vexpa_test {

inline void Rewrite(const ScratchFile& file, const std::string& bytes) {
    file.Write(bytes);
}

// As a program does that writes a file in place and cuts what is left at the end.
inline void Overwrite(const ScratchFile& file, const std::string& bytes) {
    std::fstream(file.Path(), std::ios::binary | std::ios::in | std::ios::out) << bytes;
    std::filesystem::resize_file(file.Path(), bytes.size());
}

inline void Replace(const ScratchFile& file, const std::string& bytes) {
    const std::string other = file.Path() + ".other";
    std::ofstream(other, std::ios::binary) << bytes;
    std::filesystem::rename(other, file.Path());
}

using Way = void (*)(const ScratchFile&, const std::string&);
inline constexpr Way kWays[] = {Rewrite, Overwrite, Replace};

// Which of the file's times tell of it: the modification can be dated back, and nothing shows
// when both changes fall within one tick of the file system's clock.
enum class Tell { kBoth, kChangeOnly, kNothing };
inline constexpr Tell kTells[] = {Tell::kBoth, Tell::kChangeOnly, Tell::kNothing};

// The times before and after, in a system whose clock ticks every other second. No two files
// have a time in common, or what is known of one could be taken for the other's.
class Times {
public:
    explicit Times(Tell tell) : tell_(tell), was_{NextStart(), 0}, is_(was_) {
        is_.tv_sec += tell == Tell::kNothing ? 1 : 1'000;
    }

    void Before(SystemCalls& system) const {
        system.SetFileTimes({was_, was_});
        system.SetClock(is_);
    }
    void After(SystemCalls& system) const {
        system.SetFileTimes({tell_ == Tell::kBoth ? is_ : was_, tell_ == Tell::kNothing ? was_ : is_});
    }
    void Later(SystemCalls& system) const { system.SetClock({is_.tv_sec + 1'000, 0}); }

private:
    static std::time_t NextStart() {
        static std::time_t start = 1'000'000'000;
        return start += 10'000;
    }

    Tell tell_;
    std::timespec was_;
    std::timespec is_;
};

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_FAULT_CHANGINGFILE_H_
