#include "tool/run/LineDifference.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "tool/ExitStatus.h"
#include "tool/run/MemoryFile.h"

namespace vexpa_tool {

namespace {

constexpr int kTrouble = 2;  // of diff, or a shell's 127 and the like

[[noreturn]] void Fail() {
    throw ToolError(kReadOrWriteError, "--xml needs the program diff, which cannot be run");
}

// A descriptor for as long as this object lives.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number_; }
    void Close() {
        if (number_ >= 0) close(number_);
        number_ = -1;
    }

private:
    int number_;
};

pid_t Start(const char* const* arguments, int output) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t child = -1;
    const int error = posix_spawnp(&child, arguments[0], &actions, nullptr,
                                   const_cast<char* const*>(arguments), environ);
    posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? child : -1;
}

std::string ReadAll(int descriptor) {
    std::string text;
    std::array<char, 64 << 10> piece;
    for (;;) {
        const ssize_t got = read(descriptor, piece.data(), piece.size());
        if (got == 0) return text;
        if (got < 0 && errno != EINTR) return text;
        if (got > 0) text.append(piece.data(), static_cast<std::size_t>(got));
    }
}

}  // namespace

std::string LineDifference(std::string_view before, std::string_view after) {
    MemoryFile a(true), b(true);
    a.Append(before);
    b.Append(after);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) Fail();
    const Descriptor readEnd(ends[0]);
    Descriptor writeEnd(ends[1]);
    const std::string pathA = a.Path(), pathB = b.Path();
    // Binary characters and foreign encodings are lines like any other.
    const char* const arguments[] = {"diff",    "-u", "--text",      "--label",     "a",
                                     "--label", "b",  pathA.c_str(), pathB.c_str(), nullptr};
    const pid_t child = Start(arguments, writeEnd.Number());
    writeEnd.Close();
    if (child < 0) Fail();
    std::string text = ReadAll(readEnd.Number());
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) >= kTrouble) Fail();
    const std::size_t heading = text.find("@@");
    return heading == std::string::npos ? std::string() : text.substr(heading);
}

}  // namespace vexpa_tool
