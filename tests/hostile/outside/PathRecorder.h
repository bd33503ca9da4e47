// tests/hostile/outside/PathRecorder.h - every name that a program hands to the system.
#ifndef VEXPA_TESTS_HOSTILE_OUTSIDE_PATHRECORDER_H_
#define VEXPA_TESTS_HOSTILE_OUTSIDE_PATHRECORDER_H_

#include <set>
#include <string>

namespace vexpa_test {

// While one lives, it notes the names of files that are opened or asked about and the hosts that
// are looked up, by this program and by every shared library in it. The C library's functions
// stand in PathRecorder.cpp once more, and those of a program come before those of libraries.
// One at a time.
class PathRecorder {
public:
    PathRecorder();
    ~PathRecorder();
    PathRecorder(const PathRecorder&) = delete;
    PathRecorder& operator=(const PathRecorder&) = delete;

    const std::set<std::string>& Paths() const { return paths_; }

    // For the functions that stand in for the C library's.
    static void Note(const char* path);

private:
    std::set<std::string> paths_;
};

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_HOSTILE_OUTSIDE_PATHRECORDER_H_
