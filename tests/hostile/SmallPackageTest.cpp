#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/SmallPackage.h"

namespace {

using namespace vexpa_test;

CraftedPackages Cases() {
    return {
        {"TheSoundPackage", "what the others are made from is not at fault itself",
         [] { return SmallPackage().Bytes(); },
         "package: rId1 officedocument -> word/document.xml\n"
         "word/document.xml: application/xml \"<document/>\"\n"
         "word/document.xml: rId1 image -> word/a.png\n"
         "word/a.png: image/png \"pixels\"\n"},
        {"NoBytes", "an empty file", [] { return std::string(); }, kDoesNotOpen},
    };
}

INSTANTIATE_TEST_SUITE_P(Small, HostilePackage, testing::ValuesIn(Cases()), NameOfCase);

}  // namespace
