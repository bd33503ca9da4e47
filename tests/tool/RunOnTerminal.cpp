#include "tests/tool/RunOnTerminal.h"

#include <fcntl.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

#include "tests/tool/RunTool.h"

namespace vexpa_test {

namespace {

constexpr char kCtrlC = 3;

void RedirectOutput(const std::string& path) {
    const int file = open(path.c_str(), O_WRONLY);
    if (file < 0 || dup2(file, STDOUT_FILENO) < 0) _exit(126);
    close(file);
}

// Neither is the key shown nor what was printed thrown away when it is pressed, so that the
// screen has all that the tool printed and nothing else.
void KeepTheScreen() {
    termios settings = {};
    if (tcgetattr(STDIN_FILENO, &settings) != 0) _exit(126);
    settings.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    settings.c_lflag |= NOFLSH;
    if (tcsetattr(STDIN_FILENO, TCSANOW, &settings) != 0) _exit(126);
}

// What stands on the screen once the tool has ended.
constexpr char kEnd = 1;

// When the process that a terminal was opened for ends, the system hangs up, and what was not
// read by then may be lost. So that process is one that starts the tool, shows that it has
// ended, and stays until the screen has been read and the other side hangs up.
[[noreturn]] void StayBeside(pid_t tool) {
    std::signal(SIGINT, SIG_IGN);  // the key is meant for the tool
    std::signal(SIGHUP, SIG_IGN);
    const int status = WaitFor(tool);
    if (write(STDERR_FILENO, &kEnd, 1) != 1) _exit(126);
    char key;
    while (read(STDIN_FILENO, &key, 1) > 0) continue;
    if (status >= 0) _exit(status);
    // As the tool ended, so does this.
    std::signal(-status, SIG_DFL);
    kill(getpid(), -status);
    _exit(126);
}

// All until the tool has ended.
std::string ReadScreen(int terminal, std::string interruptAfter) {
    std::string screen;
    std::array<char, 4096> piece;
    for (;;) {
        const ssize_t got = read(terminal, piece.data(), piece.size());
        if (got <= 0) throw std::runtime_error("the terminal was hung up");
        screen.append(piece.data(), static_cast<std::size_t>(got));
        if (screen.back() == kEnd) {
            screen.pop_back();
            return screen;
        }
        if (interruptAfter.empty() || screen.find(interruptAfter) == std::string::npos) continue;
        interruptAfter.clear();
        if (write(terminal, &kCtrlC, 1) != 1) throw std::runtime_error("the terminal takes nothing");
    }
}

std::string WithPlainLineEnds(const std::string& screen) {
    std::string plain;
    for (std::size_t i = 0; i < screen.size(); ++i) {
        if (screen.compare(i, 2, "\r\n") != 0) plain += screen[i];
    }
    return plain;
}

}  // namespace

TerminalRun RunOnTerminal(const std::vector<std::string>& arguments, const TerminalSetting& setting) {
    std::vector<std::string> words = {VEXPA_TOOL};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const std::vector<std::string> environment = ToolEnvironment(setting.environment);
    const std::vector<char*> argv = Pointers(words), envp = Pointers(environment);
    const winsize size = {24, setting.columns, 0, 0};
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child < 0) throw std::runtime_error("no terminal");
    if (child == 0) {
        KeepTheScreen();
        const pid_t tool = fork();
        if (tool < 0) _exit(126);
        if (tool > 0) StayBeside(tool);
        std::signal(SIGINT, SIG_DFL);  // whatever the test program inherited
        if (!setting.outputFile.empty()) RedirectOutput(setting.outputFile);
        execve(argv[0], argv.data(), envp.data());
        _exit(127);
    }
    const std::string screen = ReadScreen(terminal, setting.interruptAfter);
    close(terminal);
    return {WaitFor(child), WithPlainLineEnds(screen)};
}

}  // namespace vexpa_test
