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

// Where the bytes of an entry come from.
enum class Kept {
    kDirectory,  // the file: it is too large to be kept whole, and its entries lie far apart
    kPieces,     // pieces of the file, each around several entries
    kWhole,      // memory, once the file has been read as a whole
    kNothing,    // the file, twice: it was changed a moment ago
};

struct SoundPackage {
    const char* name;
    ZipFile (*make)();
    Kept kept;
};

constexpr SoundPackage kPackages[] = {
    {"LargeDocument", SoundDocument, Kept::kDirectory},
    {"LargeDocumentOfNearEntries", SoundDocument, Kept::kPieces},
    {"SmallDocument", SoundDocument, Kept::kWhole},
    {"FreshDocument", SoundDocument, Kept::kNothing},
    {"LargePackageWithObject", SoundPackageWithObject, Kept::kDirectory},
    {"SmallPackageWithObject", SoundPackageWithObject, Kept::kWhole},
    {"FreshZip64Document", SoundZip64Document, Kept::kNothing},
};

class SystemFault : public testing::TestWithParam<SoundPackage> {
protected:
    // What a walk sees under this hook. It must not be wrong, nor leave a file open.
    std::optional<PackageContent> WalkUnder(const SystemCalls::Hook& hook) {
        const std::size_t open = OpenDescriptors();
        std::optional<PackageContent> seen;
        {
            SystemCalls system(hook);
            NewTimes().Before(system);
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
        ASSERT_GT(calls, 5U);
        for (std::size_t n = 1; n <= calls; ++n) {
            SCOPED_TRACE(n);
            ++walks_;
            if (IsWhole(WalkUnder(answerAt(n)))) ++whole_;
        }
        EXPECT_TRUE(IsWhole(WalkUnder(nullptr))) << "all is as before";
    }

    // A file of new times is read anew, which one in memory would be only once.
    const Times& NewTimes() {
        const bool isInMemory = GetParam().kept == Kept::kWhole || GetParam().kept == Kept::kPieces;
        if (isInMemory) times_.emplace(Tell::kBoth);
        return *times_;
    }

    static std::string BytesOf(const SoundPackage& package) {
        constexpr std::size_t kTooLarge = 9 << 20, kFar = 300 << 10;
        ZipFile zip = package.make();
        const bool isFarApart = package.kept == Kept::kDirectory;
        if (isFarApart || package.kept == Kept::kPieces) zip.prefix.assign(kTooLarge, '-');
        for (std::size_t i = isFarApart ? zip.entries.size() : 0; i-- != 0;) {
            ZipEntry between{};
            between.name = "between/" + std::to_string(i);
            between.content.assign(kFar, '-');
            between.stored = true;
            zip.entries.insert(zip.entries.begin() + static_cast<std::ptrdiff_t>(i), between);
        }
        return zip.Bytes();
    }

    const ScratchFile file_{BytesOf(GetParam())};
    std::optional<Times> times_{GetParam().kept == Kept::kNothing ? Tell::kNothing : Tell::kBoth};
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
    for (const std::size_t most : {1u, 2u, 29u}) {
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
    // The one read of a whole file is made up for by those of its entries.
    if (GetParam().kept == Kept::kWhole) {
        EXPECT_EQ(whole_, walks_);
    } else {
        EXPECT_LT(whole_, walks_);
    }
    EXPECT_FALSE(WalkUnder([](const SystemCall&) { return SystemAnswer{0, 0}; }));
}

INSTANTIATE_TEST_SUITE_P(Of, SystemFault, testing::ValuesIn(kPackages),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

}  // namespace
