#include "tests/hostile/CraftedPackage.h"

#include "tests/hostile/PackageText.h"
#include "tests/support/OldFiles.h"
#include "tests/support/ScratchFile.h"
#include "vexpa/base/Handle.h"
#include "vexpa/opc/Package.h"

namespace vexpa_test {

namespace {

std::string ReadFile(const ScratchFile& file) {
    const tarn::Handle<tarn::opc::Package> package = tarn::opc::Package::Open(file.Path16().c_str());
    return package ? PackageText(*package) : kDoesNotOpen;
}

}  // namespace

std::string ReadPackage(const std::string& bytes) {
    const ScratchFile file(bytes);
    const OldFiles old;
    return ReadFile(file);
}

std::string ReadFreshPackage(const std::string& bytes) {
    return ReadFile(ScratchFile(bytes));
}

std::string NameOfCase(const testing::TestParamInfo<CraftedPackage>& info) {
    return info.param.name;
}

void PrintTo(const CraftedPackage& crafted, std::ostream* out) {
    *out << crafted.purpose;
}

TEST_P(HostilePackage, GivesWhatItShould) {
    const std::string bytes = GetParam().bytes();
    EXPECT_EQ(ReadPackage(bytes), GetParam().expected);
    if (bytes.size() <= kMostReadFresh) {
        EXPECT_EQ(ReadFreshPackage(bytes), GetParam().expected) << "written just now";
    }
}

// A subject without cases, as when only some of them are linked, is no error.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(HostilePackage);

}  // namespace vexpa_test
