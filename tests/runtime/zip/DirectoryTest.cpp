#include <gtest/gtest.h>

#include <vector>

#include "runtime/zip/Directory.h"

namespace {

using namespace vexpa_runtime::zip;

Directory Of(const std::vector<std::string>& names) {
    std::vector<Entry> entries;
    std::string text;
    for (const std::string& name : names) {
        Entry entry{};
        entry.nameAt = text.size();
        entry.nameSize = static_cast<std::uint32_t>(name.size());
        entries.push_back(entry);
        text += name;
    }
    return Directory(std::move(entries), std::move(text));
}

TEST(Directory, FindsEveryNameAndNoOther) {
    std::vector<std::string> names{""};
    for (int i = 0; i < 5000; ++i) names.push_back("entry" + std::to_string(i));
    const Directory directory = Of(names);
    for (const std::string& name : names) {
        const Entry* entry = directory.Find(name);
        ASSERT_NE(entry, nullptr) << name;
        EXPECT_EQ(directory.NameOf(*entry), name);
    }
    EXPECT_EQ(directory.Find("entry5000"), nullptr);
    EXPECT_EQ(directory.Find("Entry1"), nullptr);
}

TEST(Directory, FindsTheFirstOfEqualNames) {
    const Directory directory = Of({"a", "b", "a"});
    EXPECT_EQ(directory.Find("a"), &directory.Entries()[0]);
}

TEST(Directory, OfNoEntriesFindsNothing) {
    const Directory directory = Of({});
    EXPECT_EQ(directory.Count(), 0u);
    EXPECT_EQ(directory.Find(""), nullptr);
}

TEST(Directory, SaysHowMuchMemoryItUses) {
    const Directory small = Of({"a"});
    const Directory large = Of(std::vector<std::string>(1000, std::string(100, 'n')));
    EXPECT_GT(small.MemoryUse(), sizeof(Directory));
    EXPECT_GT(large.MemoryUse(), 1000 * (sizeof(Entry) + 100));
}

}  // namespace
