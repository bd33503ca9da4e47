#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "tests/growth/Work.h"
#include "tests/opc/PackageFile.h"
#include "tests/worst/FullWalk.h"
#include "tests/worst/ShapeParts.h"
#include "vexpa/base/ComPtr.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

std::string Number(std::size_t i) {
    return std::to_string(i);
}

// To open the archive, walk all that there is, and close it.
std::function<void()> WalkOf(const ZipFile& zip) {
    const auto file = std::make_shared<ScratchFile>(zip.Bytes());
    return [file] {
        const Handle<opc::Package> package = opc::Package::Open(file->Path16().c_str());
        ASSERT_TRUE(package);
        WalkAll(*package, WalkStorages::kYes);
    };
}

void ExpectWalkGrowsWithSize(std::size_t size, const std::function<ZipFile(std::size_t)>& zipOf) {
    ExpectNoFasterGrowthThanSize(size, [&](std::size_t n) { return WalkOf(zipOf(n)); });
}

void AddEmpty(ZipFile& zip, const std::string& name) {
    zip.Add(name, "").stored = true;
}

// Parts of these names, each related to by the package.
ZipFile PackageOfParts(std::size_t count, const std::function<std::string(std::size_t)>& name) {
    ZipFile zip = PackageOf(Each(count, [&](std::size_t i) { return Related(Number(i), name(i)); }));
    for (std::size_t i = 0; i < count; ++i) AddEmpty(zip, name(i));
    return zip;
}

TEST(Growth, OfEntries) {
    ExpectWalkGrowsWithSize(1'000, [](std::size_t n) {
        ZipFile zip = PackageOf("");
        for (std::size_t i = 0; i < n; ++i) AddEmpty(zip, Number(i));
        return zip;
    });
}

TEST(Growth, OfParts) {
    ExpectWalkGrowsWithSize(500, [](std::size_t n) { return PackageOfParts(n, Number); });
}

// The directory is read anew for each until the file has been there for long enough.
TEST(Growth, OfPartsInAFileThatIsStampedAheadOfTheClock) {
    const FilesOfTheFuture ahead;
    ExpectWalkGrowsWithSize(500, [](std::size_t n) { return PackageOfParts(n, Number); });
}

TEST(Growth, OfPackagesThatAreReadInTurn) {
    ExpectNoFasterGrowthThanSize(8, [](std::size_t n) {
        constexpr std::size_t kParts = 100;
        const auto files = std::make_shared<std::deque<ScratchFile>>();
        for (std::size_t i = 0; i < n; ++i) files->emplace_back(PackageOfParts(kParts, Number).Bytes());
        return [files] {
            std::vector<Handle<opc::Package>> packages;
            for (const ScratchFile& file : *files) {
                packages.push_back(opc::Package::Open(file.Path16().c_str()));
            }
            for (std::size_t part = 0; part < kParts; ++part) {
                for (const Handle<opc::Package>& package : packages) {
                    ComPtr<IStream> stream;
                    const opc::PartUri name(Utf16(Number(part)).c_str());
                    EXPECT_EQ(package->GetPart(name)->GetStream(stream.Out()), S_OK);
                }
            }
        };
    });
}

TEST(Growth, OfPartsWithContentAndRelationships) {
    ExpectWalkGrowsWithSize(200, [](std::size_t n) {
        ZipFile zip = PackageOf(Each(n, [](std::size_t i) { return Related(Number(i), Number(i)); }));
        for (std::size_t i = 0; i < n; ++i) {
            zip.Add(Number(i), Repeated("content ", 20));
            zip.Add("_rels/" + Number(i) + ".rels",
                    Root(Related("1", "a.xml") + Related("2", Number(0))));
        }
        return zip;
    });
}

// Each spelling that is a part has the relationships of the entry once more.
TEST(Growth, OfSpellingsOfOneName) {
    ExpectWalkGrowsWithSize(200, [](std::size_t n) {
        const auto spelling = [](std::size_t i) {
            std::string name = "a";
            for (std::size_t bit = 0; bit < 12; ++bit) name += (i >> bit & 1) != 0 ? "\\a" : "/a";
            return name;
        };
        const auto all = Each(n, [&](std::size_t i) { return Related(Number(i), "/" + spelling(i)); });
        ZipFile zip = PackageOf(all);
        AddEmpty(zip, spelling(0));
        zip.Add("a/a/a/a/a/a/a/a/a/a/a/a/_rels/a.rels", Root(all));
        return zip;
    });
}

TEST(Growth, OfRelationshipsOfThePackage) {
    ExpectWalkGrowsWithSize(1'000, [](std::size_t n) {
        return PackageOf(Each(n, [](std::size_t i) { return Related(Number(i), "a.xml"); }));
    });
}

TEST(Growth, OfRelationshipsOfAPart) {
    ExpectWalkGrowsWithSize(1'000, [](std::size_t n) {
        return PartOf(Each(n, [](std::size_t i) { return Related(Number(i), Number(i)); }));
    });
}

TEST(Growth, OfAChainOfParts) {
    ExpectWalkGrowsWithSize(200, [](std::size_t n) {
        ZipFile zip = PackageOf(Related("0", "0"));
        for (std::size_t i = 0; i < n; ++i) {
            AddEmpty(zip, Number(i));
            zip.Add("_rels/" + Number(i) + ".rels", Root(Related("0", Number(i + 1))));
        }
        return zip;
    });
}

TEST(Growth, OfARingOfPartsThatAllPointToEachOther) {
    ExpectWalkGrowsWithSize(100, [](std::size_t n) {
        constexpr std::size_t kEach = 50;
        ZipFile zip = PackageOf(Related("0", "0"));
        for (std::size_t i = 0; i < n; ++i) {
            AddEmpty(zip, Number(i));
            zip.Add("_rels/" + Number(i) + ".rels", Root(Each(kEach, [&](std::size_t j) {
                        return Related(Number(j), Number((i + j + 1) % n));
                    })));
        }
        return zip;
    });
}

TEST(Growth, OfOverrides) {
    ExpectWalkGrowsWithSize(1'000, [](std::size_t n) {
        return PackageOf("", Each(n, [](std::size_t i) {
                             return "<Override PartName='/p" + Number(i) + "' ContentType='t'/>";
                         }));
    });
}

TEST(Growth, OfDefaults) {
    ExpectWalkGrowsWithSize(1'000, [](std::size_t n) {
        return PackageOf("", Each(n, [](std::size_t i) {
                             return "<Default Extension='" + Number(i) + "' ContentType='t'/>";
                         }));
    });
}

TEST(Growth, OfOneContentTypeForManyParts) {
    ExpectWalkGrowsWithSize(200, [](std::size_t n) {
        ZipFile zip = PackageOfParts(n, [](std::size_t i) { return Number(i) + ".x"; });
        zip.entries[0].content =
            Root("<Default Extension='x' ContentType='" + std::string(100 * n, 't') + "'/>");
        return zip;
    });
}

TEST(Growth, OfRepeatedIds) {
    ExpectWalkGrowsWithSize(1'000, [](std::size_t n) {
        return PartOf(Each(n, [](std::size_t i) { return Related("same", Number(i)); }));
    });
}

TEST(Growth, OfRepeatedTypes) {
    ExpectWalkGrowsWithSize(1'000, [](std::size_t n) {
        return PartOf(Each(n, [](std::size_t i) {
            return "<Relationship Id='" + Number(i) + "' Type='same' Target='x'/>";
        }));
    });
}

TEST(Growth, OfDistinctTypes) {
    ExpectWalkGrowsWithSize(1'000, [](std::size_t n) {
        return PartOf(Each(n, [](std::size_t i) {
            return "<Relationship Id='1' Type=' Same\\" + Number(i) + " rest' Target='x'/>";
        }));
    });
}

// What relationships share, and what each has for itself, at once: the product would show.
TEST(Growth, OfRelationshipsAndTheLengthOfTheirSource) {
    ExpectWalkGrowsWithSize(100, [](std::size_t n) {
        const std::string folder(10 * n, 'f');
        ZipFile zip = PackageOf(Related("0", folder + "/a"));
        AddEmpty(zip, folder + "/a");
        zip.Add(folder + "/_rels/a.rels",
                Root(Each(10 * n, [](std::size_t i) { return Related(Number(i), "/x"); })));
        return zip;
    });
}

// Texts of one relationship, of up to this many units.
struct Text {
    const char* shows;
    std::string (*element)(std::size_t size);
};

TEST(Growth, OfTheTextsOfOneRelationship) {
    const Text rows[] = {
        {"an Id", [](std::size_t n) { return Related(std::string(n, 'i'), "x"); }},
        {"a type",
         [](std::size_t n) { return "<Relationship Id='1' Type='" + std::string(n, 'T') + "'/>"; }},
        {"a type of blanks",
         [](std::size_t n) { return "<Relationship Id='1' Type='" + std::string(n, ' ') + "'/>"; }},
        {"a target mode",
         [](std::size_t n) {
             return "<Relationship Id='1' TargetMode='" + std::string(n, 'e') + "'/>";
         }},
        {"a target", [](std::size_t n) { return Related("1", std::string(n, 't')); }},
        {"a target of folders", [](std::size_t n) { return Related("1", Repeated("f/", n / 2)); }},
        {"a target of steps up", [](std::size_t n) { return Related("1", Repeated("../", n / 3)); }},
        {"a target of dots", [](std::size_t n) { return Related("1", std::string(n, '.')); }},
        {"a target of escapes", [](std::size_t n) { return Related("1", Repeated("%41", n / 3)); }},
        {"a target of cut escapes", [](std::size_t n) { return Related("1", Repeated("%4", n / 2)); }},
        {"a target of colons", [](std::size_t n) { return Related("1", std::string(n, ':')); }},
        {"a target with a scheme",
         [](std::size_t n) { return Related("1", std::string(n, 's') + ":" + std::string(n, 'o')); }},
        {"a target with a server",
         [](std::size_t n) {
             return Related("1", "s://" + std::string(n, 'u') + "@" + std::string(n, 'h'));
         }},
        {"a target with a registry name",
         [](std::size_t n) { return Related("1", "s://" + Repeated("a:", n / 2)); }},
        {"a target of other letters",
         [](std::size_t n) { return Related("1", Repeated("\xC3\xA4", n)); }},
    };
    for (const Text& row : rows) {
        SCOPED_TRACE(row.shows);
        ExpectWalkGrowsWithSize(20'000, [&](std::size_t n) { return PartOf(row.element(n)); });
    }
}

TEST(Growth, OfStepsUpFromADeepFolder) {
    ExpectWalkGrowsWithSize(250, [](std::size_t n) {
        const std::string folder = Repeated("f/", n);
        ZipFile zip = PackageOf(Related("0", folder + "a"));
        AddEmpty(zip, folder + "a");
        zip.Add(folder + "_rels/a.rels", Root(Related("1", Repeated("../", 100 * n) + "x")));
        return zip;
    });
}

TEST(Growth, OfTheLengthOfAPartName) {
    ExpectWalkGrowsWithSize(3'000, [](std::size_t n) {
        return PackageOfParts(4, [n](std::size_t i) { return std::string(n, 'n') + Number(i); });
    });
}

TEST(Growth, OfTheDepthOfAPartName) {
    ExpectWalkGrowsWithSize(1'000, [](std::size_t n) {
        return PackageOfParts(4, [n](std::size_t i) { return Repeated("f/", n) + Number(i); });
    });
}

TEST(Growth, OfNamesThatDifferAtTheirEnds) {
    ExpectWalkGrowsWithSize(200, [](std::size_t n) {
        return PackageOfParts(n, [](std::size_t i) { return std::string(500, 'n') + Number(i); });
    });
}

TEST(Growth, OfDuplicateNames) {
    ExpectWalkGrowsWithSize(1'000, [](std::size_t n) {
        ZipFile zip = PackageOf("");
        for (std::size_t i = 0; i < n; ++i) AddEmpty(zip, "a.xml");
        return zip;
    });
}

TEST(Growth, OfNamesThatDifferInCase) {
    ExpectWalkGrowsWithSize(500, [](std::size_t n) {
        ZipFile zip = PackageOf("");
        for (std::size_t i = 0; i < n; ++i) {
            std::string name;
            for (std::size_t bit = 0; bit < 12; ++bit) name += (i >> bit & 1) != 0 ? 'A' : 'a';
            AddEmpty(zip, name);
        }
        return zip;
    });
}

// Sixteen times the first letter and the second make the same sum in both pairs.
TEST(Growth, OfNamesThatShareAHash) {
    ExpectWalkGrowsWithSize(500, [](std::size_t n) {
        ZipFile zip = PackageOf("");
        for (std::size_t i = 0; i < n; ++i) {
            std::string name;
            for (std::size_t bit = 0; bit < 12; ++bit) name += (i >> bit & 1) != 0 ? "AQ" : "BA";
            AddEmpty(zip, name);
        }
        return zip;
    });
}

// Each asks for its relationships by a pattern, and that is tried on all names, until the work
// allowed for it is used up: it is at the smaller size already.
TEST(Growth, OfPartsWhoseNamesArePatterns) {
    ExpectWalkGrowsWithSize(2'500, [](std::size_t n) {
        return PackageOfParts(n, [](std::size_t i) { return "*?*?*[" + Number(i); });
    });
}

TEST(Growth, OfPatternsThatNearlyMatch) {
    ExpectWalkGrowsWithSize(250, [](std::size_t n) {
        return PackageOfParts(
            n, [](std::size_t i) { return "_rels/*" + std::string(200, 'a') + "?" + Number(i); });
    });
}

// A character of three bytes for each number below 8,192.
std::string Character(std::size_t number) {
    return {static_cast<char>(0xE4 + number / 4'096), static_cast<char>(0x80 + number / 64 % 64),
            static_cast<char>(0x80 + number % 64)};
}

TEST(Growth, OfAPatternOfManyCharacters) {
    ExpectWalkGrowsWithSize(500, [](std::size_t n) {
        return PackageOfParts(4, [n](std::size_t i) {
            return "_rels/*[" + Each(n, [](std::size_t j) { return Character(2 * j); }) + "]" +
                   Number(i);
        });
    });
}

TEST(Growth, OfOverlappingEntries) {
    ExpectWalkGrowsWithSize(500, [](std::size_t n) {
        ZipFile zip = PackageOfParts(n, Number);
        for (ZipEntry& entry : zip.entries) {
            if (entry.content.empty() && entry.name != "a.xml") entry.compressedSize = entry.size = 200;
        }
        return zip;
    });
}

TEST(Growth, OfWhatLooksLikeEndRecords) {
    ExpectNoFasterGrowthThanSize(200, [](std::size_t n) {
        ZipFile zip;
        for (std::size_t i = 0; i < n; ++i) AddEmpty(zip, Number(i));
        zip.entryCount = 3;
        zip.directorySize = 0xFFFFFF00;
        const std::string bytes = zip.Bytes();
        const auto file =
            std::make_shared<ScratchFile>(bytes + Repeated(bytes.substr(bytes.size() - 22), n));
        return [file] { EXPECT_FALSE(opc::Package::Open(file->Path16().c_str())); };
    });
}

TEST(Growth, OfQuestionsForPartsThatAreNotThere) {
    ExpectNoFasterGrowthThanSize(500, [](std::size_t n) {
        const auto file = std::make_shared<ScratchFile>(PackageOfParts(n, Number).Bytes());
        return [file, n] {
            const Handle<opc::Package> package = opc::Package::Open(file->Path16().c_str());
            for (std::size_t i = 0; i < n; ++i) {
                const std::u16string name = Utf16("none" + Number(i));
                EXPECT_EQ(package->GetPart(opc::PartUri(name.c_str())), nullptr);
                EXPECT_EQ(package->FindPart(name.c_str()), nullptr);
                EXPECT_FALSE(package->HasRelationshipById(name.c_str()));
            }
        };
    });
}

}  // namespace
