// Parts that are related in circles, and parts too deep in folders to be related at all.

#include <string>
#include <vector>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/PackageText.h"
#include "tests/hostile/relationships/RelatedPackage.h"

namespace {

using namespace vexpa_test;

// A package of parts, each related to those named.
struct Part {
    std::string name;
    std::vector<std::string> targets;
};

ZipFile Related(const std::vector<Part>& parts) {
    ZipFile zip;
    zip.Add(kContentTypesEntry, "<Types/>");
    for (const Part& part : parts) {
        std::string elements;
        for (std::size_t i = 0; i < part.targets.size(); ++i) {
            elements += RelationshipXml("r" + std::to_string(i), "urn:t", part.targets[i]);
        }
        const std::size_t name = part.name.rfind('/') + 1;
        zip.Add(part.name.substr(0, name) + "_rels/" + part.name.substr(name) + ".rels",
                RelationshipsXml(elements));
        if (!part.name.empty()) zip.Add(part.name, part.name).stored = true;
    }
    return zip;
}

std::string RelatedBytes(const std::vector<Part>& parts) {
    return Related(parts).Bytes();
}

// The package whose relationship stream is a part.
ZipFile RelatedStreams() {
    ZipFile zip = Related({{"", {"_rels/.rels"}}});
    zip.Add("_rels/_rels/.rels.rels",
            RelationshipsXml(RelationshipXml("r0", "urn:t", ".rels") +
                             RelationshipXml("r1", "urn:t", "_rels/.rels.rels") +
                             RelationshipXml("r2", "urn:t", "/_rels/.rels")));
    return zip;
}

CraftedPackages CycleCases() {
    return {
        {"OfTwo", "each is read once",
         [] {
             return RelatedBytes({{"", {"a"}}, {"a", {"/b"}}, {"b", {"/a"}}});
         },
         "package: r0 type urn:t -> a\n"
         "a: (empty) \"a\"\n"
         "a: r0 type urn:t -> b\n"
         "b: (empty) \"b\"\n"
         "b: r0 type urn:t -> a\n"},
        {"OfOne", "of which there is one part",
         [] {
             return RelatedBytes({{"", {"a"}}, {"a", {"/a", "a", "../a", "//a"}}});
         },
         "package: r0 type urn:t -> a\n"
         "a: (empty) \"a\"\n"
         "a: r0 type urn:t -> a\n"
         "a: r1 type urn:t -> a\n"
         "a: r2 type urn:t -> a\n"
         "a: r3 type urn:t -> /a\n"},
        {"OfOneUnderTwoNames", "with and without a slash in front it is the same part",
         [] {
             return RelatedBytes({{"", {"/d/a", "d/a", "\\d/a"}}, {"d/a", {"b", "/d/b"}}, {"d/b", {}}});
         },
         "package: r0 type urn:t -> /d/a\n"
         "package: r1 type urn:t -> d/a\n"
         "package: r2 type urn:t -> \\d/a\n"
         "/d/a: (empty) \"d/a\"\n"
         "/d/a: r0 type urn:t -> d/b\n"
         "/d/a: r1 type urn:t -> d/b\n"
         "d/b: (empty) \"d/b\"\n"},
        {"OfAThousand", "a chain that bites its tail, without a call for each link",
         [] {
             std::vector<Part> parts{{"", {"p0"}}};
             for (int i = 0; i < 1000; ++i) {
                 parts.push_back({"p" + std::to_string(i), {"/p" + std::to_string((i + 1) % 1000)}});
             }
             return RelatedBytes(parts);
         },
         "package: r0 type urn:t -> p0\n"
         "p0: (empty) \"p0\"\n"
         "p0: r0 type urn:t -> p1\n"
         "p1: (empty) \"p1\"\n"
         "p1: r0 type urn:t -> p2\n"
         "p2: (empty) \"p2\"\n"
         "p2: r0 type urn:t -> p3\n"
         "p3: (empty) \"p3\"\n"
         "p3: r0 type urn:t -> p4\n"
         "p4: (empty) \"p4\"\n"
         "p4: r0 type urn:t -> p5\n"
         "p5: (empty) \"p5\"\n"
         "(1977 more lines)\n"
         "p994: (empty) \"p994\"\n"
         "p994: r0 type urn:t -> p995\n"
         "p995: (empty) \"p995\"\n"
         "p995: r0 type urn:t -> p996\n"
         "p996: (empty) \"p996\"\n"
         "p996: r0 type urn:t -> p997\n"
         "p997: (empty) \"p997\"\n"
         "p997: r0 type urn:t -> p998\n"
         "p998: (empty) \"p998\"\n"
         "p998: r0 type urn:t -> p999\n"
         "p999: (empty) \"p999\"\n"
         "p999: r0 type urn:t -> p0\n"},
        {"OfEveryoneWithEveryone", "thirty parts and nine hundred relationships",
         [] {
             std::vector<std::string> names;
             for (int i = 0; i < 30; ++i) names.push_back("/p" + std::to_string(10 + i));
             std::vector<Part> parts{{"", names}};
             for (const std::string& name : names) parts.push_back({name.substr(1), names});
             return RelatedBytes(parts);
         },
         "package: r0 type urn:t -> /p10\n"
         "package: r1 type urn:t -> /p11\n"
         "package: r10 type urn:t -> /p20\n"
         "package: r11 type urn:t -> /p21\n"
         "package: r12 type urn:t -> /p22\n"
         "package: r13 type urn:t -> /p23\n"
         "package: r14 type urn:t -> /p24\n"
         "package: r15 type urn:t -> /p25\n"
         "package: r16 type urn:t -> /p26\n"
         "package: r17 type urn:t -> /p27\n"
         "package: r18 type urn:t -> /p28\n"
         "package: r19 type urn:t -> /p29\n"
         "(936 more lines)\n"
         "/p19: r25 type urn:t -> p35\n"
         "/p19: r26 type urn:t -> p36\n"
         "/p19: r27 type urn:t -> p37\n"
         "/p19: r28 type urn:t -> p38\n"
         "/p19: r29 type urn:t -> p39\n"
         "/p19: r3 type urn:t -> p13\n"
         "/p19: r4 type urn:t -> p14\n"
         "/p19: r5 type urn:t -> p15\n"
         "/p19: r6 type urn:t -> p16\n"
         "/p19: r7 type urn:t -> p17\n"
         "/p19: r8 type urn:t -> p18\n"
         "/p19: r9 type urn:t -> p19\n"},
        {"OfRelationshipStreams", "streams of streams end where the entries do",
         [] { return RelatedStreams().Bytes(); },
         "package: r0 type urn:t -> _rels/.rels\n"
         "_rels/.rels: (empty) " +
             StreamText(RelatedStreams(), "_rels/.rels") +
             "\n"
             "_rels/.rels: r0 type urn:t -> _rels/.rels\n"
             "_rels/.rels: r1 type urn:t -> _rels/_rels/.rels.rels\n"
             "_rels/.rels: r2 type urn:t -> _rels/.rels\n"
             "_rels/_rels/.rels.rels: (empty) " +
             StreamText(RelatedStreams(), "_rels/_rels/.rels.rels") + "\n"},
    };
}

// A part in a folder of so many units, the separator counted, related to the part beside it.
std::string DeepBytes(std::size_t units) {
    const std::string folder = std::string(units - 1, 'd') + "/";
    return RelatedBytes({{"", {folder + "a"}}, {folder + "a", {"b"}}, {folder + "b", {}}, {"b", {}}});
}

// What such a part of such a file name shows.
std::string DeepText(std::size_t units, char fileName) {
    const std::string name = std::string(units - 1, 'd') + "/" + fileName;
    return NameText(Utf16(name)) + ": (empty) " + BytesText(name) + "\n";
}

// A part with an extension of so many units, the dot counted, related to the part b.
std::string ExtensionBytes(std::size_t units) {
    const std::string name = "a." + std::string(units - 1, 'e');
    return RelatedBytes({{"", {name}}, {name, {"/b"}}, {"b", {}}});
}

CraftedPackages DepthCases() {
    const std::string text767 = BytesText("a." + std::string(766, 'e'));
    const std::string text768 = BytesText("a." + std::string(767, 'e'));
    return {
        {"AsDeepAsAFolderIsLong", "a folder of 4,095 units is the longest that targets are resolved in",
         [] { return DeepBytes(4095); },
         "package: r0 type urn:t -> dddddddddddd...(4096 units)...dddddddddd/a\n" +
             DeepText(4095, 'a') +
             "dddddddddddd...(4096 units)...dddddddddd/a: r0 type urn:t -> "
             "dddddddddddd...(4096 units)...dddddddddd/b\n" +
             DeepText(4095, 'b')},
        {"OneDeeperThanThat", "of a longer folder nothing is left, so the target is at the root",
         [] { return DeepBytes(4096); },
         "package: r0 type urn:t -> dddddddddddd...(4097 units)...dddddddddd/a\n" +
             DeepText(4096, 'a') +
             "dddddddddddd...(4097 units)...dddddddddd/a: r0 type urn:t -> b\n"
             "b: (empty) \"b\"\n"},
        {"TooDeepForThem", "their entry's name has no room", [] { return DeepBytes(12'280); },
         "package: r0 type urn:t -> dddddddddddd...(12281 units)...dddddddddd/a\n" +
             DeepText(12'280, 'a')},
        {"WithAnExtensionTooLongForThem", "768 units, the dot counted, leave no room for the end",
         [] { return ExtensionBytes(768); },
         "package: r0 type urn:t -> a.eeeeeeeeee...(769 units)...eeeeeeeeeeee\n"
         "a.eeeeeeeeee...(769 units)...eeeeeeeeeeee: (empty) " +
             text768 + "\n"},
        {"WithAnExtensionJustShortEnough", "767 units do", [] { return ExtensionBytes(767); },
         "package: r0 type urn:t -> a.eeeeeeeeee...(768 units)...eeeeeeeeeeee\n"
         "a.eeeeeeeeee...(768 units)...eeeeeeeeeeee: (empty) " +
             text767 +
             "\n"
             "a.eeeeeeeeee...(768 units)...eeeeeeeeeeee: r0 type urn:t -> b\n"
             "b: (empty) \"b\"\n"},
    };
}

INSTANTIATE_TEST_SUITE_P(RelationshipCycle, HostilePackage, testing::ValuesIn(CycleCases()),
                         NameOfCase);
INSTANTIATE_TEST_SUITE_P(RelationshipsOfAPart, HostilePackage, testing::ValuesIn(DepthCases()),
                         NameOfCase);

}  // namespace
