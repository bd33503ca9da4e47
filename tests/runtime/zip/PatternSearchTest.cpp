#include <gtest/gtest.h>

#include <vector>

#include "runtime/zip/Directory.h"
#include "runtime/zip/NamePattern.h"
#include "runtime/zip/PatternSearch.h"

namespace {

using namespace vexpa_runtime::zip;

class ZipPatternSearch : public testing::Test {
protected:
    // A directory of `count` names: n0, n1 and so on.
    static Directory Of(int count) {
        std::vector<Entry> entries;
        std::string names;
        for (int i = 0; i < count; ++i) {
            const std::string name = "n" + std::to_string(i);
            Entry entry{};
            entry.nameAt = names.size();
            entry.nameSize = static_cast<std::uint32_t>(name.size());
            entries.push_back(entry);
            names += name;
        }
        return Directory(std::move(entries), std::move(names));
    }

    // The index of the first match; -1 when there is none.
    std::ptrdiff_t Find(PatternSearch& search, const std::string& text) {
        const Entry* entry = search.FindFirst(directory_, NamePattern(text), text, namesTried_);
        return entry == nullptr ? -1 : entry - directory_.Entries().data();
    }

    static constexpr std::size_t kRoom = 64UL * 1024;

    const Directory directory_ = Of(1'000);
    std::size_t namesTried_ = 0;
};

TEST_F(ZipPatternSearch, TriesNamesOnceForAPattern) {
    PatternSearch search(1'000'000, kRoom);
    EXPECT_EQ(Find(search, "n?7"), 17);
    EXPECT_EQ(Find(search, "x*"), -1);
    EXPECT_EQ(namesTried_, 18u + 1'000u);
    EXPECT_EQ(Find(search, "n?7"), 17);
    EXPECT_EQ(Find(search, "x*"), -1);
    EXPECT_EQ(namesTried_, 18u + 1'000u);
}

TEST_F(ZipPatternSearch, FindsNothingMoreWhenItsStepsAreUsedUp) {
    PatternSearch search(2'500, kRoom);
    EXPECT_EQ(Find(search, "*x"), -1);  // a step for each name, as none ends so
    EXPECT_EQ(Find(search, "*y"), -1);
    EXPECT_EQ(Find(search, "*999"), -1) << "it would match the last name";
    EXPECT_EQ(namesTried_, 2'501u);
    EXPECT_EQ(Find(search, "*0"), -1);
    EXPECT_EQ(namesTried_, 2'502u);
}

TEST_F(ZipPatternSearch, KeepsWhatItFoundWhenItsStepsAreUsedUp) {
    PatternSearch search(2'500, kRoom);
    EXPECT_EQ(Find(search, "n99?"), 990);
    while (Find(search, "*x" + std::to_string(namesTried_)) != -1 || namesTried_ < 2'400) {
    }
    EXPECT_EQ(Find(search, "n98?"), -1);
    EXPECT_EQ(Find(search, "n99?"), 990);
}

TEST_F(ZipPatternSearch, FindsNothingMoreThanItHasRoomToRemember) {
    PatternSearch search(1'000'000'000, kRoom);
    const std::string longText(60'000, '*');
    EXPECT_EQ(Find(search, longText + "7"), 7);
    EXPECT_EQ(Find(search, longText + "8"), -1);
    EXPECT_EQ(namesTried_, 8u) << "the second was not tried at all";
    EXPECT_EQ(Find(search, "*8"), 8);
    EXPECT_EQ(Find(search, longText + "7"), 7);
}

// What one step less would refuse: a thousand names, each tried on a hundred patterns.
TEST_F(ZipPatternSearch, IsAllowedMoreThanAnyDocumentNeeds) {
    PatternSearch search(PatternSearch::StepsFor(4'000), PatternSearch::RoomFor(1'000, 4'000));
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(Find(search, "word/_rels/[" + std::to_string(i) + "].xml.rels"), -1);
    }
    EXPECT_EQ(Find(search, "n99?"), 990);
}

// Patterns of which some cost too much, and so many of them that not all can be remembered.
TEST_F(ZipPatternSearch, AnswersTheSameEachTime) {
    PatternSearch search(20'000, 10'000);
    std::vector<std::string> patterns;
    for (int i = 0; i < 100; ++i) {
        patterns.push_back("*" + std::to_string(i));
        patterns.push_back("*?*?" + std::to_string(i) + "x");
    }
    const auto findAll = [&] {
        std::vector<std::ptrdiff_t> found;
        for (const std::string& pattern : patterns) found.push_back(Find(search, pattern));
        return found;
    };
    const std::vector<std::ptrdiff_t> first = findAll();
    EXPECT_GE(first.front(), 0);
    EXPECT_EQ(first[first.size() - 2], -1) << "more than it may take";
    for (int times = 0; times < 10; ++times) EXPECT_EQ(findAll(), first);
}

}  // namespace
