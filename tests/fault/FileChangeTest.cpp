// A file that changes while it is read, between any two calls of the system: what is read is
// the old content or the new one, whole, or nothing.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "tests/fault/ArchiveChanges.h"
#include "tests/fault/ChangingFile.h"
#include "tests/runtime/zip/ZipClient.h"
#include "tests/support/ScratchFile.h"
#include "tests/support/SystemCalls.h"
#include "tests/support/ZipFile.h"

namespace {

using namespace vexpa_test;

struct Case {
    Way way;
    Tell tell;
    bool isKnown;       // its directory was read before
    std::size_t piece;  // every read gives at most so many bytes
};

class FileChange : public testing::TestWithParam<ArchiveChange> {
protected:
    // Extracts from a file that changes before the n-th call; whether there was such a call.
    bool ExtractWhileItChanges(const Case& how, std::size_t n) {
        file_.Write(versions_.was);
        SystemCalls system;
        const Times times(how.tell);
        times.Before(system);
        if (how.isKnown) UnzipEntry(file_.Path(), "entry");
        system.SetHook([&](const SystemCall& call) {
            if (call.number == n) {
                how.way(file_, versions_.becomes);
                times.After(system);
            }
            return SystemAnswer{0, how.piece};
        });
        Check(UnzipEntry(file_.Path(), "entry"));
        if (system.Count() < n) return false;

        times.Later(system);
        EXPECT_EQ(UnzipEntry(file_.Path(), "entry"), new_) << "long after";
        return true;
    }

    void Check(const std::optional<std::string>& content) {
        EXPECT_TRUE(!content || content == old_ || content == new_) << *content;
        if (!content) return;
        ++contents_;
        if (content == old_) ++olds_;
        if (content == new_) ++news_;
    }

    const Versions versions_ = GetParam().versions;
    const std::optional<std::string> old_ = UnzipBytes(versions_.was, "entry");
    const std::optional<std::string> new_ = UnzipBytes(versions_.becomes, "entry");
    const ScratchFile file_{""};
    int contents_ = 0;
    int olds_ = 0;
    int news_ = 0;
};

TEST_P(FileChange, BetweenAnyTwoCallsGivesOneContentOrTheOtherOrNone) {
    ASSERT_TRUE(old_);
    constexpr std::size_t kWhole = SIZE_MAX;
    constexpr std::size_t kHeaderWithoutItsName = 46;
    int tried = 0;
    for (const Way way : kWays) {
        for (const Tell tell : kTells) {
            for (const bool isKnown : {true, false}) {
                for (const std::size_t piece : {kWhole, kHeaderWithoutItsName, std::size_t{8}}) {
                    std::size_t n = 1;
                    while (ExtractWhileItChanges({way, tell, isKnown, piece}, n)) ++n, ++tried;
                }
            }
        }
    }
    RecordProperty("tried", tried);
    EXPECT_GT(olds_, 0);
    if (new_) {
        EXPECT_GT(news_, 0);
    }
}

// Its old bytes stay while it is open, although its change time moves when its name goes.
TEST_P(FileChange, OfAFileThatIsReplacedAlwaysGivesAContent) {
    if (!new_) return;
    int tried = 0;
    for (const Tell tell : kTells) {
        for (const bool isKnown : {true, false}) {
            std::size_t n = 1;
            while (ExtractWhileItChanges({Replace, tell, isKnown, SIZE_MAX}, n)) ++n, ++tried;
        }
    }
    EXPECT_EQ(contents_, tried + 6) << "6 times it did not change any more";
}

// As most programs save: cut first, written a while later.
TEST_P(FileChange, InTwoStepsGivesOneContentOrTheOtherOrNone) {
    for (const Tell tell : kTells) {
        std::size_t calls = 1;
        for (std::size_t n = 1; n <= calls; ++n) {
            for (std::size_t m = n + 1; m <= calls + 1; ++m) {
                file_.Write(versions_.was);
                SystemCalls system;
                const Times times(tell);
                times.Before(system);
                UnzipEntry(file_.Path(), "entry");
                system.SetHook([&](const SystemCall& call) {
                    if (call.number == n) file_.Write("");
                    if (call.number == m) file_.Write(versions_.becomes);
                    if (call.number == n) times.After(system);
                    return SystemAnswer{};
                });
                Check(UnzipEntry(file_.Path(), "entry"));
                calls = std::max(calls, system.Count());
            }
        }
    }
}

// Too large to be kept whole, and of a local header so large that the piece read ahead ends within
// the entry's data.
Versions BeyondThePieceReadAhead() {
    constexpr std::size_t kExtra = 60'000;
    ZipFile zip;
    zip.Add("much", std::string(9 << 20, 'm')).stored = true;
    zip.Add("near", "by").stored = true;
    ZipEntry& entry = zip.Add("entry", std::string(228'000, 't'));
    entry.stored = true;
    entry.localExtra = std::string("\xFE\xCA", 2) + static_cast<char>((kExtra - 4) & 0xFF) +
                       static_cast<char>((kExtra - 4) >> 8) + std::string(kExtra - 4, 'x');
    Versions versions{zip.Bytes(), {}};
    entry.content = WithTheSameCheckSum(entry.content);
    versions.becomes = zip.Bytes();
    return versions;
}

TEST(FileChangeOfALargeFile, WhileAPieceIsReadAheadGivesOneContentOrTheOtherOrNone) {
    const Versions versions = BeyondThePieceReadAhead();
    const std::optional<std::string> was = UnzipBytes(versions.was, "entry");
    const std::optional<std::string> becomes = UnzipBytes(versions.becomes, "entry");
    ASSERT_TRUE(was && becomes && was != becomes);
    const ScratchFile file("");
    for (const Way way : kWays) {
        bool hasChanged = true;
        for (std::size_t n = 1; hasChanged; ++n) {
            file.Write(versions.was);
            SystemCalls system;
            const Times times(Tell::kBoth);
            times.Before(system);
            ASSERT_EQ(UnzipEntry(file.Path(), "near"), "by");
            system.SetHook([&](const SystemCall& call) {
                if (call.number == n) {
                    way(file, versions.becomes);
                    times.After(system);
                }
                return SystemAnswer{};
            });
            const std::optional<std::string> content = UnzipEntry(file.Path(), "entry");
            EXPECT_TRUE(!content || content == was || content == becomes) << "before call " << n;
            hasChanged = system.Count() >= n;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Of, FileChange, testing::ValuesIn(ArchiveChanges()),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

}  // namespace
