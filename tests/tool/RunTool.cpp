#include "tests/tool/RunTool.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "tests/support/ScratchFile.h"

namespace vexpa_test {

std::vector<char*> Pointers(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> ToolEnvironment(const std::vector<std::string>& environment) {
    std::vector<std::string> all = environment;
    for (const char* name : {"LD_LIBRARY_PATH", "PATH", "LSAN_OPTIONS"}) {
        // NOLINTNEXTLINE(concurrency-mt-unsafe): nobody changes it.
        if (const char* value = std::getenv(name)) all.push_back(std::string(name) + "=" + value);
    }
    return all;
}

int WaitFor(int child) {
    int status = 0;
    while (waitpid(child, &status, 0) != child) {
        if (errno != EINTR) throw std::runtime_error("the tool got lost");
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

namespace {

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

void RedirectInput(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY);
    if (file < 0 || dup2(file, STDIN_FILENO) < 0) _exit(126);
    close(file);
}

// A pipe whose bytes come from a thread, as the child may read slowly or not at all.
class InputPipe {
public:
    explicit InputPipe(const std::string& bytes) {
        if (bytes.empty()) return;
        if (pipe2(ends_, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
        std::signal(SIGPIPE, SIG_IGN);
        writer_ = std::thread([this, &bytes] {
            std::size_t done = 0;
            while (done < bytes.size()) {
                const ssize_t written = write(ends_[1], bytes.data() + done, bytes.size() - done);
                if (written <= 0) break;
                done += static_cast<std::size_t>(written);
            }
            close(ends_[1]);
        });
    }
    ~InputPipe() {
        CloseReadEnd();
        if (writer_.joinable()) writer_.join();
    }

    // In the child.
    void Use() const {
        if (ends_[0] >= 0 && dup2(ends_[0], STDIN_FILENO) < 0) _exit(126);
    }
    void CloseReadEnd() {
        if (ends_[0] >= 0) close(ends_[0]);
        ends_[0] = -1;
    }

private:
    int ends_[2] = {-1, -1};
    std::thread writer_;
};

}  // namespace

ToolRun RunTool(const std::vector<std::string>& arguments, const ToolSetting& setting) {
    const ScratchFile out("", "out"), err("", "err");
    std::vector<std::string> words = {VEXPA_TOOL};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> environment = ToolEnvironment(setting.environment);
    if (!setting.hasPath) {
        std::erase_if(environment, [](const std::string& one) { return one.starts_with("PATH="); });
        environment.emplace_back("PATH=/nowhere");
    }
    const std::vector<char*> argv = Pointers(words), envp = Pointers(environment);
    const std::string outPath = setting.outputFile.empty() ? out.Path() : setting.outputFile;

    InputPipe input(setting.input);
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("cannot fork");
    if (child == 0) {
        input.Use();
        if (!setting.workFolder.empty() && chdir(setting.workFolder.c_str()) != 0) _exit(126);
        if (!setting.inputFile.empty()) RedirectInput(setting.inputFile);
        std::signal(SIGPIPE, setting.ignoresBrokenPipe ? SIG_IGN : SIG_DFL);
        if (setting.hasClosedPipe) {
            UseClosedPipe();
        } else {
            Redirect(outPath.c_str(), STDOUT_FILENO);
        }
        Redirect(err.Path().c_str(), STDERR_FILENO);
        for (const int descriptor : setting.closed) close(descriptor);
        if (setting.mostMemory != 0) LimitMemory(setting.mostMemory);
        execve(argv[0], argv.data(), envp.data());
        _exit(127);
    }
    input.CloseReadEnd();
    if (setting.onStart) setting.onStart(child);
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
