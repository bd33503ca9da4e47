// tests/worst/ShapeParts.h - what the shapes are put together from.
#ifndef VEXPA_TESTS_WORST_SHAPEPARTS_H_
#define VEXPA_TESTS_WORST_SHAPEPARTS_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "tests/support/ZipFile.h"

namespace vexpa_test {

// make(0) to make(count - 1), one after the other.
template <class Make>
std::string Each(std::size_t count, const Make& make) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += make(i);
    return all;
}

std::string Repeated(std::string_view text, std::size_t count);

// Shortest forms: nothing here needs a namespace.
std::string Related(std::string_view id, std::string_view target);
std::string Root(std::string_view content);

// A package with these relationships and one more, to its part a.xml, so that it opens.
ZipFile PackageOf(std::string_view relationships, std::string_view contentTypes = {});
// The same with the relationships on a.xml instead.
ZipFile PartOf(std::string_view relationships);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_WORST_SHAPEPARTS_H_
