#include <gtest/gtest.h>

#include "runtime/zip/NamePattern.h"

namespace {

using vexpa_runtime::zip::NamePattern;

struct Row {
    const char* what;
    std::string_view pattern;
    std::string_view name;
    bool matches;
};

const Row kRows[] = {
    {"plain text matches itself", "word/document.xml", "word/document.xml", true},
    {"the case of letters counts", "Word/document.xml", "word/document.xml", false},
    {"the whole name has to match", "word", "word/document.xml", false},
    {"and the whole pattern", "word/document.xml", "word", false},
    {"the empty pattern matches the empty name", "", "", true},
    {"and no other", "", "a", false},

    {"a star matches nothing at all", "a*", "a", true},
    {"a star runs over slashes", "word/*.xml", "word/theme/theme1.xml", true},
    {"a star takes as much as the rest needs", "*.xml", "a.xml.xml", true},
    {"a star in the middle", "a*c", "abbbc", true},
    {"a star in the middle without its rest", "a*c", "abbb", false},
    {"several stars", "*a*b*c*", "xxaxxbxxcxx", true},
    {"several stars out of order", "*a*b*c*", "xxbxxaxxcxx", false},
    {"stars side by side", "a**", "a", true},
    {"a star alone matches the empty name", "*", "", true},
    {"a literal tail is anchored", "*ab", "abab", true},

    {"a question mark is one character", "a?c", "abc", true},
    {"not none", "a?c", "ac", false},
    {"not two", "a?c", "abbc", false},
    {"also a slash", "a?c", "a/c", true},
    {"a character of several bytes is one", "a?c",
     "a\xE2\x82\xAC"
     "c",
     true},

    {"a class", "[abc]x", "bx", true},
    {"a class without the character", "[abc]x", "dx", false},
    {"a range holds its first", "[b-d]", "b", true},
    {"a range holds its middle", "[b-d]", "c", true},
    {"a range holds its last", "[b-d]", "d", true},
    {"a range ends", "[b-d]", "e", false},
    {"a reversed range is empty", "[d-b]", "c", false},
    {"and costs no other", "[d-ba]", "a", true},
    {"ranges that overlap", "[a-cb-e]", "d", true},
    {"ranges within each other", "[a-eb-cg]", "e", true},
    {"ranges within each other have an end", "[a-eb-cg]", "f", false},
    {"ranges in no order", "[x-zm-na-c]", "n", true},
    {"between ranges in no order", "[x-zm-na-c]", "o", false},
    {"before all ranges", "[x-zm-na-c]", "A", false},
    {"a class of reversed ranges only", "[d-b]", "d", false},
    {"a negated class of reversed ranges only", "[!d-b]", "d", true},
    {"a range of long characters", "[\xCE\xB1-\xCF\x89]", "\xCE\xB2", true},
    {"negated by !", "[!a]", "b", true},
    {"negated by ! and there", "[!a]", "a", false},
    {"negated by ^", "[^a-c]", "d", true},
    {"negated by ^ and there", "[^a-c]", "b", false},
    {"a later ! is a character", "[a!]", "!", true},
    {"a star in a class is a character", "[*]", "*", true},
    {"a star in a class is no star", "[*]", "a", false},
    {"a leading hyphen is a character", "[-a]", "-", true},
    {"a hyphen at the end makes the class miss", "[a-]", "a", false},
    {"and is not in it either", "[a-]", "-", false},
    {"an escaped ] does not end a class", "[\\]x]", "]", true},
    {"an escaped hyphen is a character", "[a\\-c]", "-", true},
    {"an escaped hyphen makes no range", "[a\\-c]", "b", false},
    {"the first ] ends the class", "[]a]", "a]", false},
    {"the empty negated class is any character", "[!]", "a", true},
    {"an open class matches nothing", "[a", "[a", false},
    {"an open class matches nothing, not even after a star", "*[a", "[a", false},
    {"a lone ] is a character", "]", "]", true},

    {"an escaped bracket", "\\[Content_Types\\].xml", "[Content_Types].xml", true},
    {"an unescaped bracket is a class", "[Content_Types].xml", "[Content_Types].xml", false},
    {"an unescaped bracket matches one of its characters", "[Content_Types].xml", "T.xml", true},
    {"an escaped star", "\\*", "*", true},
    {"an escaped star is no star", "\\*", "a", false},
    {"an escaped question mark", "\\?", "a", false},
    {"an escaped backslash", "\\\\", "\\", true},
    {"an escaped plain character", "\\a", "a", true},
    {"a backslash at the end matches nothing", "a\\", "a\\", false},
    {"an escape after a star", "*\\].xml", "[a].xml", true},
};

TEST(NamePattern, MatchesAsInfoZipDoes) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(NamePattern(row.pattern).Matches(row.name), row.matches);
    }
}

// With going back over every star this would take longer than the universe has.
TEST(NamePattern, ManyStarsDoNotExplode) {
    std::string pattern;
    for (int i = 0; i < 100; ++i) pattern += "*a";
    pattern += "b";
    EXPECT_FALSE(NamePattern(pattern).Matches(std::string(5000, 'a')));
    EXPECT_TRUE(NamePattern(pattern).Matches(std::string(5000, 'a') + "b"));
}

TEST(NamePattern, GivesUpOnANameMadeToTakeForever) {
    const std::string run(5'000, 'a');
    const NamePattern pattern("*" + run + "?b");
    EXPECT_TRUE(pattern.Matches("xx" + run + "ab"));
    std::string name(60'000, 'a');
    name += 'b';
    EXPECT_FALSE(pattern.Matches(name)) << "it would fit, after 300 million steps";
}

TEST(NamePattern, CountsItsStepsAlsoForNamesWithOtherEnds) {
    const NamePattern pattern(std::string(1'600, 'a') + "*" + std::string(1'600, 'b'));
    std::size_t steps = 0;
    EXPECT_FALSE(pattern.Matches("c", &steps));
    EXPECT_GE(steps, 200u);
    const std::size_t ofOtherEnds = steps;
    const std::string name = std::string(1'600, 'a') + std::string(1'600, 'b');
    EXPECT_TRUE(pattern.Matches(name, &steps));
    EXPECT_GE(steps, 2 * ofOtherEnds + name.size());
}

TEST(NamePattern, OfEscapedCharactersHasOnlyOneName) {
    EXPECT_EQ(NamePattern::OnlyName("\\[Content_Types\\].xml"), "[Content_Types].xml");
    EXPECT_EQ(NamePattern::OnlyName("\\\xE2\x82\xAC"), "\xE2\x82\xAC");
    EXPECT_EQ(NamePattern::OnlyName("a]-!^\\*"), "a]-!^*") << "plain where no class is open";
    EXPECT_EQ(NamePattern::OnlyName("\\\\"), "\\");
    EXPECT_EQ(NamePattern::OnlyName("a*"), std::nullopt);
    EXPECT_EQ(NamePattern::OnlyName("a?"), std::nullopt);
    EXPECT_EQ(NamePattern::OnlyName("[a]"), std::nullopt);
    EXPECT_EQ(NamePattern::OnlyName("a\\"), std::nullopt);
}

TEST(NamePattern, ThatIsEscapedThroughoutSpellsAName) {
    EXPECT_EQ(NamePattern::EscapedName("\\[Content_Types\\].xml"), "[Content_Types].xml");
    EXPECT_EQ(NamePattern::EscapedName("\\*\\?a\\\\"), "*?a\\");
    EXPECT_EQ(NamePattern::EscapedName("\\[\xE2\x82\xAC\\]"), "[\xE2\x82\xAC]");
    for (const char* text : {"[a]", "\\[a]", "a\\*b*", "a\\b", "a\\b\\\\c", "a\\", "\\\xE2\x82\xAC"}) {
        EXPECT_EQ(NamePattern::EscapedName(text), std::nullopt) << text;
    }
}

TEST(NamePattern, KnowsItsSpecialCharacters) {
    EXPECT_FALSE(NamePattern::HasSpecialCharacters("word/_rels/document.xml.rels]!^-"));
    for (const char* text : {"a*", "a?", "[a", "\\a"}) {
        EXPECT_TRUE(NamePattern::HasSpecialCharacters(text)) << text;
    }
}

}  // namespace
