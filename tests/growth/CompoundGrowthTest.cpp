#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/growth/Work.h"
#include "tests/runtime/com/CompoundBytes.h"
#include "tests/runtime/com/CompoundWalk.h"

namespace {

using namespace vexpa_test;

std::function<void()> WalkOf(const std::string& bytes, std::size_t elements) {
    const auto file = std::make_shared<const std::string>(bytes);
    return [file, elements] {
        const CompoundWalk walk = WalkBytes(*file);
        EXPECT_EQ(walk.streams + walk.storages, elements);
    };
}

std::vector<CompoundElement> Streams(std::size_t count, const std::string& content) {
    std::vector<CompoundElement> streams;
    for (std::size_t i = 0; i < count; ++i) streams.push_back({std::to_string(i), content});
    return streams;
}

TEST(CompoundGrowth, OfStreams) {
    ExpectNoFasterGrowthThanSize(
        400, [](std::size_t n) { return WalkOf(CompoundBytes(Streams(n, "content")), n); });
}

TEST(CompoundGrowth, OfLargeStreams) {
    ExpectNoFasterGrowthThanSize(50, [](std::size_t n) {
        return WalkOf(CompoundBytes(Streams(n, std::string(5'000, 'c'))), n);
    });
}

TEST(CompoundGrowth, OfTheLengthOfAStream) {
    ExpectNoFasterGrowthThanSize(200'000, [](std::size_t n) {
        return WalkOf(CompoundBytes(Streams(1, std::string(n, 'c'))), 1);
    });
}

TEST(CompoundGrowth, OfStoragesInStorages) {
    ExpectNoFasterGrowthThanSize(100, [](std::size_t n) {
        CompoundElement nested{"stream", "content"};
        for (std::size_t i = 0; i < n; ++i) nested = CompoundElement{"s", {}, {nested}, true};
        return WalkOf(CompoundBytes({nested}), n + 1);
    });
}

TEST(CompoundGrowth, OfStoragesOfAFewStreams) {
    ExpectNoFasterGrowthThanSize(100, [](std::size_t n) {
        std::vector<CompoundElement> storages;
        for (std::size_t i = 0; i < n; ++i)
            storages.push_back({std::to_string(i), {}, Streams(3, "content"), true});
        return WalkOf(CompoundBytes(storages), 4 * n);
    });
}

}  // namespace
