#include <gtest/gtest.h>

#include "tests/opc/PackageFile.h"
#include "vexpa/opc/PackageImpl.h"
#include "vexpa/opc/RelationshipImpl.h"

namespace {

using namespace tarn;
using namespace vexpa_test;
using opc::RelationshipAllowance;

constexpr std::size_t kPlenty = 1 << 20;

TEST(RelationshipAllowance, EndsWithTheFirstThatIsTooMuch) {
    RelationshipAllowance allowance(10, 100);
    EXPECT_TRUE(allowance.TakeText(9));
    EXPECT_TRUE(allowance.TakeMemory(60));
    EXPECT_TRUE(allowance.TakeMemory(20));
    EXPECT_FALSE(allowance.IsUsedUp());
    EXPECT_FALSE(allowance.TakeMemory(21));
    EXPECT_TRUE(allowance.IsUsedUp());
    EXPECT_FALSE(allowance.TakeMemory(1));
    EXPECT_TRUE(allowance.TakeText(1)) << "the two do not depend on each other";
    EXPECT_FALSE(allowance.TakeText(2));
    EXPECT_FALSE(allowance.TakeText(1));
}

// Three parts of four relationships each, opened with less than all that they take.
class PackageOfLimitedRelationships : public testing::Test {
protected:
    static constexpr std::size_t kParts = 3;
    static constexpr std::size_t kEach = 4;

    void SetUp() override {
        for (std::size_t i = 0; i < kEach; ++i) {
            elements_ += RelationshipXml("rId" + std::to_string(i), "t", "x.xml");
        }
        for (const char* part : {"a.xml", "b.xml", "c.xml"}) {
            file_.Relationship(part, "t", part);
            file_.Entry(part, "<part/>");
            file_.Entry("_rels/" + std::string(part) + ".rels", RelationshipsXml(elements_));
        }
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
        return opc::RelationshipImpl(u"rId0", u"t", u"a.xml", u"x.xml", nullptr).MemoryUse();
    }

    PackageFile file_;
    std::string elements_;
};

TEST_F(PackageOfLimitedRelationships, HasThemAllWhenTheyAreWithinTheLimits) {
    EXPECT_EQ(Counts(RelationshipAllowance()), (std::vector<std::size_t>{kParts, kEach, kEach, kEach}));
}

TEST_F(PackageOfLimitedRelationships, ReadsNoMoreStreamsThanItMay) {
    const std::size_t text = RelationshipsXml(elements_).size();
    EXPECT_EQ(Counts(RelationshipAllowance(2 * text, kPlenty)),
              (std::vector<std::size_t>{kParts, kEach, kEach, 0}));
    EXPECT_EQ(Counts(RelationshipAllowance(2 * text - 1, kPlenty)),
              (std::vector<std::size_t>{kParts, kEach, 0, 0}));
}

TEST_F(PackageOfLimitedRelationships, KeepsNoMoreOfAPartThanItMay) {
    // The package's own come in between: one, a part's four, one more, and so on.
    const std::size_t untilTheLast = One() * (kParts + 2 * kEach + 1) + 100;
    EXPECT_EQ(Counts(RelationshipAllowance(kPlenty, untilTheLast)),
              (std::vector<std::size_t>{kParts, kEach, kEach, 1}));
}

TEST_F(PackageOfLimitedRelationships, DoesNotOpenWithoutAllOfItsOwn) {
    const std::size_t untilTheSecond = One() * (1 + kEach) + 100;
    EXPECT_TRUE(Counts(RelationshipAllowance(kPlenty, untilTheSecond)).empty());
}

}  // namespace
