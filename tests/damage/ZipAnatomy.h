// tests/damage/ZipAnatomy.h - where in an archive its headers lie, and the fields in them.
#ifndef VEXPA_TESTS_DAMAGE_ZIPANATOMY_H_
#define VEXPA_TESTS_DAMAGE_ZIPANATOMY_H_

#include <cstddef>
#include <string>
#include <vector>

namespace vexpa_test {

// A number in a header; 2, 4 or 8 bytes wide.
struct NumberField {
    std::size_t at;
    std::size_t width;
};

struct ZipAnatomy {
    std::vector<bool> isHeader;  // for each byte: in a header, or in data
    std::vector<NumberField> fields;
};

// Takes a sound archive apart whose offsets count from after `prefix` bytes.
ZipAnatomy Dissect(const std::string& zip, std::size_t prefix);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_DAMAGE_ZIPANATOMY_H_
