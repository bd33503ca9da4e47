#include <libdeflate.h>

#include <cstdint>

#include "tests/runtime/com/CompoundBytes.h"
#include "tests/worst/ShapeParts.h"
#include "tests/worst/Shapes.h"

namespace vexpa_test {

namespace {

constexpr std::size_t kMegabyte = 1 << 20;
constexpr std::size_t kNearlyAGigabyte = 1'000 * kMegabyte;

std::string Zeros(std::size_t size) {
    return std::string(size, '\0');
}

std::string OneLargePart() {
    ZipFile zip = PackageOf("");
    zip.entries[2] = {};
    zip.entries[2].name = "a.xml";
    zip.entries[2].content = Zeros(kNearlyAGigabyte);
    return zip.Bytes();
}

std::string ManyLargeParts() {
    constexpr std::size_t kParts = 240;
    const auto name = [](std::size_t i) { return std::to_string(i); };
    ZipFile zip = PackageOf(Each(kParts, [&](std::size_t i) { return Related(name(i), name(i)); }));
    for (std::size_t i = 0; i < kParts; ++i) zip.Add(name(i), Zeros(4 * kMegabyte));
    return zip.Bytes();
}

// As many part names as there are ways to write five separators, for one large entry.
std::string ManySpellings() {
    constexpr std::size_t kSeparators = 5;
    const auto name = [](std::size_t i) {
        std::string text = "a";
        for (std::size_t bit = 0; bit < kSeparators; ++bit) text += (i >> bit & 1) != 0 ? "\\a" : "/a";
        return text;
    };
    ZipFile zip = PackageOf(
        Each(1 << kSeparators, [&](std::size_t i) { return Related(std::to_string(i), name(i)); }));
    zip.Add(name(0), Zeros(kNearlyAGigabyte / 4));
    return zip.Bytes();
}

// Entries that all lie over one deflated block.
std::string Overlapping(std::size_t count, std::size_t unpacked) {
    const auto name = [](std::size_t i) { return std::to_string(i) + ".x"; };
    const std::string zeros = Zeros(unpacked);
    const std::uint32_t crc = libdeflate_crc32(0, zeros.data(), zeros.size());
    ZipFile alone;
    alone.Add("x", zeros);
    std::string block = alone.Bytes();
    block.resize(block.find("PK\1\2"));

    ZipFile zip =
        PackageOf(Each(count, [&](std::size_t i) { return Related(std::to_string(i), name(i)); }));
    const std::size_t position = zip.Bytes().find("PK\1\2");
    for (std::size_t i = 0; i < count; ++i) {
        constexpr std::size_t kHeaderAndName = 31;
        ZipEntry& entry = zip.Add(name(i), "");
        entry.rawData = i == 0 ? block : "";
        entry.method = 8;
        // Behind the first one's own header comes that of the block.
        entry.localOffset = position + 30 + name(0).size();
        entry.compressedSize = block.size() - kHeaderAndName;
        entry.size = unpacked;
        entry.crc = crc;
    }
    return zip.Bytes();
}

std::string OverlapOfFortyKilobytes() {
    return Overlapping(250, 4 * kMegabyte);
}

std::string OverlapOfAMegabyte() {
    return Overlapping(9'000, 64 * kMegabyte);
}

std::string BlanksForContentTypes() {
    return PackageOf("", Repeated(" ", 31 * kMegabyte)).Bytes();
}

std::string BlanksForRelationships() {
    return PackageOf(Repeated(" ", 31 * kMegabyte)).Bytes();
}

std::string TooManyBlanks() {
    return PackageOf(Repeated(" ", kNearlyAGigabyte)).Bytes();
}

std::string ElementsForContentTypes() {
    return PackageOf("", Repeated("<a/>", 1'999'000)).Bytes();
}

std::string EmptyRelationships() {
    return PackageOf(Repeated("<Relationship Id=''/>", 999'000)).Bytes();
}

std::string EmptyRelationshipsOfManyParts() {
    constexpr std::size_t kParts = 20;
    const auto name = [](std::size_t i) { return std::to_string(i); };
    ZipFile zip = PackageOf(Each(kParts, [&](std::size_t i) { return Related(name(i), name(i)); }));
    for (std::size_t i = 0; i < kParts; ++i) {
        zip.Add(name(i), "").stored = true;
        zip.Add("_rels/" + name(i) + ".rels", Root(Repeated("<Relationship Id=''/>", 999'000)));
    }
    return zip.Bytes();
}

std::string ElementsInStreamsOfManyParts() {
    constexpr std::size_t kParts = 120;
    const auto name = [](std::size_t i) { return std::to_string(i); };
    ZipFile zip = PackageOf(Each(kParts, [&](std::size_t i) { return Related(name(i), name(i)); }));
    for (std::size_t i = 0; i < kParts; ++i) {
        zip.Add(name(i), "").stored = true;
        zip.Add("_rels/" + name(i) + ".rels", Root(Repeated("<a/>", 1'999'000)));
    }
    return zip.Bytes();
}

std::string ALongTarget() {
    return PartOf(Related("1", Repeated("t", 31 * kMegabyte))).Bytes();
}

std::string ATargetOfSteps() {
    return PartOf(Related("1", Repeated("../", 10 * kMegabyte))).Bytes();
}

std::string ATargetOfEscapes() {
    return PartOf(Related("1", Repeated("%41", 10 * kMegabyte))).Bytes();
}

std::string ContentTypeOfManyParts() {
    constexpr std::size_t kParts = 5'000;
    const auto name = [](std::size_t i) { return std::to_string(i); };
    ZipFile zip =
        PackageOf(Each(kParts, [&](std::size_t i) { return Related(name(i), name(i) + ".x"); }),
                  "<Default Extension='x' ContentType='" + Repeated("t", 30 * kMegabyte) + "'/>");
    for (std::size_t i = 0; i < kParts; ++i) zip.Add(name(i) + ".x", "").stored = true;
    return zip.Bytes();
}

// Siblings as a balanced tree, so that it is wide and not deep.
std::uint32_t Link(std::vector<RawEntry>& entries, std::uint32_t first, std::uint32_t end) {
    if (first >= end) return kNoEntry;
    const std::uint32_t middle = (first + end) / 2;
    entries[middle].left = Link(entries, first, middle);
    entries[middle].right = Link(entries, middle + 1, end);
    return middle;
}

std::string WideCompoundFile() {
    constexpr std::uint32_t kElements = 2'040;
    std::vector<RawEntry> entries(kElements + 1);
    entries[0].type = 5;
    for (std::uint32_t i = 1; i <= kElements; ++i) {
        entries[i].name.assign(1, static_cast<char16_t>(0x4E00 + i));
        entries[i].type = 2;
    }
    entries[0].child = Link(entries, 1, kElements + 1);
    return RawCompoundBytes(entries, 1);
}

// Storages as wide as they may be, and of those as many as there may be in one file.
std::string WideStorages() {
    constexpr std::uint32_t kFiles = 3, kStorages = 24, kElements = 2'040;
    std::vector<RawEntry> entries(1 + kStorages + kStorages * kElements);
    entries[0].type = 5;
    for (std::uint32_t i = 1; i < entries.size(); ++i) {
        const bool isStorage = i <= kStorages;
        const std::uint32_t number = isStorage ? i : (i - kStorages - 1) % kElements;
        entries[i].name.assign(1, static_cast<char16_t>(0x4E00 + number));
        entries[i].type = isStorage ? 1 : 2;
    }
    entries[0].child = Link(entries, 1, kStorages + 1);
    for (std::uint32_t i = 0; i < kStorages; ++i) {
        const std::uint32_t first = 1 + kStorages + i * kElements;
        entries[1 + i].child = Link(entries, first, first + kElements);
    }
    const std::string compound = RawCompoundBytes(entries, 1);
    const auto name = [](std::size_t i) { return std::to_string(i) + ".bin"; };
    ZipFile zip = PackageOf(Each(kFiles, [&](std::size_t i) { return Related(name(i), name(i)); }));
    for (std::size_t i = 0; i < kFiles; ++i) zip.Add(name(i), compound);
    return zip.Bytes();
}

std::string CompoundFiles() {
    constexpr std::size_t kParts = 72;
    const auto name = [](std::size_t i) { return std::to_string(i) + ".bin"; };
    const std::string compound = WideCompoundFile();
    ZipFile zip = PackageOf(Each(kParts, [&](std::size_t i) { return Related(name(i), name(i)); }));
    for (std::size_t i = 0; i < kParts; ++i) zip.Add(name(i), compound);
    return zip.Bytes();
}

}  // namespace

std::vector<Shape> BombShapes() {
    return {
        {"one large part", OneLargePart},
        {"many large parts", ManyLargeParts},
        {"many spellings of a large part", ManySpellings},
        {"overlap of 40 kB", OverlapOfFortyKilobytes},
        {"overlap of 1 MB", OverlapOfAMegabyte},
        {"blanks for content types", BlanksForContentTypes},
        {"blanks for relationships", BlanksForRelationships},
        {"too many blanks", TooManyBlanks},
        {"elements for content types", ElementsForContentTypes},
        {"empty relationships", EmptyRelationships},
        {"empty relationships of many parts", EmptyRelationshipsOfManyParts},
        {"elements in streams of many parts", ElementsInStreamsOfManyParts},
        {"a long target", ALongTarget},
        {"a target of steps", ATargetOfSteps},
        {"a target of escapes", ATargetOfEscapes},
        {"a long content type of many parts", ContentTypeOfManyParts},
        {"compound files", CompoundFiles},
        {"compound files of wide storages", WideStorages},
    };
}

}  // namespace vexpa_test
