#include <gtest/gtest.h>

#include "tests/opc/PackageFile.h"
#include "tests/opc/SingleRelationship.h"
#include "vexpa/opc/PackageImpl.h"

namespace {

using namespace tarn;
using namespace vexpa_test;
using opc::RelationshipAllowance;

constexpr std::size_t kPlenty = 1 << 20;

TEST(RelationshipAllowance, EndsWithTheFirstThatIsTooMuch) {
    RelationshipAllowance allowance(100, kPlenty);
    EXPECT_TRUE(allowance.TakeMemory(60));
    EXPECT_TRUE(allowance.TakeMemory(20));
    EXPECT_FALSE(allowance.IsUsedUp());
    EXPECT_FALSE(allowance.TakeMemory(21));
    EXPECT_TRUE(allowance.IsUsedUp());
    EXPECT_FALSE(allowance.TakeMemory(1));
}

TEST(RelationshipAllowance, EndsWithTooMuchTextThatIsNoRelationship) {
    RelationshipAllowance allowance(kPlenty, 100);
    allowance.CountText(2 * 2560 + 60, 2);
    allowance.CountText(10'000, 500);
    EXPECT_FALSE(allowance.IsUsedUp());
    allowance.CountText(50, 0);
    EXPECT_TRUE(allowance.IsUsedUp());
    EXPECT_TRUE(allowance.TakeMemory(1)) << "those of the package itself can still be kept";
}

// Three parts of four relationships each, opened with less than all that they take.
class PackageOfLimitedRelationships : public testing::Test {
protected:
    static constexpr std::size_t kParts = 3;
    static constexpr std::size_t kEach = 4;

    static std::string Repeated(const std::string& text, int count) {
        std::string all;
        for (int i = 0; i < count; ++i) all += text;
        return all;
    }

    void SetUp() override {
        for (std::size_t i = 0; i < kEach; ++i) {
            elements_ += RelationshipXml("rId" + std::to_string(i), "t", "x.xml");
        }
        for (const char* part : {"a.xml", "b.xml", "c.xml"}) {
            file_.Relationship(part, "t", part);
            file_.Entry(part, "<part/>");
        }
    }

    void Relate(const std::string& part) {
        file_.Entry("_rels/" + part + ".rels", RelationshipsXml(elements_));
    }
    void RelateAll() {
        for (const char* part : {"a.xml", "b.xml", "c.xml"}) Relate(part);
    }

    // How many relationships each part has, the package first; nothing when it does not open.
    std::vector<std::size_t> Counts(RelationshipAllowance allowance) {
        const ScratchFile& file = file_.Write();
        Handle<opc::PackageImpl> package(new opc::PackageImpl(allowance));
        if (Failed(package->OpenArchive(file.Path16().c_str())) ||
            Failed(package->ReadContentTypes()) || Failed(package->ReopenArchive()) ||
            Failed(package->ReadPackageRelationships())) {
            return {};
        }
        std::vector<std::size_t> counts{package->GetRelationships().size()};
        for (const char16_t* part : {u"a.xml", u"b.xml", u"c.xml"}) {
            counts.push_back(package->GetPart(opc::PartUri(part))->GetRelationships().size());
        }
        return counts;
    }

    // What one relationship is taken to need, be it of the package or of a part: they are alike.
    static std::size_t One() {
        return SingleRelationship(u"rId0", u"t", u"a.xml", u"x.xml", nullptr).MemoryUse();
    }

    PackageFile file_;
    std::string elements_;
};

TEST_F(PackageOfLimitedRelationships, HasThemAllWhenTheyAreWithinTheLimits) {
    RelateAll();
    EXPECT_EQ(Counts(RelationshipAllowance()), (std::vector<std::size_t>{kParts, kEach, kEach, kEach}));
}

TEST_F(PackageOfLimitedRelationships, ReadsNoMoreStreamsThatHoldOtherThingsThanItMay) {
    Relate("b.xml");
    Relate("c.xml");
    file_.Entry("_rels/a.xml.rels", RelationshipsXml(Repeated("<other/>", 1'000)));
    EXPECT_EQ(Counts(RelationshipAllowance(kPlenty, 9'000)),
              (std::vector<std::size_t>{kParts, 0, kEach, kEach}));
    EXPECT_EQ(Counts(RelationshipAllowance(kPlenty, 8'000)),
              (std::vector<std::size_t>{kParts, 0, 0, 0}));
}

TEST_F(PackageOfLimitedRelationships, CountsStreamsThatAreNoXml) {
    Relate("b.xml");
    Relate("c.xml");
    file_.Entry("_rels/a.xml.rels", Repeated("<other>", 1'000));
    EXPECT_EQ(Counts(RelationshipAllowance(kPlenty, 7'000)),
              (std::vector<std::size_t>{kParts, 0, 0, 0}));
}

TEST_F(PackageOfLimitedRelationships, KeepsNoMoreOfAPartThanItMay) {
    RelateAll();
    // The package's own come in between: one, a part's four, one more, and so on.
    const std::size_t untilTheLast = One() * (kParts + 2 * kEach + 1) + 100;
    EXPECT_EQ(Counts(RelationshipAllowance(untilTheLast, kPlenty)),
              (std::vector<std::size_t>{kParts, kEach, kEach, 1}));
}

TEST_F(PackageOfLimitedRelationships, DoesNotOpenWithoutAllOfItsOwn) {
    RelateAll();
    const std::size_t untilTheSecond = One() * (1 + kEach) + 100;
    EXPECT_TRUE(Counts(RelationshipAllowance(untilTheSecond, kPlenty)).empty());
}

}  // namespace
