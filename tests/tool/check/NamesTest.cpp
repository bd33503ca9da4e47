// Names: of parts and entries, in sentences, whatever the case of their letters.

#include <gtest/gtest.h>

#include "tests/tool/container/Archive.h"
#include "tool/check/NameIndex.h"
#include "tool/check/PartNames.h"
#include "tool/check/Rfc3986.h"
#include "tool/check/Shown.h"
#include "tool/check/WordCounts.h"

namespace {

using namespace vexpa_test;
using namespace vexpa_tool;

TEST(PartNames, OfEntriesLoseOneSlashAndHaveNoBackslash) {
    EXPECT_EQ(EntryNameOf("/word/document.xml"), "word/document.xml");
    EXPECT_EQ(EntryNameOf("//a"), "/a");
    EXPECT_EQ(EntryNameOf("\\word\\document.xml"), "word/document.xml");
    EXPECT_EQ(EntryNameOf(""), "");
}

TEST(PartNames, OfStreamsStandInAFolderBesideTheirPart) {
    EXPECT_EQ(RelationshipsEntryOf("word/document.xml"), "word/_rels/document.xml.rels");
    EXPECT_EQ(RelationshipsEntryOf("a.xml"), "_rels/a.xml.rels");
}

TEST(PartNames, OfStreamsTellTheirPart) {
    struct Row {
        const char* shows;
        const char* stream;
        std::optional<std::string> part;
    };
    const Row rows[] = {
        {"in a folder", "word/_rels/document.xml.rels", "word/document.xml"},
        {"at the root", "_rels/a.xml.rels", "a.xml"},
        {"of the package", "_rels/.rels", ""},
        {"in another case", "word/_RELS/document.xml.Rels", "word/document.xml"},
        {"in another folder", "word/x_rels/document.xml.rels", std::nullopt},
        {"not in its folder", "word/document.xml.rels", std::nullopt},
        {"without its extension", "word/_rels/document.xml", std::nullopt},
        {"its folder alone", "word/_rels/", std::nullopt},
        {"nothing", "", std::nullopt},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(SourceOf(row.stream), row.part);
    }
}

TEST(PartNames, LoseTheirEscapes) {
    EXPECT_EQ(WithoutEscapes("a%20b%41.xml"), "a bA.xml");
    EXPECT_EQ(WithoutEscapes("100%"), "100%");
    EXPECT_EQ(WithoutEscapes("%zz%2"), "%zz%2");
}

TEST(Rfc3986, ResolvesAsTheStandardDoes) {
    struct Row {
        const char* source;
        const char* target;
        const char* path;
    };
    const Row rows[] = {
        {"/word/document.xml", "media/a.png", "/word/media/a.png"},
        {"word/document.xml", "media/a.png", "/word/media/a.png"},
        {"", "word/document.xml", "/word/document.xml"},
        {"/word/document.xml", "/a.xml", "/a.xml"},
        {"/word/document.xml", "./a.xml", "/word/a.xml"},
        {"/word/document.xml", "../a.xml", "/a.xml"},
        {"/word/document.xml", "../../a.xml", "/a.xml"},
        {"/a/b/c.xml", "../x/./y/../z.xml", "/a/x/z.xml"},
        {"/word/document.xml", "a..b.xml", "/word/a..b.xml"},
        {"/word/document.xml", "#b", "/word/document.xml"},
        {"/word/document.xml", "a.xml?b#c", "/word/a.xml"},
        {"/word/document.xml", "..", "/"},
        {"/word/document.xml", ".", "/word/"},
        {"/word/document.xml", "a//b", "/word/a//b"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.source) + " " + row.target);
        EXPECT_EQ(ResolveByRfc(row.source, row.target), row.path);
    }
}

TEST(NameIndex, FindsWhatDiffersInLetterCaseOnly) {
    ZipFile zip;
    for (const char* name : {"word/A.xml", "\u00dcber.xml", "stra\u00dfe", "plain"}) zip.Add(name, "");
    const Archive archive(zip);
    const NameIndex names(archive.container);
    EXPECT_EQ(names.FindVariant("WORD/a.XML")->name, "word/A.xml");
    EXPECT_EQ(names.FindVariant("\u00fcBER.xml")->name, "\u00dcber.xml");
    EXPECT_EQ(names.FindVariant("plain"), nullptr);
    EXPECT_EQ(names.FindVariant("other"), nullptr);
}

TEST(NameIndex, GoesThroughNamesThatAreRepeated) {
    ZipFile zip;
    for (const char* name : {"b", "a", "B", "c", "b"}) zip.Add(name, "");
    const Archive archive(zip);
    std::string pairs;
    NameIndex(archive.container)
        .ForEachRepeated([&](const ContainerEntry& first, const ContainerEntry& other) {
            pairs += std::string(first.name) + std::string(other.name) + " ";
        });
    EXPECT_EQ(pairs, "bB bb ");
}

TEST(Shown, EscapesWhatIsUnsafeToPrint) {
    EXPECT_EQ(Shown(std::string_view("a\x1b[2Jb")), "a\\x1b[2Jb");
    EXPECT_EQ(Shown(std::string_view("")), "\"\"");
}

TEST(Shown, CutsTheMiddleOutOfAVeryLongText) {
    const std::string text = "begin" + std::string(10'000, 'x') + "end";
    const std::string shown = Shown(std::string_view(text));
    EXPECT_LT(shown.size(), 250u);
    EXPECT_TRUE(shown.starts_with("beginx") && shown.ends_with("xend"));
}

TEST(Shown, CutsNoCharacterInTwo) {
    std::u16string text;
    for (int i = 0; i < 300; ++i) text += u"\U0001F600";
    EXPECT_EQ(Shown(text).find("\uFFFD"), std::string::npos);
    EXPECT_EQ(Shown(u"x" + text).find("\uFFFD"), std::string::npos);
}

TEST(ShownList, JoinsWordsAndCountsTheRest) {
    ShownList list(3);
    const char* texts[] = {"a", "a and b", "a, b and c", "a, b, c and 1 more", "a, b, c and 2 more"};
    const char* words[] = {"a", "b", "c", "d", "e"};
    for (std::size_t i = 0; i < 5; ++i) {
        list.Add(std::string_view(words[i]));
        EXPECT_EQ(list.Text(), texts[i]);
    }
}

TEST(WordCounts, GiveTheMostFrequentFirst) {
    WordCounts counts;
    EXPECT_TRUE(counts.IsEmpty());
    for (const char* word : {"b", "a", "c", "c", "b", "c"}) counts.Add(word);
    EXPECT_EQ(counts.Total(), 6u);
    EXPECT_EQ(counts.WordsText("word", "words"), "3 words");
    EXPECT_EQ(counts.Text(2), "c (3), b (2) and 1 more");
}

TEST(Counted, KnowsOneFromSeveral) {
    EXPECT_EQ(Counted(1, "entry", "entries"), "1 entry");
    EXPECT_EQ(Counted(0, "entry", "entries"), "0 entries");
    EXPECT_EQ(Counted(1204, "entry", "entries"), "1,204 entries");
}

}  // namespace
