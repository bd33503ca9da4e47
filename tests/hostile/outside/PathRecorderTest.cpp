// A recorder that misses a way to a file would let every other test here pass.

#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <netdb.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>

#include "tests/hostile/outside/PathRecorder.h"
#include "tests/support/ScratchFile.h"

namespace {

using namespace vexpa_test;

TEST(PathRecorder, SeesEveryWayToAFile) {
    struct Row {
        const char* shows;
        std::function<void(const std::string&)> reach;
    };
    const Row rows[] = {
        {"open", [](const std::string& path) { close(open(path.c_str(), O_RDONLY)); }},
        {"open with flags known late",
         [](const std::string& path) {
             volatile int flags = O_RDONLY;
             close(open(path.c_str(), flags));
         }},
        {"openat", [](const std::string& path) { close(openat(AT_FDCWD, path.c_str(), O_RDONLY)); }},
        {"fopen", [](const std::string& path) { std::fclose(std::fopen(path.c_str(), "r")); }},
        {"a C++ stream", [](const std::string& path) { std::ifstream file(path); }},
        {"Qt's file",
         [](const std::string& path) {
             QFile file(QString::fromStdString(path));
             file.open(QIODevice::ReadOnly);
         }},
        {"stat",
         [](const std::string& path) {
             struct stat status;
             stat(path.c_str(), &status);
         }},
        {"lstat",
         [](const std::string& path) {
             struct stat status;
             lstat(path.c_str(), &status);
         }},
        {"the C++ library's stat",
         [](const std::string& path) { EXPECT_TRUE(std::filesystem::exists(path)); }},
        {"access", [](const std::string& path) { EXPECT_EQ(access(path.c_str(), R_OK), 0); }},
        {"opendir", [](const std::string& path) { EXPECT_EQ(opendir(path.c_str()), nullptr); }},
    };
    const ScratchFile file("");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        const PathRecorder recorder;
        row.reach(file.Path());
        EXPECT_EQ(recorder.Paths().count(file.Path()), 1U);
    }
}

TEST(PathRecorder, SeesAHostThatIsLookedUp) {
    const PathRecorder recorder;
    addrinfo* out = nullptr;
    if (getaddrinfo("127.0.0.1", nullptr, nullptr, &out) == 0) freeaddrinfo(out);
    EXPECT_EQ(recorder.Paths().count("127.0.0.1"), 1U);
}

TEST(PathRecorder, SeesNothingBeforeAndAfterItself) {
    const ScratchFile file("");
    const PathRecorder recorder;
    EXPECT_TRUE(recorder.Paths().empty());
}

}  // namespace
