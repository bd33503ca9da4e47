#include <gtest/gtest.h>

#include "tests/opc/PackageFile.h"
#include "vexpa/opc/SpellingAllowance.h"

namespace {

using namespace tarn;
using namespace vexpa_test;
using opc::SpellingAllowance;

// The name of six steps with a backslash for each bit of `i` that is set.
std::u16string Spelling(unsigned i, char16_t letter = u'a') {
    std::u16string name(1, letter);
    for (unsigned bit = 0; bit < 5; ++bit) {
        name += (i >> bit & 1U) != 0 ? u'\\' : u'/';
        name += letter;
    }
    return name;
}

class PartOfManySpellings : public testing::Test {
protected:
    PartOfManySpellings() {
        file_.Relationship("r", "t", "a/a/a/a/a/a");
        file_.Entry("a/a/a/a/a/a", "content");
        file_.Entry("b/b/b/b/b/b", "content");
        package_ = file_.Open();
    }

    opc::Part* Get(unsigned i, char16_t letter = u'a') {
        return package_->GetPart(opc::PartUri(Spelling(i, letter).c_str()));
    }

    PackageFile file_;
    Handle<opc::Package> package_;
};

TEST_F(PartOfManySpellings, IsAPartForEachOfSixteenWithBackslashes) {
    for (unsigned i = 1; i <= SpellingAllowance::kMost; ++i) EXPECT_NE(Get(i), nullptr) << i;
    for (unsigned i = SpellingAllowance::kMost + 1; i < 32; ++i) EXPECT_EQ(Get(i), nullptr) << i;
}

TEST_F(PartOfManySpellings, IsFoundAgainUnderThoseThatItHas) {
    opc::Part* first = Get(1);
    for (unsigned i = 2; i < 32; ++i) Get(i);
    EXPECT_EQ(Get(1), first);
    EXPECT_NE(Get(2), first);
    EXPECT_EQ(package_->FindPart(Spelling(31).c_str()), nullptr);
}

TEST_F(PartOfManySpellings, HasTheOneWithSlashesBesides) {
    for (unsigned i = 1; i < 32; ++i) Get(i);
    EXPECT_NE(Get(0), nullptr);
    EXPECT_NE(package_->GetPart(opc::PartUri(u"/a/a/a/a/a/a")), nullptr);
}

TEST_F(PartOfManySpellings, TakesNoneFromAnotherEntry) {
    for (unsigned i = 1; i < 32; ++i) Get(i);
    for (unsigned i = 1; i <= SpellingAllowance::kMost; ++i) EXPECT_NE(Get(i, u'b'), nullptr) << i;
    EXPECT_EQ(Get(31, u'b'), nullptr);
}

TEST_F(PartOfManySpellings, LosesNoneToNamesThatAreNotThere) {
    for (unsigned i = 1; i < 32; ++i) Get(i, u'c');
    EXPECT_NE(Get(1), nullptr);
}

}  // namespace
