#include <gtest/gtest.h>

#include "tool/text/Unicode.h"

namespace {

using namespace vexpa_tool;

struct TextRow {
    const char* shows;
    std::u16string text;
    std::string utf8;
    std::string printable;
};

TEST(Unicode, TextIsWrittenWholeForMachinesAndEscapedForPeople) {
    const TextRow rows[] = {
        {"plain text stays", u"word/document.xml", "word/document.xml", "word/document.xml"},
        {"two bytes", u"\u00e9", "\u00e9", "\u00e9"},
        {"three bytes", u"\u65e5", "\u65e5", "\u65e5"},
        {"a pair is one character", u"\U0001F4D6", "\U0001F4D6", "\U0001F4D6"},
        {"a high surrogate alone", u"a\xD83D", "a\uFFFD", "a\uFFFD"},
        {"a low surrogate alone", u"\xDCD6z", "\uFFFDz", "\uFFFDz"},
        {"two high surrogates", u"\xD83D\xD83D\xDCD6", "\uFFFD\U0001F4D6", "\uFFFD\U0001F4D6"},
        {"an escape sequence", u"\x1b[2J", "\x1b[2J", "\\x1b[2J"},
        {"a line feed", u"a\nb", "a\nb", "a\\x0ab"},
        {"delete", u"\x7f", "\x7f", "\\x7f"},
        {"a control of the upper half", u"\u009b", "\u009b", "\\x9b"},
        {"no-break space is no control", u"\u00a0", "\u00a0", "\u00a0"},
        {"a line separator", u"\u2028", "\u2028", "\\u2028"},
        {"right-to-left override", u"\u202e", "\u202e", "\\u202e"},
        {"an isolate", u"\u2066\u2069", "\u2066\u2069", "\\u2066\\u2069"},
        {"an Arabic letter mark", u"\u061c", "\u061c", "\\u061c"},
        {"a right-to-left mark", u"\u200f", "\u200f", "\\u200f"},
        {"a joiner belongs to words", u"\u200d", "\u200d", "\u200d"},
        {"a non-character", u"\ufdd0\uffff", "\ufdd0\uffff", "\\ufdd0\\uffff"},
        {"a non-character of a higher plane", u"\U0001fffe", "\U0001fffe", "\\U0001fffe"},
        {"a backslash is text", u"a\\b", "a\\b", "a\\b"},
    };
    for (const TextRow& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(ToUtf8(row.text), row.utf8);
        EXPECT_EQ(Printable(row.text), row.printable);
    }
}

TEST(Unicode, AnEmptyTextPrintsAsTwoQuotes) {
    EXPECT_EQ(PrintableOrQuotes(u""), "\"\"");
    EXPECT_EQ(PrintableOrQuotes(u"a"), "a");
}

TEST(Unicode, CharactersTakeTheColumnsThatTerminalsGiveThem) {
    EXPECT_EQ(DisplayWidth(""), 0u);
    EXPECT_EQ(DisplayWidth("abc"), 3u);
    EXPECT_EQ(DisplayWidth("gr\u00fc\u00df"), 4u);
    EXPECT_EQ(DisplayWidth("\u65e5\u672c"), 4u);
    EXPECT_EQ(DisplayWidth("e\u0301"), 1u);
}

TEST(Unicode, CharactersComeBackFromUtf8) {
    std::string_view text = "a\u00e9\u65e5\U0001F4D6";
    EXPECT_EQ(TakeUtf8(text), U'a');
    EXPECT_EQ(TakeUtf8(text), U'\u00e9');
    EXPECT_EQ(TakeUtf8(text), U'\u65e5');
    EXPECT_EQ(TakeUtf8(text), U'\U0001F4D6');
    EXPECT_TRUE(text.empty());
}

TEST(Unicode, WhatWasEscapedComesBack) {
    const struct {
        const char* shows;
        std::u16string printable;
        std::u16string text;
    } rows[] = {
        {"plain text", u"word/document.xml", u"word/document.xml"},
        {"two digits", u"a\\x1bb",
         u"a\x1b"
         u"b"},
        {"four digits", u"\\u202e", u"\u202e"},
        {"eight digits", u"\\U0001fffe", u"\U0001fffe"},
        {"too few digits", u"\\x1", u"\\x1"},
        {"other letters", u"\\x1G\\n", u"\\x1G\\n"},
        {"capitals, which are never written", u"\\x1B", u"\\x1B"},
        {"beyond Unicode", u"\\U00110000", u"\\U00110000"},
        {"a backslash at the end", u"a\\", u"a\\"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(Unescaped(row.printable), row.text);
    }
}

TEST(Unicode, ALineOfADocumentKeepsItsTabsOnly) {
    EXPECT_EQ(PrintableLine("\ta\tb\x1b\u202e"), "\ta\tb\\x1b\\u202e");
    EXPECT_EQ(PrintableLine("a\xff"
                            "b"),
              "a\uFFFDb");
    EXPECT_EQ(PrintableLine(""), "");
}

TEST(Unicode, LinesAreTakenOneByOne) {
    std::string_view text = "a\n\nb";
    EXPECT_EQ(TakeLine(text), "a");
    EXPECT_EQ(TakeLine(text), "");
    EXPECT_EQ(TakeLine(text), "b");
    EXPECT_TRUE(text.empty());
}

TEST(Unicode, InkTakesNoColumns) {
    EXPECT_EQ(DisplayWidth("\x1b[31mabc\x1b[0m"), 3u);
    EXPECT_EQ(DisplayWidth("\x1b[1m\x1b[0m"), 0u);
}

}  // namespace
