// tests/fault/ArchiveChanges.h - archives in two versions, chosen to be hard to tell apart.
#ifndef VEXPA_TESTS_FAULT_ARCHIVECHANGES_H_
#define VEXPA_TESTS_FAULT_ARCHIVECHANGES_H_

#include <string>
#include <vector>

namespace vexpa_test {

// Two versions of the bytes of an archive, of which "entry" is asked for.
struct Versions {
    std::string was;
    std::string becomes;
};

struct ArchiveChange {
    const char* name;
    Versions versions;
};

const std::vector<ArchiveChange>& ArchiveChanges();

// The text with a difference in every eighth byte and the four after it. It is the CRC-32
// polynomial itself, so the check sum stays - that of every mixture of the two texts, too.
std::string WithTheSameCheckSum(std::string text);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_FAULT_ARCHIVECHANGES_H_
