// tests/hostile/xml/CraftedXml.h - a stream of XML made to mislead, wherever a package has one.
#ifndef VEXPA_TESTS_HOSTILE_XML_CRAFTEDXML_H_
#define VEXPA_TESTS_HOSTILE_XML_CRAFTEDXML_H_

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vexpa_test {

// What reading the changed stream must come to.
enum class XmlOutcome {
    kRead,     // as if it were not changed
    kRefused,  // as if it were not there
    kEmpty,    // as if it had a root and nothing in it
};

using XmlChange = std::function<std::string(const std::string& xml)>;

struct CraftedXml {
    std::string name;     // of the test: letters and digits, reads as a phrase
    std::string purpose;  // what would go wrong, in a line
    XmlOutcome outcome;
    XmlChange change;  // of a sound stream
};
using CraftedXmls = std::vector<CraftedXml>;

// A stream that the small package has, and what reading the package gives when it is lost.
struct XmlPlace {
    std::string entry;
    std::string withoutIt;
    std::string withAnEmptyOne;
};

// Content types, relationships of the package, relationships of a part.
std::vector<XmlPlace> XmlPlaces();

// Each case is tried in all places:
//
//     INSTANTIATE_TEST_SUITE_P(Entities, HostileXml, testing::ValuesIn(Cases()), NameOfXml);
class HostileXml : public testing::TestWithParam<CraftedXml> {};

std::string NameOfXml(const testing::TestParamInfo<CraftedXml>& info);
void PrintTo(const CraftedXml& crafted, std::ostream* out);  // its purpose

// Fails unless the place's stream, changed so, comes to that.
void ExpectOutcome(const XmlPlace& place, const XmlChange& change, XmlOutcome outcome);

std::string Repeat(std::string_view text, std::size_t count);

// Changes: something before or after all, in the root's start tag or right after it, or another
// stream altogether.
XmlChange Before(std::string more);
XmlChange After(std::string more);
XmlChange RootTagWith(std::string more);
XmlChange RootWith(std::string more);
XmlChange InPlace(std::string other);
// A document type with this internal subset, and more after the root's start tag.
XmlChange WithSubset(std::string subset, std::string more = {});
// The same, and more in the root's start tag.
XmlChange WithSubsetInTag(std::string subset, std::string more);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_HOSTILE_XML_CRAFTEDXML_H_
