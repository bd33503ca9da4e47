#include "tests/hostile/CraftedPackage.h"

#include "tests/hostile/PackageText.h"
#include "tests/support/ScratchFile.h"
#include "vexpa/base/Handle.h"
#include "vexpa/opc/Package.h"

namespace vexpa_test {

std::string ReadPackage(const std::string& bytes) {
    const ScratchFile file(bytes);
    const tarn::Handle<tarn::opc::Package> package = tarn::opc::Package::Open(file.Path16().c_str());
    return package ? PackageText(*package) : kDoesNotOpen;
}

std::string NameOfCase(const testing::TestParamInfo<CraftedPackage>& info) {
    return info.param.name;
}

void PrintTo(const CraftedPackage& crafted, std::ostream* out) {
    *out << crafted.purpose;
}

TEST_P(HostilePackage, GivesWhatItShould) {
    EXPECT_EQ(ReadPackage(GetParam().bytes()), GetParam().expected);
}

// A subject without cases, as when only some of them are linked, is no error.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(HostilePackage);

}  // namespace vexpa_test
