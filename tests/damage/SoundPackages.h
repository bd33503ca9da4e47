// tests/damage/SoundPackages.h - small packages to be damaged.
#ifndef VEXPA_TESTS_DAMAGE_SOUNDPACKAGES_H_
#define VEXPA_TESTS_DAMAGE_SOUNDPACKAGES_H_

#include <string>

#include "tests/support/ZipFile.h"

namespace vexpa_test {

// No entry's name is the beginning of another's or differs from it by one byte, so no single
// damage to a name makes one part stand in another's place.

// A text with styles and a picture: deflated and stored entries, extra fields, comments.
ZipFile SoundDocument();

// A workbook with an object embedded in it, a compound file.
ZipFile SoundPackageWithObject();
std::string SoundObject();
inline constexpr const char* kObjectEntry = "xl/embeddings/object.bin";

// The document with zip64 records, data descriptors of every kind, and bytes before it.
ZipFile SoundZip64Document();

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_DAMAGE_SOUNDPACKAGES_H_
