// A file that changes while it is read, between any two calls of the system: what is read is
// the old content or the new one, whole, or nothing.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "tests/fault/ArchiveChanges.h"
#include "tests/runtime/zip/ZipClient.h"
#include "tests/support/ScratchFile.h"
#include "tests/support/SystemCalls.h"

namespace {

using namespace vexpa_test;

// How a file becomes another.

void Rewrite(const ScratchFile& file, const std::string& bytes) {
    file.Write(bytes);
}

// As a program does that writes a file in place and cuts what is left at the end.
void Overwrite(const ScratchFile& file, const std::string& bytes) {
    std::fstream(file.Path(), std::ios::binary | std::ios::in | std::ios::out) << bytes;
    std::filesystem::resize_file(file.Path(), bytes.size());
}

void Replace(const ScratchFile& file, const std::string& bytes) {
    const std::string other = file.Path() + ".other";
    std::ofstream(other, std::ios::binary) << bytes;
    std::filesystem::rename(other, file.Path());
}

using Way = void (*)(const ScratchFile&, const std::string&);
constexpr Way kWays[] = {Rewrite, Overwrite, Replace};

// Which of the file's times tell of it: the modification can be dated back, and nothing shows
// when both changes fall within one tick of the file system's clock.
enum class Tell { kBoth, kChangeOnly, kNothing };
constexpr Tell kTells[] = {Tell::kBoth, Tell::kChangeOnly, Tell::kNothing};

// The times before and after, in a system whose clock ticks every other second. No two files
// have a time in common, or what is known of one could be taken for the other's.
class Times {
public:
    explicit Times(Tell tell) : tell_(tell), was_{NextStart(), 0}, is_(was_) {
        is_.tv_sec += tell == Tell::kNothing ? 1 : 1'000;
    }

    void Before(SystemCalls& system) const {
        system.SetFileTimes({was_, was_});
        system.SetClock(is_);
    }
    void After(SystemCalls& system) const {
        system.SetFileTimes({tell_ == Tell::kBoth ? is_ : was_, tell_ == Tell::kNothing ? was_ : is_});
    }
    void Later(SystemCalls& system) const { system.SetClock({is_.tv_sec + 1'000, 0}); }

private:
    static std::time_t NextStart() {
        static std::time_t start = 1'000'000'000;
        return start += 10'000;
    }

    Tell tell_;
    std::timespec was_;
    std::timespec is_;
};

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
        if (content == old_) ++olds_;
        if (content && content == new_) ++news_;
    }

    const Versions versions_ = GetParam().versions;
    const std::optional<std::string> old_ = UnzipBytes(versions_.was, "entry");
    const std::optional<std::string> new_ = UnzipBytes(versions_.becomes, "entry");
    const ScratchFile file_{""};
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

INSTANTIATE_TEST_SUITE_P(Of, FileChange, testing::ValuesIn(ArchiveChanges()),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

}  // namespace
