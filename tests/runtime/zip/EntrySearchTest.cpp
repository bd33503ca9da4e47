#include <gtest/gtest.h>

#include "runtime/zip/DirectoryReader.h"
#include "runtime/zip/EntrySearch.h"
#include "tests/runtime/zip/ZipClient.h"
#include "tests/support/ScratchFile.h"

namespace {

using namespace vexpa_runtime::zip;
using namespace vexpa_test;

class EntrySearch : public testing::Test {
protected:
    void List(const std::vector<std::string>& names) {
        ZipFile zip;
        for (const std::string& name : names) zip.Add(name, name);
        const ScratchFile file(zip.Bytes());
        directory_ = ReadDirectory(*ArchiveFile::Open(file.Path().c_str()));
    }

    // The index of the entry found; -1 when there is none.
    std::ptrdiff_t Find(std::string_view request) {
        const Entry* entry = FindEntry(*directory_, request, &namesTried_);
        return entry == nullptr ? -1 : entry - directory_->Entries().data();
    }

    std::shared_ptr<const Directory> directory_;
    std::size_t namesTried_ = 0;
};

TEST_F(EntrySearch, PrefersTheExactNameOverAnEarlierMatch) {
    List({"abc", "a*"});
    EXPECT_EQ(Find("a*"), 1);
    EXPECT_EQ(namesTried_, 0u);
}

TEST_F(EntrySearch, TakesTheFirstMatchInDirectoryOrder) {
    List({"x", "b2", "b1"});
    EXPECT_EQ(Find("b?"), 1);
    EXPECT_EQ(namesTried_, 2u);
}

TEST_F(EntrySearch, FindsNamesWithBracketsEscapedOrNot) {
    List({"T.xml", "[Content_Types].xml"});
    EXPECT_EQ(Find("[Content_Types].xml"), 1);
    EXPECT_EQ(Find("\\[Content_Types\\].xml"), 1);
}

TEST_F(EntrySearch, OfAnEscapedNameIsNotForAnEntrySpelledWithTheEscapes) {
    List({"\\[Content_Types\\].xml", "a\\\\b"});
    EXPECT_EQ(Find("\\[Content_Types\\].xml"), -1);
    EXPECT_EQ(Find("a\\\\b"), -1);
}

TEST_F(EntrySearch, PrefersTheExactNameWhereNotAllIsEscaped) {
    List({"xl[trash]0.dat", "ab", "xl\\[trash]\\0.dat", "a\\b"});
    EXPECT_EQ(Find("xl\\[trash]\\0.dat"), 2);
    EXPECT_EQ(Find("a\\b"), 3);
}

TEST_F(EntrySearch, NeverTriesNamesForARequestWithoutPatternCharacters) {
    List({"a", "b", "c"});
    EXPECT_EQ(Find("missing]!-^/name"), -1);
    EXPECT_EQ(namesTried_, 0u);
}

TEST_F(EntrySearch, NeverTriesNamesForAnEscapedName) {
    List({"a", "b", "c"});
    EXPECT_EQ(Find("\\[missing\\]"), -1);
    EXPECT_EQ(namesTried_, 0u);
}

TEST_F(EntrySearch, TriesEveryNameOfAPatternThatMatchesNone) {
    List({"a", "b", "c"});
    EXPECT_EQ(Find("z*"), -1);
    EXPECT_EQ(namesTried_, 3u);
}

TEST_F(EntrySearch, ComparesLocalTextWithNamesInAnyEncoding) {
    List({"M\x81ller",
          "stra\xC3\x9F"
          "e"});
    EXPECT_EQ(Find("M\xC3\xBCller"), 0);
    EXPECT_EQ(Find("stra\xC3\x9F"
                   "e"),
              1);
    EXPECT_EQ(Find("M?ller"), 0);
}

// Each part is asked for its relationships, whose name is a pattern where the part's is one.
TEST_F(EntrySearch, HasRoomForAPatternForEachEntry) {
    std::vector<std::string> names;
    for (int i = 0; i < 3'000; ++i) names.push_back("image[" + std::to_string(i) + "].png");
    List(names);
    for (int i = 0; i < 3'000; ++i) Find("_rels/image[" + std::to_string(i) + "].png.rels");
    EXPECT_EQ(Find("i*[[]2999].png"), 2'999);
}

}  // namespace
