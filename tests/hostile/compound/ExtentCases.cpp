// Directories that are very deep or very wide, and files that stop anywhere.

#include <pthread.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "runtime/com/CompoundCheck.h"
#include "tests/hostile/PackageText.h"
#include "tests/hostile/compound/CraftedStorage.h"
#include "tests/support/Sanitizers.h"

namespace {

using namespace vexpa_test;
using vexpa_runtime::kMaxDirectoryDepth;
using vexpa_runtime::kMaxStorageElements;
using vexpa_runtime::kMaxTableEntries;

// `levels` storages, one in another.
CompoundImage Nested(std::size_t levels, std::size_t twins = 1, const CompoundLayout& layout = {}) {
    CompoundImage image(Elements(levels * twins, Storage(u"D")), layout);
    const auto number = [=](std::size_t level) {
        return static_cast<std::uint32_t>(1 + level * twins);
    };
    for (std::uint32_t entry = 0; entry <= levels * twins; ++entry) {
        for (const std::size_t link : {kLeft, kRight, kChild})
            image.Put32(image.EntryAt(entry) + link, kNone);
    }
    image.Put32(image.EntryAt(0) + kChild, 1);
    for (std::size_t level = 0; level < levels; ++level) {
        if (twins == 2) image.Put32(image.EntryAt(number(level)) + kRight, number(level) + 1);
        if (level + 1 == levels) break;
        const std::size_t last = image.EntryAt(static_cast<std::uint32_t>(number(level) + twins - 1));
        image.Put32(last + kChild, number(level + 1));
    }
    return image;
}

// `count` streams in the root, each to the right of the one before.
CompoundImage InARow(std::size_t count, const CompoundLayout& layout = {}) {
    CompoundImage image(Elements(count, {u"S"}), layout);
    for (std::uint32_t entry = 1; entry <= count; ++entry) {
        image.Put32(image.EntryAt(entry) + kLeft, kNone);
        image.Put32(image.EntryAt(entry) + kRight, entry == count ? kNone : entry + 1);
    }
    image.Put32(image.EntryAt(0) + kChild, 1);
    return image;
}

Elements Streams(std::size_t count) {
    Elements streams;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string digits = std::to_string(100'000 + i);
        streams.push_back({{digits.begin(), digits.end()}});
    }
    return streams;
}

std::string StreamsText(std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += (i == 0 ? "" : ", ") + std::to_string(100'000 + i) + " \"\"";
    }
    return "{" + text + "}";
}

std::string NestedText(std::size_t levels, const std::string& innermost) {
    std::string text = innermost;
    for (std::size_t i = 0; i < levels; ++i) text = "{D" + text + "}";
    return text;
}

CraftedStorages ExtentCases() {
    return {
        {"OfStoragesAsDeepAsTheyMayBe", "each level is a call of the library", NestedText(65, "{...}"),
         [] { return Nested(kMaxDirectoryDepth - 1).bytes; }},
        {"OfStoragesOneDeeper", "so there is an end", kNoStorage,
         [] { return Nested(kMaxDirectoryDepth).bytes; }},
        {"OfStoragesThatOverflowAStack", "a hundred thousand calls", kNoStorage,
         [] { return Nested(100'000).bytes; }},
        {"OfStoragesUnderARootThatIsAStream", "the root is looked into whatever it says", kNoStorage,
         [] {
             CompoundImage image = Nested(100'000);
             image.Put8(image.EntryAt(0) + kType, kStreamType);
             return image.bytes;
         }},
        {"OfTwinsAtThirtyLevels", "seen twice each would be a thousand million", NestedText(31, "{}"),
         [] { return Nested(31, 2).bytes; }},
        {"OfSiblingsAsFarAsTheyMayBe", "each sibling is a call as well", "{S \"\"}",
         [] { return InARow(kMaxDirectoryDepth - 1).bytes; }},
        {"OfSiblingsOneFarther", "so there is an end", kNoStorage,
         [] { return InARow(kMaxDirectoryDepth).bytes; }},
        {"OfAsManyElementsAsAStorageMayHave", "a list that is searched for each of them",
         StreamsText(kMaxStorageElements - 1),
         [] { return CompoundImage(Streams(kMaxStorageElements - 1)).bytes; }},
        {"OfOneElementMore", "so there is an end", kNoStorage,
         [] { return CompoundImage(Streams(kMaxStorageElements)).bytes; }},
        {"OfManyStreamsUnderALargeFat", "a bit for each entry of the table is cleared for each of them",
         kNoStorage,
         [] {
             CompoundImage image(Elements(5, Storage(u"S", Streams(8'000))),
                                 {.fatSectors = kMaxTableEntries / 128});
             for (std::uint32_t i = 6; i < 40'006; ++i) image.Put32(image.EntryAt(i) + kSize, 4'096);
             return image.bytes;
         }},
    };
}

// What can be left of the small file: no storage, or one in which streams do not read.
std::vector<std::string> Remains() {
    std::vector<std::string> remains{kNoStorage};
    for (const std::string& inner : {BytesText(kInnerText), std::string(kUnreadable)}) {
        for (const std::string& small : {BytesText(kSmallText), std::string(kUnreadable)}) {
            for (const std::string& large : {BytesText(LargeContent()), std::string(kUnreadable)}) {
                remains.push_back(SmallCompoundText(inner, small, large));
            }
        }
    }
    return remains;
}

// A stream of a cut file is either whole or not read; nothing is made up.
TEST(HostileCompound, IsNeverReadBeyondWhereItIsCut) {
    const std::string bytes = SmallCompound().bytes;
    const std::vector<std::string> remains = Remains();
    const auto step = [](std::size_t size) { return size % 512 < 2 || size % 512 > 509 ? 1u : 36u; };
    for (std::size_t size = 0; size < bytes.size(); size += step(size)) {
        SCOPED_TRACE(size);
        const std::string cut = bytes.substr(0, size);
        const std::string text = ReadAsPicture(cut);
        EXPECT_TRUE(std::any_of(remains.begin(), remains.end(), [&](const std::string& left) {
            return text == PictureText(cut, left);
        })) << text;
    }
}

// Whether the part is a storage.
bool IsStorage(const CompoundImage& image) {
    return ReadAsPicture(image.bytes).find(" {") != std::string::npos;
}

// Each element is put among its siblings, step by step.
TEST(HostileStorageSiblings, AreSoManyInAll) {
    const auto storagesOf = [](std::size_t storages, std::size_t streams) {
        return CompoundImage(Elements(storages, Storage(u"S", Streams(streams))));
    };
    EXPECT_TRUE(IsStorage(storagesOf(31, kMaxStorageElements)));
    EXPECT_FALSE(IsStorage(storagesOf(33, kMaxStorageElements)));
    EXPECT_TRUE(IsStorage(storagesOf(1'000, 100)));
}

#if VEXPA_SANITIZER_ALLOCATES || !defined(__OPTIMIZE__)
constexpr std::size_t kStack = 16 << 20;  // what is compiled so takes many times as much
#else
constexpr std::size_t kStack = 1 << 20;
#endif

void OnAStackOf(std::size_t size, const std::function<void()>& action) {
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, size), 0);
    const auto run = [](void* call) -> void* {
        (*static_cast<const std::function<void()>*>(call))();
        return nullptr;
    };
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, run, const_cast<std::function<void()>*>(&action)),
              0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

// The deepest that there may be, and with them the largest table: both lie on the stack.
TEST(HostileStorageStack, OfAMegabyteIsEnough) {
    constexpr CompoundLayout kLargest{9, kMaxTableEntries / 128, 0};
    for (const CompoundLayout& layout : {CompoundLayout{}, kLargest}) {
        for (const CompoundImage& image :
             {Nested(kMaxDirectoryDepth - 1, 1, layout), InARow(kMaxDirectoryDepth - 1, layout)}) {
            bool isStorage = false;
            OnAStackOf(kStack, [&] { isStorage = IsStorage(image); });
            EXPECT_TRUE(isStorage);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(CompoundDirectory, HostileStorage, testing::ValuesIn(ExtentCases()),
                         NameOfStorage);

}  // namespace
