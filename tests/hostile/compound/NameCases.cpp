// Names of elements that are empty, too long, no text or not the only ones.

#include <string>

#include "tests/hostile/PackageText.h"
#include "tests/hostile/compound/CraftedStorage.h"

namespace {

using namespace vexpa_test;

// The stream Small by another name.
std::function<std::string()> Named(std::u16string name, std::size_t size) {
    return CompoundWith([=](CompoundImage& image) {
        const std::size_t entry = image.EntryOf(u"Small");
        image.bytes.replace(entry, kNameSize, std::string(kNameSize, '\0'));
        image.PutName(entry, name, static_cast<std::uint16_t>(size));
    });
}

std::function<std::string()> Named(const std::u16string& name) {
    return Named(name, 2 * (name.size() + 1));
}

// Elements are in order of size, then of letters.
enum class Place { kFirst, kBeforeLarge, kLast };

std::string NamedText(const std::string& name, Place place) {
    const std::string small = name + " \"small content\"";
    const std::string d = "D{Inner \"inside\"}";
    const std::string large = "Large " + BytesText(LargeContent());
    if (place == Place::kFirst) return "{" + small + ", " + d + ", " + large + "}";
    if (place == Place::kLast) return "{" + d + ", " + large + ", " + small + "}";
    return "{" + d + ", " + small + ", " + large + "}";
}

CraftedStorages NameCases() {
    return {
        {"OfNoUnits", "an element without a name", NamedText("(empty)", Place::kFirst), Named(u"", 0)},
        {"OfATerminatorAlone", "an element without a name", NamedText("(empty)", Place::kFirst),
         Named(u"", 2)},
        {"OfOneUnit", "the shortest name", NamedText("X", Place::kBeforeLarge), Named(u"X")},
        {"Of31Units", "the longest name", NamedText(std::string(31, 'x'), Place::kLast),
         Named(std::u16string(31, 'x'))},
        {"Of32Units", "a name without a terminator", NamedText(std::string(32, 'x'), Place::kLast),
         Named(std::u16string(32, 'x'), 64)},
        {"OfASizeOf66", "a name that is longer than its field", NamedText("(empty)", Place::kFirst),
         Named(std::u16string(32, 'x'), 66)},
        {"OfASizeOfAllOnes", "as above", NamedText("(empty)", Place::kFirst), Named(u"Small", 0xFFFF)},
        {"OfAnOddSize", "half a unit more", NamedText("Small", Place::kLast), Named(u"Small", 11)},
        {"OfTooSmallASize", "the size says where it ends", NamedText("Sm", Place::kBeforeLarge),
         Named(u"Small", 4)},
        {"OfTooLargeASize", "a name ends at its first NUL", NamedText("Small", Place::kLast),
         Named(u"Small", 64)},
        {"WithANul", "a name ends at its first NUL", NamedText("Sm", Place::kBeforeLarge),
         Named(std::u16string(u"Sm\0ll", 5))},
        {"WithANulFirst", "so there is none", NamedText("(empty)", Place::kFirst),
         Named(std::u16string(u"\0mall", 5))},
        {"WithSlashes", "which the format forbids; no path is made of it",
         NamedText("../a\\b:c!", Place::kLast), Named(u"../a\\b:c!")},
        {"OfControlCharacters", "as property sets have it",
         NamedText("\\u0005Sum", Place::kBeforeLarge), Named(u"\u0005Sum")},
        {"OfBlanks", "names of nothing to see", NamedText("\\u0020\\u0020", Place::kBeforeLarge),
         Named(u"  ")},
        {"OfLettersBeyondAscii", "as any letters", NamedText("\\u00C4\\u4E2D", Place::kBeforeLarge),
         Named(u"\u00C4\u4E2D")},
        {"OfAPair", "a character of two units", NamedText("\\uD834\\uDD1E", Place::kBeforeLarge),
         Named(u"\U0001D11E")},
        {"OfHalfAPair", "no text, so no name", NamedText("(empty)", Place::kFirst), Named(u"\xD834x")},
        {"OfATurnedPair", "no text, so no name", NamedText("(empty)", Place::kFirst),
         Named(u"\xDD1E\xD834")},
        {"OfNoncharacters", "as any characters", NamedText("\\uFFFE\\uFFFF", Place::kBeforeLarge),
         Named(u"\uFFFE\uFFFF")},
        {"InBytes", "as some programs write it", NamedText("Small", Place::kLast),
         CompoundWith([](CompoundImage& image) {
             const std::size_t entry = image.EntryOf(u"Small");
             image.bytes.replace(entry, 10, std::string("Small\0\0\0\0\0", 10));
             image.Put16(entry + kNameSize, 6);
         })},
        {"OfTheRoot", "the root's is not used", SmallCompoundText(),
         CompoundWith([](CompoundImage& image) {
             image.PutName(image.EntryAt(0), std::u16string(32, u'\xD834'), 64);
         })},
    };
}

CraftedStorages DuplicateCases() {
    const auto made = [](Elements elements) { return [=] { return CompoundImage(elements).bytes; }; };
    return {
        {"Exact", "of one name one is shown, and the same is opened", "{A \"first\"}",
         made({{u"A", "first"}, {u"A", "second"}})},
        {"InOtherCase", "case does not tell names apart", "{A \"capital\"}",
         made({{u"A", "capital"}, {u"a", "small"}})},
        {"BeyondAscii", "of no letters", "{\\u0416 \"capital\"}",
         made({{u"\u0416", "capital"}, {u"\u0436", "small"}})},
        {"OfStreamAndStorage", "whatever they are", "{A \"stream\"}",
         made({{u"A", "stream"}, Storage(u"A")})},
        {"OfNamesThatAreNone", "names that are no text are the same name", "{(empty) \"first\"}",
         made({{u"\xD800x", "first"}, {u"\xD800y", "second"}})},
        {"ThatAreNot", "blanks and letters count", "{A \"1\", A\\u0020 \"2\", AA \"3\"}",
         made({{u"A", "1"}, {u"A ", "2"}, {u"AA", "3"}})},
    };
}

INSTANTIATE_TEST_SUITE_P(CompoundName, HostileStorage, testing::ValuesIn(NameCases()), NameOfStorage);
INSTANTIATE_TEST_SUITE_P(CompoundDuplicates, HostileStorage, testing::ValuesIn(DuplicateCases()),
                         NameOfStorage);

}  // namespace
