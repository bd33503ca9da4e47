// What relationships take from the heap: each no more than it is counted for, all no more than is
// allowed.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/opc/PackageFile.h"
#include "tests/support/HeapMeter.h"
#include "tests/worst/ShapeParts.h"
#include "vexpa/opc/PackageImpl.h"
#include "vexpa/opc/RelationshipImpl.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

constexpr std::size_t kCount = 2'000;

std::string Number(std::size_t i) {
    return std::to_string(i);
}

// A package whose part a.xml, in a folder, has these relationships.
ZipFile PackageWith(const std::string& folder, const std::string& relationships) {
    ZipFile zip = PackageOf(Related("1", folder + "a.xml"));
    zip.Add(folder + "a.xml", "").stored = true;
    zip.Add(folder + "_rels/a.xml.rels", Root(relationships));
    return zip;
}

struct Row {
    const char* shows;
    std::string folder;
    std::string (*element)(std::size_t i);
};

TEST(MemoryOfARelationship, IsWithinWhatItIsCountedFor) {
    const Row rows[] = {
        {"nothing but an Id", "f/", [](std::size_t i) { return Related(Number(i), ""); }},
        {"nothing at all", "f/", [](std::size_t) { return std::string("<Relationship Id=''/>"); }},
        {"a hyperlink", "xl/worksheets/",
         [](std::size_t i) {
             return RelationshipXml("rId" + Number(i), kOfficeDocument,
                                    "https://www.example.com/some/folder/page.html?item=" + Number(i),
                                    "External");
         }},
        {"a part in the same folder", "word/",
         [](std::size_t i) {
             return RelationshipXml("rId" + Number(i), kStyles, "media/image" + Number(i) + ".png");
         }},
        {"a long Id", "f/",
         [](std::size_t i) { return Related(Number(i) + std::string(500, 'i'), "x"); }},
        {"a long type", "f/",
         [](std::size_t i) {
             return RelationshipXml(Number(i), std::string(500, 'T') + Number(i), "x");
         }},
        {"a long target", "f/",
         [](std::size_t i) { return Related(Number(i), std::string(500, 't') + Number(i)); }},
        {"a long target with an escape", "f/",
         [](std::size_t i) { return Related(Number(i), std::string(500, 't') + "%20" + Number(i)); }},
        {"a long target with every component", "f/",
         [](std::size_t i) {
             return Related(Number(i), "s://user@host:1/" + std::string(200, 'p') + "?" +
                                           std::string(200, 'q') + "#" + std::string(200, 'f'));
         }},
        {"a target in a long folder", std::string(3'000, 'f') + "/",
         [](std::size_t i) { return Related(Number(i), Number(i)); }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        const ScratchFile bare(PackageWith(row.folder, "").Bytes());
        const ScratchFile file(PackageWith(row.folder, Each(kCount, row.element)).Bytes());
        const std::u16string barePath = bare.Path16(), path = file.Path16();
        // For what is made once for the process and for a file.
        static_cast<void>(opc::Package::Open(path.c_str()));

        const HeapMeter without;
        Handle<opc::Package> package = opc::Package::Open(barePath.c_str());
        const std::size_t least = without.Live();
        package.Reset();
        const HeapMeter with;
        package = opc::Package::Open(path.c_str());
        ASSERT_TRUE(package);
        const std::size_t taken = with.Live() - std::min(with.Live(), least);

        opc::Part* part = package->FindPart(Utf16(row.folder + "a.xml").c_str());
        ASSERT_FALSE(part->GetRelationships().empty());
        const auto* one =
            static_cast<const opc::RelationshipImpl*>(part->GetRelationships().rbegin()->second);
        EXPECT_GE(taken, kCount * sizeof(opc::PartUri)) << "the meter is not at work";
        EXPECT_LE(taken, kCount * one->MemoryUse());

        const std::size_t units = Text(one->GetId()).size() + Text(one->GetType()).size() +
                                  one->GetTarget().name.size() + one->GetResolvedTarget().name.size();
        EXPECT_LE(one->MemoryUse(), 1'100 + 4 * units);
    }
}

TEST(MemoryOfRelationships, StaysWithinTheAllowance) {
    constexpr std::size_t kAllowed = 1 << 20;
    constexpr std::size_t kRelated = 20'000;
    ZipFile zip = PackageOf("");
    zip.Add("_rels/a.xml.rels",
            Root(Each(kRelated, [](std::size_t i) { return Related(Number(i), "x"); })));
    const ScratchFile file(zip.Bytes());
    const std::u16string path = file.Path16();
    static_cast<void>(opc::Package::Open(path.c_str()));

    const HeapMeter meter;
    const Handle<opc::PackageImpl> package(new opc::PackageImpl(opc::RelationshipAllowance(kAllowed)));
    package->OpenArchive(path.c_str());
    package->ReadContentTypes();
    package->ReopenArchive();
    package->ReadPackageRelationships();
    opc::Part* part = package->GetPart(opc::PartUri(u"a.xml"));
    EXPECT_GT(part->GetRelationships().size(), 500u);
    EXPECT_LT(part->GetRelationships().size(), kRelated);
    EXPECT_LE(meter.Live(), kAllowed + 64 * 1024);
}

}  // namespace
