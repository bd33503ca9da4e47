// Every encoding that XML can come in, with and without byte order mark, and those that say one
// thing and are another.

#include <string>
#include <string_view>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/SmallPackage.h"
#include "tests/hostile/xml/CraftedXml.h"
#include "tests/opc/PackageFile.h"

namespace {

using namespace vexpa_test;
using namespace std::string_literals;
using enum XmlOutcome;

enum class Order { kLittle, kBig };

// Each character of `text`, which is ASCII or written in UTF-16, in a number of bytes.
std::string Wide(std::u16string_view text, std::size_t bytes, Order order) {
    std::string wide;
    for (const char16_t unit : text) {
        for (std::size_t i = 0; i < bytes; ++i) {
            const std::size_t place = order == Order::kLittle ? i : bytes - 1 - i;
            wide += place < 2 ? static_cast<char>(unit >> (8 * place) & 0xFF) : '\0';
        }
    }
    return wide;
}

std::string Wide(std::string_view ascii, std::size_t bytes, Order order) {
    return Wide(std::u16string(ascii.begin(), ascii.end()), bytes, order);
}

std::string Declared(std::string_view encoding) {
    return "<?xml version='1.0' encoding='" + std::string(encoding) + "'?>";
}

// The stream in an encoding of wider characters, after `head`.
XmlChange InUtf16(Order order, std::u16string_view head) {
    return [=, start = std::u16string(head)](const std::string& xml) {
        return Wide(start, 2, order) + Wide(xml, 2, order);
    };
}

XmlChange InUtf32(Order order, std::u16string_view head) {
    return [=, start = std::u16string(head)](const std::string& xml) {
        return Wide(start, 4, order) + Wide(xml, 4, order);
    };
}

constexpr const char* kUtf8Mark = "\xEF\xBB\xBF";

CraftedXmls Utf8Cases() {
    return {
        {"NotDeclared", "what XML is when it says nothing", kRead, Before("")},
        {"Declared", "and when it says so", kRead, Before(Declared("UTF-8"))},
        {"DeclaredInSmallLetters", "case does not count in names of encodings", kRead,
         Before(Declared("utf-8"))},
        {"Marked", "a mark is not part of the text", kRead, Before(kUtf8Mark)},
        {"MarkedAndDeclared", "both", kRead, Before(kUtf8Mark + Declared("UTF-8"))},
        {"MarkedTwice", "the second mark is text before the root", kRefused,
         Before(std::string(kUtf8Mark) + kUtf8Mark)},
        {"MarkedHalf", "two bytes of a mark are no text", kRefused, Before("\xEF\xBB")},
        {"MarkedWithin", "in text a mark is a character", kRead, RootWith(kUtf8Mark)},
        {"MarkAlone", "a mark is no document", kRefused, InPlace(kUtf8Mark)},
        {"DeclaredAsUtf16", "bytes of eight bits cannot be that", kRefused, Before(Declared("UTF-16"))},
        {"MarkedAndDeclaredAsUtf16", "nor with a mark that says so", kRefused,
         Before(kUtf8Mark + Declared("UTF-16"))},
        {"DeclaredAsUtf32", "nor that", kRefused, Before(Declared("UTF-32"))},
        {"DeclaredAsUtf7", "markup in disguise", kRefused, Before(Declared("UTF-7"))},
        {"MarkedAndDeclaredAsLatin1", "the declaration can tell, the mark is spent", kRead,
         Before(kUtf8Mark + Declared("ISO-8859-1"))},
    };
}

CraftedXmls Utf16Cases() {
    return {
        {"LittleMarked", "the common form", kRead, InUtf16(Order::kLittle, u"\uFEFF")},
        {"BigMarked", "the other order", kRead, InUtf16(Order::kBig, u"\uFEFF")},
        {"LittleMarkedAndDeclared", "as Windows programs write it", kRead,
         InUtf16(Order::kLittle, u"\uFEFF<?xml version='1.0' encoding='UTF-16'?>")},
        {"BigMarkedAndDeclared", "the other order", kRead,
         InUtf16(Order::kBig, u"\uFEFF<?xml version='1.0' encoding='UTF-16'?>")},
        {"LittleDeclared", "without a mark the first character tells", kRead,
         InUtf16(Order::kLittle, u"<?xml version='1.0' encoding='UTF-16'?>")},
        {"BigDeclared", "as above", kRead,
         InUtf16(Order::kBig, u"<?xml version='1.0' encoding='UTF-16'?>")},
        {"LittleDeclaredWithItsOrder", "an order that is said and true", kRead,
         InUtf16(Order::kLittle, u"<?xml version='1.0' encoding='UTF-16LE'?>")},
        {"BigDeclaredWithItsOrder", "as above", kRead,
         InUtf16(Order::kBig, u"<?xml version='1.0' encoding='UTF-16BE'?>")},
        {"LittleMarkedAndDeclaredBig", "an order that is said and false", kRefused,
         InUtf16(Order::kLittle, u"\uFEFF<?xml version='1.0' encoding='UTF-16BE'?>")},
        {"BigMarkedAndDeclaredLittle", "as above", kRefused,
         InUtf16(Order::kBig, u"\uFEFF<?xml version='1.0' encoding='UTF-16LE'?>")},
        {"LittleNeither", "no mark, no declaration", kRead, InUtf16(Order::kLittle, u"")},
        {"BigNeither", "no mark, no declaration", kRead, InUtf16(Order::kBig, u"")},
        {"LittleDeclaredAsUtf8", "characters of two bytes cannot be that", kRefused,
         InUtf16(Order::kLittle, u"\uFEFF<?xml version='1.0' encoding='UTF-8'?>")},
        {"BigDeclaredAsLatin1", "nor that", kRefused,
         InUtf16(Order::kBig, u"\uFEFF<?xml version='1.0' encoding='ISO-8859-1'?>")},
        {"LittleDeclaredAsWindows1252", "nor that", kRefused,
         InUtf16(Order::kLittle, u"\uFEFF<?xml version='1.0' encoding='windows-1252'?>")},
        {"LittleDeclaredAsAnything", "nor what nobody knows", kRefused,
         InUtf16(Order::kLittle, u"\uFEFF<?xml version='1.0' encoding='x-anything'?>")},
        {"MarkAlone", "a mark is no document", kRefused, InPlace("\xFF\xFE")},
        {"MarkOfTheOtherOrder", "U+FFFE is no character", kRefused, InUtf16(Order::kLittle, u"\uFFFE")},
        {"ThreeHalves", "half a unit is left over", kRefused,
         [](const std::string& xml) { return "\xFF\xFE" + Wide(xml, 2, Order::kLittle) + " "; }},
        {"HalfAPair", "a high surrogate before a blank", kRefused,
         [](const std::string& xml) {
             return "\xFF\xFE" + Wide(u"<r>\xD834 ", 2, Order::kLittle) + Wide(xml, 2, Order::kLittle) +
                    Wide(u"</r>", 2, Order::kLittle);
         }},
        {"ATurnedPair", "a low surrogate first", kRefused,
         [](const std::string& xml) {
             return "\xFE\xFF" + Wide(u"<r>\xDD1E\xD834", 2, Order::kBig) + Wide(xml, 2, Order::kBig) +
                    Wide(u"</r>", 2, Order::kBig);
         }},
        {"AWholePair", "a character of two units", kRead,
         [](const std::string& xml) {
             return "\xFE\xFF" + Wide(u"<r>\U0001D11E", 2, Order::kBig) + Wide(xml, 2, Order::kBig) +
                    Wide(u"</r>", 2, Order::kBig);
         }},
        {"ChangingWithin", "the first half in one order, the rest in the other", kRefused,
         [](const std::string& xml) {
             return "\xFF\xFE" + Wide("<r>", 2, Order::kLittle) + Wide(xml + "</r>", 2, Order::kBig);
         }},
    };
}

CraftedXmls WiderCases() {
    return {
        {"Utf32LittleMarked", "its mark begins like that of UTF-16", kRefused,
         InUtf32(Order::kLittle, u"\uFEFF")},
        {"Utf32BigMarked", "NULs come first", kRefused, InUtf32(Order::kBig, u"\uFEFF")},
        {"Utf32LittleDeclared", "every second unit is NUL", kRefused,
         InUtf32(Order::kLittle, u"<?xml version='1.0' encoding='UTF-32'?>")},
        {"Utf32BigDeclared", "NULs come first", kRefused,
         InUtf32(Order::kBig, u"<?xml version='1.0' encoding='UTF-32'?>")},
        {"Utf32Neither", "as above", kRefused, InUtf32(Order::kLittle, u"")},
        {"Ucs4Declared", "another name for it", kRefused, Before(Declared("ISO-10646-UCS-4"))},
        {"Ucs2Declared", "another name for UTF-16", kRefused, Before(Declared("ISO-10646-UCS-2"))},
        {"Ebcdic", "no byte of markup is where ASCII has it", kRefused,
         InPlace("\x4C\x6F\xA7\x94\x93\x40\x6E\x4C\x99\x61\x6E")},
    };
}

CraftedXmls ByteCases() {
    return {
        {"Latin1", "one of the few that every parser knows", kRead, Before(Declared("ISO-8859-1"))},
        {"Latin9", "with the Euro sign", kRead, Before(Declared("ISO-8859-15"))},
        {"Windows1252", "what Latin-1 often is", kRead, Before(Declared("windows-1252"))},
        {"Windows1251", "Cyrillic", kRead, Before(Declared("windows-1251"))},
        {"Koi8", "Cyrillic again", kRead, Before(Declared("KOI8-R"))},
        {"Ibm850", "as DOS had it", kRead, Before(Declared("IBM850"))},
        {"Ascii", "the smallest", kRead, Before(Declared("US-ASCII"))},
        {"AsciiWithMore", "bytes that it has not", kRefused,
         [](const std::string& xml) { return Declared("US-ASCII") + RootWith("\xE9")(xml); }},
        {"ShiftJis", "characters of two bytes, whose second may be a backslash", kRefused,
         Before(Declared("Shift_JIS"))},
        {"Windows31J", "the same by another name", kRefused, Before(Declared("windows-31j"))},
        {"Cp932", "and another", kRefused, Before(Declared("cp932"))},
        {"Big5", "characters of two bytes", kRefused, Before(Declared("Big5"))},
        {"Gb18030", "characters of four bytes", kRefused, Before(Declared("GB18030"))},
        {"EucJp", "characters of three bytes", kRefused, Before(Declared("EUC-JP"))},
        {"EucKr", "characters of two bytes", kRefused, Before(Declared("EUC-KR"))},
        {"Iso2022Jp", "characters that depend on what came before", kRefused,
         Before(Declared("ISO-2022-JP"))},
        {"Hz", "as above", kRefused, Before(Declared("HZ-GB-2312"))},
        {"EbcdicByName", "ASCII bytes that claim to be EBCDIC", kRefused, Before(Declared("IBM037"))},
        {"Unknown", "a name that nobody knows", kRefused, Before(Declared("x-nobody"))},
        {"UnknownOfAKnownFamily", "a number that nobody knows", kRefused,
         Before(Declared("windows-9999"))},
        {"Empty", "no name", kRefused, Before(Declared(""))},
        {"OfManyBytes", "a name that no table has", kRefused,
         Before(Declared("windows-" + Repeat("1252", 25'000)))},
        {"OfAPath", "a table that a name could load", kRefused, Before(Declared("../../etc/passwd"))},
        {"OfAPathWithinAName", "as above", kRefused, Before(Declared("cp/../../../tmp/x"))},
        {"WithANulInItsName", "names do not end there", kRefused, Before(Declared("UTF-8\0x"s))},
        {"WithABlankInItsName", "nor there", kRefused, Before(Declared(" UTF-8"))},
        {"OfLettersBeyondAscii", "names are ASCII", kRefused, Before(Declared("\xC3\xBCtf-8"))},
    };
}

// What becomes of characters: the Id of a part's relationship, and how it is shown.
struct Letters {
    std::string name;
    std::string purpose;
    std::string head;
    std::string id;
    std::string shown;
};

CraftedPackage Case(const Letters& letters) {
    return {letters.name, letters.purpose,
            [letters] {
                const std::string xml = RelationshipsXml(RelationshipXml(letters.id, kImage, "a.png"));
                return SmallPackageWith(kDocumentRelationshipsEntry, letters.head + xml).Bytes();
            },
            kDocumentText + "word/document.xml: " + letters.shown +
                " image -> word/a.png\nword/a.png: image/png \"pixels\"\n"};
}

CraftedPackages LetterCases() {
    const Letters rows[] = {
        {"Utf8", "one to four bytes", "", "a\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E",
         "a\\u00E9\\u20AC\\uD834\\uDD1E"},
        {"Utf8DeclaredAsLatin1", "each byte is a character", Declared("ISO-8859-1"), "\xC3\xA9",
         "\\u00C3\\u00A9"},
        {"Utf8MarkedAndDeclaredAsLatin1", "also after a mark", kUtf8Mark + Declared("ISO-8859-1"),
         "\xC3\xA9", "\\u00C3\\u00A9"},
        {"Latin1", "0x80 is a control character", Declared("ISO-8859-1"), "\xE9\x80", "\\u00E9\\u0080"},
        {"Latin9", "the Euro sign is at 0xA4", Declared("ISO-8859-15"), "\xE9\xA4", "\\u00E9\\u20AC"},
        {"Windows1252", "the Euro sign is at 0x80", Declared("windows-1252"), "\xE9\x80",
         "\\u00E9\\u20AC"},
        {"Windows1251", "capital De", Declared("windows-1251"), "\xC4", "\\u0414"},
        {"Koi8", "the same letter elsewhere", Declared("KOI8-R"), "\xE4", "\\u0414"},
        {"References", "numbers mean the same in every encoding", Declared("windows-1251"),
         "&#233;&#x20AC;&#x1D11E;", "\\u00E9\\u20AC\\uD834\\uDD1E"},
    };
    CraftedPackages cases;
    for (const Letters& row : rows) cases.push_back(Case(row));
    return cases;
}

INSTANTIATE_TEST_SUITE_P(XmlInUtf8, HostileXml, testing::ValuesIn(Utf8Cases()), NameOfXml);
INSTANTIATE_TEST_SUITE_P(XmlInUtf16, HostileXml, testing::ValuesIn(Utf16Cases()), NameOfXml);
INSTANTIATE_TEST_SUITE_P(XmlInMoreBytes, HostileXml, testing::ValuesIn(WiderCases()), NameOfXml);
INSTANTIATE_TEST_SUITE_P(XmlEncoding, HostileXml, testing::ValuesIn(ByteCases()), NameOfXml);
INSTANTIATE_TEST_SUITE_P(XmlLetters, HostilePackage, testing::ValuesIn(LetterCases()), NameOfCase);

}  // namespace
