#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>

#include "tests/support/ScratchFile.h"
#include "vexpa/platform/Runtime.h"

namespace {

using vexpa_test::ScratchFile;

TEST(Access, AllowsReadingAFileThatIsThere) {
    const ScratchFile file("bytes");
    EXPECT_EQ(_Xaccess(file.Path16().c_str(), R_OK), 0);
}

TEST(Access, RefusesAFileThatIsGone) {
    const ScratchFile file("bytes");
    file.Remove();
    EXPECT_EQ(_Xaccess(file.Path16().c_str(), R_OK), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST(Access, HandsTheModeOn) {
    const ScratchFile file("not a program");
    EXPECT_EQ(_Xaccess(file.Path16().c_str(), X_OK), -1);
    EXPECT_EQ(errno, EACCES);
}

TEST(Access, TakesANullPathForAnError) {
    EXPECT_EQ(_Xaccess(nullptr, R_OK), -1);
    EXPECT_EQ(errno, EINVAL);
}

}  // namespace
