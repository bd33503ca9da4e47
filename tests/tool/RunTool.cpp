#include "tests/tool/RunTool.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "tests/support/ScratchFile.h"

namespace vexpa_test {

namespace {

std::vector<char*> Pointers(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

// Between fork and exec: system calls only.
void Redirect(const char* path, int descriptor) {
    const int file = open(path, O_WRONLY);
    if (file < 0 || dup2(file, descriptor) < 0) _exit(126);
    close(file);
}

void UseClosedPipe() {
    int ends[2];
    if (pipe(ends) != 0 || dup2(ends[1], STDOUT_FILENO) < 0) _exit(126);
    close(ends[0]);
    close(ends[1]);
}

void LimitMemory(std::uint64_t bytes) {
    const rlimit limit{bytes, bytes};
    if (setrlimit(RLIMIT_AS, &limit) != 0) _exit(126);
}

int WaitFor(pid_t child) {
    int status = 0;
    if (waitpid(child, &status, 0) != child) throw std::runtime_error("the tool got lost");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace

ToolRun RunTool(const std::vector<std::string>& arguments, const ToolSetting& setting) {
    const ScratchFile out("", "out"), err("", "err");
    std::vector<std::string> words = {VEXPA_TOOL};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> environment = setting.environment;
    if (const char* path = std::getenv("LD_LIBRARY_PATH")) {
        environment.push_back(std::string("LD_LIBRARY_PATH=") + path);
    }
    const std::vector<char*> argv = Pointers(words), envp = Pointers(environment);
    const std::string outPath = setting.outputFile.empty() ? out.Path() : setting.outputFile;

    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("cannot fork");
    if (child == 0) {
        std::signal(SIGPIPE, setting.ignoresBrokenPipe ? SIG_IGN : SIG_DFL);
        if (setting.hasClosedPipe) {
            UseClosedPipe();
        } else {
            Redirect(outPath.c_str(), STDOUT_FILENO);
        }
        Redirect(err.Path().c_str(), STDERR_FILENO);
        if (setting.mostMemory != 0) LimitMemory(setting.mostMemory);
        execve(argv[0], argv.data(), envp.data());
        _exit(127);
    }
    const int status = WaitFor(child);
    return {status, ReadFile(out.Path()), ReadFile(err.Path())};
}

std::vector<std::string> Lines(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

}  // namespace vexpa_test
