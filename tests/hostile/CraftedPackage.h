// tests/hostile/CraftedPackage.h - a file made to mislead, and what reading it must give.
#ifndef VEXPA_TESTS_HOSTILE_CRAFTEDPACKAGE_H_
#define VEXPA_TESTS_HOSTILE_CRAFTEDPACKAGE_H_

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace vexpa_test {

struct CraftedPackage {
    std::string name;     // of the test: letters and digits, reads as a phrase
    std::string purpose;  // what would go wrong, in a line
    std::function<std::string()> bytes;
    std::string expected;  // what ReadPackage must answer
};
using CraftedPackages = std::vector<CraftedPackage>;

inline constexpr const char* kDoesNotOpen = "does not open\n";

// Opens the package in these bytes, walks all of it through the public interface and tells what
// there was (see PackageText.h), or kDoesNotOpen.
std::string ReadPackage(const std::string& bytes);

// The same of a file that was written just now, and may still be: it takes longer.
std::string ReadFreshPackage(const std::string& bytes);
inline constexpr std::size_t kMostReadFresh = 16'384;

// A list of cases is run by
//
//     INSTANTIATE_TEST_SUITE_P(ZipNames, HostilePackage, testing::ValuesIn(Cases()), NameOfCase);
//
// as ZipNames/HostilePackage.GivesWhatItShould/<name>.
class HostilePackage : public testing::TestWithParam<CraftedPackage> {};

std::string NameOfCase(const testing::TestParamInfo<CraftedPackage>& info);
void PrintTo(const CraftedPackage& crafted, std::ostream* out);  // its purpose

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_HOSTILE_CRAFTEDPACKAGE_H_
