#include <cstdint>

#include "tests/runtime/com/CompoundBytes.h"
#include "tests/worst/ShapeParts.h"
#include "tests/worst/Shapes.h"

namespace vexpa_test {

namespace {

std::string Number(std::size_t i) {
    return std::to_string(i);
}

std::string Entries() {
    ZipFile zip = PackageOf("");
    for (std::size_t i = 0; i < 11'800; ++i) zip.Add(Number(i), "").stored = true;
    return zip.Bytes();
}

std::string Parts() {
    constexpr std::size_t kParts = 11'000;
    ZipFile zip = PackageOf(Each(kParts, [](std::size_t i) { return Related(Number(i), Number(i)); }));
    for (std::size_t i = 0; i < kParts; ++i) zip.Add(Number(i), "").stored = true;
    return zip.Bytes();
}

std::string PartsWithWildcards() {
    constexpr std::size_t kParts = 9'600;
    const auto name = [](std::size_t i) { return "*?*?*[" + Number(i); };
    ZipFile zip = PackageOf(Each(kParts, [&](std::size_t i) { return Related(Number(i), name(i)); }));
    for (std::size_t i = 0; i < kParts; ++i) zip.Add(name(i), "").stored = true;
    return zip.Bytes();
}

// Each pattern fits all the way to the end of each name, and there it does not.
std::string PartsThatNearlyMatch() {
    constexpr std::size_t kParts = 900;
    const auto name = [](std::size_t i) { return "_rels/*" + Repeated("a", 480) + "?" + Number(i); };
    ZipFile zip = PackageOf(Each(kParts, [&](std::size_t i) { return Related(Number(i), name(i)); }));
    for (std::size_t i = 0; i < kParts; ++i) zip.Add(name(i), "").stored = true;
    return zip.Bytes();
}

std::string ChainOfParts() {
    constexpr std::size_t kParts = 3'300;
    ZipFile zip = PackageOf(Related("0", "0"));
    for (std::size_t i = 0; i < kParts; ++i) {
        zip.Add(Number(i), "").stored = true;
        zip.Add("_rels/" + Number(i) + ".rels", Root(Related("0", Number(i + 1))));
    }
    return zip.Bytes();
}

std::string RelationshipsOfThePackage() {
    return PackageOf(Each(550'000, [](std::size_t i) { return Related(Number(i), "a.xml"); })).Bytes();
}

std::string RelationshipsOfAPart() {
    return PartOf(Each(550'000, [](std::size_t i) { return Related(Number(i), "a.xml"); })).Bytes();
}

std::string RelationshipsThatClimb() {
    return PartOf(Each(280'000, [](std::size_t i) { return Related(Number(i), "../../" + Number(i)); }))
        .Bytes();
}

// Every resolved target begins with a name of four thousand characters.
std::string RelationshipsInALongFolder() {
    const std::string folder = Repeated("f", 4'000);
    ZipFile zip = PackageOf(Related("0", folder + "/a"));
    zip.Add(folder + "/a", "").stored = true;
    zip.Add(folder + "/_rels/a.rels",
            Root(Each(280'000, [](std::size_t i) { return Related(Number(i), Number(i)); })));
    return zip.Bytes();
}

std::string Overrides() {
    return PackageOf("", Each(560'000,
                              [](std::size_t i) {
                                  return "<Override PartName='" + Number(i) + "' ContentType=''/>";
                              }))
        .Bytes();
}

std::string Defaults() {
    return PackageOf("", Each(560'000,
                              [](std::size_t i) {
                                  return "<Default Extension='" + Number(i) + "' ContentType=''/>";
                              }))
        .Bytes();
}

std::string AttributesOfOneElement() {
    return PackageOf(
               "", "<a " + Each(760'000, [](std::size_t i) { return "b" + Number(i) + "='' "; }) + "/>")
        .Bytes();
}

std::string NamesThatShareAHash() {
    constexpr std::size_t kBits = 13;
    const auto name = [](std::size_t i) {
        std::string text;
        for (std::size_t bit = 0; bit < kBits; ++bit) text += (i >> bit & 1) != 0 ? "AQ" : "BA";
        return text;
    };
    ZipFile zip = PackageOf("");
    for (std::size_t i = 0; i < 8'000; ++i) zip.Add(name(i), "").stored = true;
    return zip.Bytes();
}

std::string LongNames() {
    ZipFile zip = PackageOf("");
    for (std::size_t i = 0; i < 7; ++i) {
        const std::string name = Repeated("n", 65'000) + Number(i);
        zip.entries[1].content += Related(Number(i), name);
        zip.Add(name, "").stored = true;
    }
    return zip.Bytes();
}

std::string EndRecords() {
    ZipFile zip;
    for (std::size_t i = 0; i < 9'000; ++i) zip.Add("e" + Number(i), "").stored = true;
    zip.entryCount = 3;
    zip.directorySize = 0xFFFFFF00;
    const std::string bytes = zip.Bytes();
    return bytes + Repeated(bytes.substr(bytes.size() - 22), 2'900);
}

}  // namespace

std::vector<Shape> DenseShapes() {
    return {
        {"entries", Entries},
        {"parts", Parts},
        {"parts with wildcards", PartsWithWildcards},
        {"parts that nearly match", PartsThatNearlyMatch},
        {"chain of parts", ChainOfParts},
        {"relationships of the package", RelationshipsOfThePackage},
        {"relationships of a part", RelationshipsOfAPart},
        {"relationships that climb", RelationshipsThatClimb},
        {"relationships in a long folder", RelationshipsInALongFolder},
        {"overrides", Overrides},
        {"defaults", Defaults},
        {"attributes of one element", AttributesOfOneElement},
        {"names that share a hash", NamesThatShareAHash},
        {"long names", LongNames},
        {"end records", EndRecords},
    };
}

}  // namespace vexpa_test
