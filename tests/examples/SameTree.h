// tests/examples/SameTree.h - compares what two importers made of a part.
#ifndef VEXPA_TESTS_EXAMPLES_SAMETREE_H_
#define VEXPA_TESTS_EXAMPLES_SAMETREE_H_

#include <gtest/gtest.h>

#include "examples/importer/Importer.h"

namespace vexpa_test {

// Tokens, values and order, in the whole tree, and the counts.
testing::AssertionResult SameTree(const importer::Tree& left, const importer::Tree& right);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_EXAMPLES_SAMETREE_H_
