// The operating system fails: each call of a whole walk in turn, with every error that matters,
// or gives less than was asked for. What is read all the same is right, and no file stays open.
#include <gtest/gtest.h>

#include <cerrno>
#include <optional>
#include <string>

#include "tests/damage/SoundPackages.h"
#include "tests/fault/ChangingFile.h"
#include "tests/opc/PackageContent.h"
#include "tests/support/ScratchFile.h"
#include "tests/support/SystemCalls.h"

namespace {

using namespace vexpa_test;

struct SoundPackage {
    const char* name;
    ZipFile (*make)();
    Tell tell;  // nothing: the file was changed a moment ago, so no directory is kept
};

constexpr SoundPackage kPackages[] = {
    {"Document", SoundDocument, Tell::kBoth},
    {"FreshDocument", SoundDocument, Tell::kNothing},
    {"PackageWithObject", SoundPackageWithObject, Tell::kBoth},
    {"FreshZip64Document", SoundZip64Document, Tell::kNothing},
};

class SystemFault : public testing::TestWithParam<SoundPackage> {
protected:
    // What a walk sees under this hook. It must not be wrong, nor leave a file open.
    std::optional<PackageContent> WalkUnder(const SystemCalls::Hook& hook) {
        const std::size_t open = OpenDescriptors();
        std::optional<PackageContent> seen;
        {
            SystemCalls system(hook);
            times_.Before(system);
            seen = ReadPackage(file_.Path16());
            calls_ = system.Count();
        }
        EXPECT_EQ(OpenDescriptors(), open);
        if (seen) {
            EXPECT_EQ(WrongContent(*seen, {&sound_}), "");
        }
        return seen;
    }

    bool IsWhole(const std::optional<PackageContent>& seen) const { return seen == sound_; }

    // Calls `answerAt(n)` for every call of a walk, and counts the walks that it left whole.
    template <class AnswerAt>
    void ForEachCall(const AnswerAt& answerAt) {
        WalkUnder(nullptr);
        const std::size_t calls = calls_;
        ASSERT_GT(calls, 10U);
        for (std::size_t n = 1; n <= calls; ++n) {
            SCOPED_TRACE(n);
            ++walks_;
            if (IsWhole(WalkUnder(answerAt(n)))) ++whole_;
        }
        EXPECT_TRUE(IsWhole(WalkUnder(nullptr))) << "all is as before";
    }

    const ScratchFile file_{GetParam().make().Bytes()};
    const Times times_{GetParam().tell};
    const PackageContent sound_ = ReadPackage(file_.Path16()).value();
    std::size_t calls_ = 0;
    std::size_t walks_ = 0;
    std::size_t whole_ = 0;
};

constexpr int kErrors[] = {EIO, EACCES, ENOENT, EMFILE, ENFILE, ENOMEM, ESTALE, EOVERFLOW};

TEST_P(SystemFault, OfOneCallLosesWhatItWasFor) {
    for (const int error : kErrors) {
        SCOPED_TRACE(error);
        ForEachCall([error](std::size_t n) {
            return [n, error](const SystemCall& call) {
                return SystemAnswer{call.number == n ? error : 0};
            };
        });
    }
    EXPECT_LT(whole_, walks_);
}

TEST_P(SystemFault, OfAllCallsFromOneOnLosesTheRest) {
    for (const int error : kErrors) {
        SCOPED_TRACE(error);
        ForEachCall([error](std::size_t n) {
            return [n, error](const SystemCall& call) {
                return SystemAnswer{call.number >= n ? error : 0};
            };
        });
    }
    EXPECT_LT(whole_, walks_);
}

TEST_P(SystemFault, OfAnInterruptedCallLosesNothing) {
    ForEachCall([](std::size_t n) {
        return [n](const SystemCall& call) { return SystemAnswer{call.number == n ? EINTR : 0}; };
    });
    EXPECT_EQ(whole_, walks_);
    EXPECT_TRUE(IsWhole(WalkUnder([](const SystemCall& call) {
        return SystemAnswer{call.number % 2 == 0 ? EINTR : 0};
    }))) << "every other call";
}

TEST_P(SystemFault, OfAShortReadLosesNothing) {
    for (const std::size_t most : {1, 2, 29}) {
        SCOPED_TRACE(most);
        ForEachCall([most](std::size_t n) {
            return [n, most](const SystemCall& call) {
                return SystemAnswer{0, call.number == n ? most : SIZE_MAX};
            };
        });
    }
    EXPECT_EQ(whole_, walks_);
    EXPECT_TRUE(IsWhole(WalkUnder([](const SystemCall&) {
        return SystemAnswer{0, 1};
    }))) << "every read, byte by byte";
}

TEST_P(SystemFault, OfAReadThatFindsTheEndLosesWhatItWasFor) {
    for (const bool isShortFirst : {false, true}) {
        SCOPED_TRACE(isShortFirst);
        ForEachCall([isShortFirst](std::size_t n) {
            return [n, isShortFirst](const SystemCall& call) {
                if (isShortFirst && call.number == n) return SystemAnswer{0, 1};
                return SystemAnswer{0, call.number == n + isShortFirst ? 0 : SIZE_MAX};
            };
        });
    }
    EXPECT_LT(whole_, walks_);
    EXPECT_FALSE(WalkUnder([](const SystemCall&) { return SystemAnswer{0, 0}; }));
}

INSTANTIATE_TEST_SUITE_P(Of, SystemFault, testing::ValuesIn(kPackages),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

}  // namespace
