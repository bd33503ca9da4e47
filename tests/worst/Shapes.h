// tests/worst/Shapes.h - packages of at most a megabyte that cost as much as such a file can.
#ifndef VEXPA_TESTS_WORST_SHAPES_H_
#define VEXPA_TESTS_WORST_SHAPES_H_

#include <string>
#include <vector>

namespace vexpa_test {

struct Shape {
    const char* name;
    std::string (*bytes)();
};

// What is dense without repeating itself, as text of many short items is.
std::vector<Shape> DenseShapes();

// What unpacks to a thousand times its size.
std::vector<Shape> BombShapes();

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_WORST_SHAPES_H_
