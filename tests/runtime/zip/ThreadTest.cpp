// For ThreadSanitizer: what several threads may do at once.
#include <gtest/gtest.h>

#include <atomic>
#include <deque>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <thread>

#include "runtime/zip/Extraction.h"
#include "tests/runtime/zip/ZipClient.h"
#include "tests/support/EightThreads.h"
#include "tests/support/ScratchFile.h"

namespace {

using namespace vexpa_runtime::zip;
using namespace vexpa_test;

std::timespec FarFuture() {
    return {std::time_t{1} << 40, 0};
}

std::optional<std::string> Unzip(DirectoryCache& cache, const ScratchFile& file,
                                 const std::string& name) {
    const char* path = file.Path().c_str();
    auto prospect = LookUp(cache, path, name.c_str());
    auto entry = prospect ? Extract(cache, path, name.c_str(), *std::move(prospect)) : std::nullopt;
    if (!entry) return std::nullopt;
    return std::string(entry->bytes.get(), entry->size);
}

TEST(ZipThreads, ReadDifferentPackagesThroughOneCache) {
    constexpr unsigned kFiles = 4;  // more than are kept, so that they drive each other out
    DirectoryCache cache(2, 1 << 20, FarFuture);
    std::deque<ScratchFile> files;
    for (unsigned i = 0; i < kFiles; ++i) {
        ZipFile zip;
        for (unsigned j = 0; j <= i; ++j) zip.Add("e" + std::to_string(j), std::to_string(i));
        files.emplace_back(zip.Bytes());
    }
    std::atomic<int> wrong = 0;
    OnEightThreads([&](unsigned i) {
        for (int round = 0; round < 300; ++round) {
            if (Unzip(cache, files[i % kFiles], "e0") != std::to_string(i % kFiles)) ++wrong;
        }
    });
    EXPECT_EQ(wrong, 0);
}

TEST(ZipThreads, UseTheZipServiceFirstAtOnce) {
    const ScratchFile file(SmallZip().Bytes());
    std::atomic<int> wrong = 0;
    OnEightThreads([&](unsigned) {
        const auto names = ListZip(file.Path());
        if (!names || names->size() != 2) ++wrong;
        if (UnzipEntry(file.Path(), "a.txt") != kSmallText) ++wrong;
    });
    EXPECT_EQ(wrong, 0);
}

// An archive whose "entry" lies elsewhere than in the other one.
std::string Version(const std::string& content, const std::string& before) {
    ZipFile zip;
    zip.Add("before", before).stored = true;
    zip.Add("entry", content);
    return zip.Bytes();
}

TEST(ZipThreads, ReadOneVersionOrTheOtherOfAFileThatIsReplacedAllTheTime) {
    DirectoryCache cache(4, 1 << 20, FarFuture);
    const ScratchFile file(Version("one", ""));
    std::atomic<bool> stop = false;
    std::thread replacer([&] {
        const std::string next = file.Path() + ".next";
        for (int i = 0; !stop; ++i) {
            std::ofstream(next, std::ios::binary)
                << (i % 2 == 0 ? Version("two", "moved") : Version("one", ""));
            std::filesystem::rename(next, file.Path());
        }
    });
    int ones = 0, twos = 0;
    for (int i = 0; i < 1000; ++i) {
        const auto content = Unzip(cache, file, "entry");
        if (content == "one") ++ones;
        if (content == "two") ++twos;
    }
    stop = true;
    replacer.join();
    EXPECT_EQ(ones + twos, 1000);
}

}  // namespace
