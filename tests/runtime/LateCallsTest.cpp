// Calls of a thread or a process that is ending, from destructors of objects that were there before
// the first call.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

#include "tests/runtime/xml/Dom.h"
#include "tests/runtime/zip/ZipClient.h"
#include "tests/support/Late.h"
#include "tests/support/OldFiles.h"
#include "tests/support/ScratchFile.h"

namespace {

using namespace vexpa_test;

// Too large to be kept whole, so its entries come from a piece of it.
ZipFile LargeZip() {
    ZipFile zip;
    zip.Add("large", std::string(9UL << 20, 'x')).stored = true;
    for (int i = 0; i < 4; ++i) zip.Add(std::to_string(i), kSmallText);
    return zip;
}

struct Files {
    OldFiles old;
    ScratchFile small{SmallZip().Bytes()};
    ScratchFile large{LargeZip().Bytes()};
};

bool EverythingWorks(const Files& files) {
    bool works = ParseResult("<a b='1'/>") == S_OK;
    works &= ListZip(files.small.Path()) == Names{u"a.txt", u"b/c.txt"};
    works &= UnzipEntry(files.small.Path(), "a.txt") == kSmallText;
    for (int i = 0; i < 4; ++i) {
        works &= UnzipEntry(files.large.Path(), std::to_string(i)) == kSmallText;
    }
    return works;
}

TEST(LateCalls, OfAnEndingThreadAreLikeAnyOther) {
    const Files files;
    const Worked worked = CallOnAnEndingThread([&] { return EverythingWorks(files); });
    EXPECT_TRUE(worked.first);
    EXPECT_TRUE(worked.late);
}

TEST(LateCalls, MayBeTheFirstOfTheirThread) {
    const Files files;
    bool workedLate = false;
    std::thread([&] {
        thread_local Late late;
        late.action = [&] { workedLate = EverythingWorks(files); };
    }).join();
    EXPECT_TRUE(workedLate);
}

TEST(LateCalls, OfAnEndingProcessAreLikeAnyOther) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto callAndExit = [] {
        static Files files;
        static const Late late{[] { std::fputs(EverythingWorks(files) ? "late" : "wrong", stderr); }};
        std::fputs(EverythingWorks(files) ? "works " : "wrong ", stderr);
        std::exit(0);  // NOLINT(concurrency-mt-unsafe): there is one thread
    };
    EXPECT_EXIT(callAndExit(), ::testing::ExitedWithCode(0), "works late");
}

}  // namespace
