// tests/tool/check/FindingRows.h - packages with findings, and others that only look like them.
#ifndef VEXPA_TESTS_TOOL_CHECK_FINDINGROWS_H_
#define VEXPA_TESTS_TOOL_CHECK_FINDINGROWS_H_

#include <functional>
#include <string>
#include <vector>

#include "tests/tool/check/SoundPackage.h"

namespace vexpa_test {

// A file, and all that a deep check finds in it: "VX305 VX401".
struct FindingRow {
    const char* shows;
    std::string bytes;
    const char* ids;
};

using FindingRows = std::vector<FindingRow>;

// The sound package after a change.
std::string Spoiled(const std::function<void(SoundPackage&)>& spoil);

// A package with a warning, information and nothing worse.
std::string Dangling();
// A package that does not open, as its last relationship has another letter case.
std::string Refused();

// All of these.
FindingRows AllRows();
FindingRows FileRows();
FindingRows ArchiveRows();
FindingRows EntryNameRows();
FindingRows ContentTypeRows();
FindingRows PackageRows();
FindingRows RelationshipRows();
FindingRows PartDataRows();
FindingRows ShapeRows();

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_TOOL_CHECK_FINDINGROWS_H_
