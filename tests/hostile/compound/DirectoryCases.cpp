// Directories that run in circles, and entries with odd types and times.

#include <string>

#include "tests/hostile/PackageText.h"
#include "tests/hostile/compound/CraftedStorage.h"

namespace {

using namespace vexpa_test;

// The small file's entries: the root, D, Small, Large and, in D, Inner.
constexpr std::uint32_t kRoot = 0;

std::function<std::string()> With32(std::u16string name, std::size_t field, std::uint32_t value) {
    return CompoundWith([=](CompoundImage& image) { image.Put32(image.EntryOf(name) + field, value); });
}

std::function<std::string()> WithLink(std::u16string from, std::size_t link, std::u16string to) {
    return CompoundWith(
        [=](CompoundImage& image) { image.Put32(image.EntryOf(from) + link, image.NumberOf(to)); });
}

std::function<std::string()> WithType(std::u16string name, std::uint8_t type) {
    return CompoundWith([=](CompoundImage& image) { image.Put8(image.EntryOf(name) + kType, type); });
}

std::string Without(const std::string& elements) {
    std::string text = SmallCompoundText();
    return text.erase(text.find(elements), elements.size());
}

// In order of size, D is the smallest name and Small and Large hang on it in a tree.
CraftedStorages TreeCases() {
    return {
        {"AStorageWithinItself", "down for ever", kNoStorage, WithLink(u"D", kChild, u"D")},
        {"TheRootWithinItself", "down for ever", kNoStorage,
         WithLink(u"Root Entry", kChild, u"Root Entry")},
        {"TheRootWithinAStorage", "down for ever, by way of another", kNoStorage,
         WithLink(u"D", kChild, u"Root Entry")},
        {"AnEntryBesideItself", "sideways for ever", kNoStorage, WithLink(u"Inner", kLeft, u"Inner")},
        {"AnEntryBesideItselfToTheRight", "sideways for ever", kNoStorage,
         WithLink(u"Inner", kRight, u"Inner")},
        {"TwoEntriesBesideOneAnother", "sideways in turn", kNoStorage,
         WithLink(u"Small", kRight, u"Large")},
        {"AnEntryInTwoStorages", "one stream in two places", kNoStorage,
         WithLink(u"Inner", kRight, u"Small")},
        {"AStorageBesideWhatItHolds", "sideways and down", kNoStorage, WithLink(u"Inner", kLeft, u"D")},
        {"ARootBesideItself", "the root is in no storage", kNoStorage,
         WithLink(u"Root Entry", kLeft, u"Root Entry")},
        {"ARootWithSiblings", "the root is in no storage", kNoStorage,
         WithLink(u"Root Entry", kRight, u"Small")},
        {"AnEntryThatIsNotThere", "beyond the directory", kNoStorage, With32(u"D", kChild, 1'000)},
        {"AnEntryJustBeyondTheDirectory", "beyond the directory by one", kNoStorage,
         With32(u"D", kChild, 8)},
        {"AnEntryThatIsNotUsed", "an empty entry is no element", Without("Inner \"inside\""),
         With32(u"D", kChild, 7)},
        {"AnEntryFarBeyond", "an offset that runs over", kNoStorage, With32(u"D", kChild, 0x02000000)},
        {"AStreamWithElements", "streams have none, whatever they say", SmallCompoundText(),
         WithLink(u"Small", kChild, u"Root Entry")},
        {"AStreamWithElementsThatAreNotThere", "nobody looks for them", SmallCompoundText(),
         With32(u"Small", kChild, 1'000'000)},
        {"ColoursOfNoTree", "nobody looks at them", SmallCompoundText(),
         CompoundWith([](CompoundImage& image) {
             for (std::uint32_t i = 0; i < 5; ++i) image.Put8(image.EntryAt(i) + kColour, 0x7F);
         })},
        {"NoChild", "so all is lost", "{}",
         CompoundWith([](CompoundImage& image) { image.Put32(image.EntryAt(kRoot) + kChild, kNone); })},
        {"ATreeOutOfOrder", "names are compared, not searched in a tree", SmallCompoundText(),
         CompoundWith([](CompoundImage& image) {
             const std::uint32_t child = image.Get32(image.EntryAt(kRoot) + kChild);
             const std::size_t at = image.EntryAt(child);
             const std::uint32_t left = image.Get32(at + kLeft);
             image.Put32(at + kLeft, image.Get32(at + kRight));
             image.Put32(at + kRight, left);
         })},
    };
}

CraftedStorages TypeCases() {
    return {
        {"OfNothing", "an unused entry is no element", Without("D{Inner \"inside\"}, "),
         WithType(u"D", 0)},
        {"OfThree", "a kind that nobody writes", Without(", Small \"small content\""),
         WithType(u"Small", 3)},
        {"OfFour", "another one", Without("D{Inner \"inside\"}, "), WithType(u"D", 4)},
        {"OfAllOnes", "no kind at all", Without(", Small \"small content\""), WithType(u"Small", 0xFF)},
        {"OfAStreamForAStorage", "a stream of the storage's size",
         "{D \"\", Large " + BytesText(LargeContent()) + ", Small \"small content\"}",
         WithType(u"D", kStreamType)},
        {"OfAStorageForAStream", "a storage that holds nothing",
         "{D{Inner \"inside\"}, Large " + BytesText(LargeContent()) + ", Small{}}",
         WithType(u"Small", kStorageType)},
        {"OfASecondRoot", "a root in a storage is a storage", SmallCompoundText(),
         WithType(u"D", kRootType)},
        {"OfAStorageForTheRoot", "the first entry is the root", SmallCompoundText(),
         WithType(u"Root Entry", kStorageType)},
        {"OfAStreamForTheRoot", "the first entry is the root", SmallCompoundText(),
         WithType(u"Root Entry", kStreamType)},
        {"OfNothingForTheRoot", "then there is none", kNoStorage, WithType(u"Root Entry", 0)},
        {"OfAllOnesForTheRoot", "then there is none", kNoStorage, WithType(u"Root Entry", 0xFF)},
    };
}

CraftedStorages StampCases() {
    const auto with = [](std::size_t field, std::uint32_t low, std::uint32_t high) {
        return CompoundWith([=](CompoundImage& image) {
            for (const std::u16string name : {u"Root Entry", u"D", u"Small", u"Large"}) {
                image.Put32(image.EntryOf(name) + field, low);
                image.Put32(image.EntryOf(name) + field + 4, high);
            }
        });
    };
    return {
        {"ChangedNever", "zero is no time", SmallCompoundText(), with(kModified, 0, 0)},
        {"ChangedFirst", "a moment after 1601", SmallCompoundText(), with(kModified, 1, 0)},
        {"ChangedLast", "the largest time there is", SmallCompoundText(),
         with(kModified, 0xFFFFFFFF, 0xFFFFFFFF)},
        {"ChangedBeyondCalendars", "a year that no calendar has", SmallCompoundText(),
         with(kModified, 0, 0x7FFFFFFF)},
        {"CreatedLast", "nobody looks at it", SmallCompoundText(),
         with(kCreated, 0xFFFFFFFF, 0xFFFFFFFF)},
        {"OfAnyState", "nobody looks at it", SmallCompoundText(), with(kState, 0xFFFFFFFF, 0xFFFFFFFF)},
        {"OfAnyClass", "a class is 16 bytes of any value", SmallCompoundText(),
         with(kClass, 0xFFFFFFFF, 0xFFFFFFFF)},
    };
}

INSTANTIATE_TEST_SUITE_P(CompoundTree, HostileStorage, testing::ValuesIn(TreeCases()), NameOfStorage);
INSTANTIATE_TEST_SUITE_P(CompoundType, HostileStorage, testing::ValuesIn(TypeCases()), NameOfStorage);
INSTANTIATE_TEST_SUITE_P(CompoundStamp, HostileStorage, testing::ValuesIn(StampCases()), NameOfStorage);

}  // namespace
