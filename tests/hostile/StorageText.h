// tests/hostile/StorageText.h - a whole storage as text, for a test to compare.
#ifndef VEXPA_TESTS_HOSTILE_STORAGETEXT_H_
#define VEXPA_TESTS_HOSTILE_STORAGETEXT_H_

#include <string>

#include "vexpa/platform/Runtime.h"

namespace vexpa_test {

// The elements in the order in which they are enumerated, each with its bytes or, in braces,
// its own elements: {Workbook "text", Data{Inner 70000 bytes, crc 1b2c3d4e}, Bad unreadable}.
// Also what does not open or read to its end is shown, as unreadable.
std::string StorageText(IStorage& storage);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_HOSTILE_STORAGETEXT_H_
