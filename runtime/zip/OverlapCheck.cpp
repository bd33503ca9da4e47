#include "runtime/zip/OverlapCheck.h"

#include <algorithm>
#include <cstddef>

namespace vexpa_runtime::zip {

namespace {

// Whether there is data that could lie in the file; what does not is never read.
bool HasData(const Entry& entry, std::uint64_t fileSize) {
    return entry.compressedSize != 0 && entry.headerPosition <= fileSize &&
           entry.compressedSize <= fileSize - entry.headerPosition;
}

bool ClaimsMoreThanThereIs(const std::vector<Entry>& entries, std::uint64_t fileSize) {
    std::uint64_t left = fileSize;
    for (const Entry& entry : entries) {
        if (!HasData(entry, fileSize)) continue;
        if (entry.compressedSize > left) return true;
        left -= entry.compressedSize;
    }
    return false;
}

}  // namespace

void MarkOverlaps(std::vector<Entry>& entries, std::uint64_t fileSize) {
    if (!ClaimsMoreThanThereIs(entries, fileSize)) return;

    std::vector<Entry*> inFile;
    for (Entry& entry : entries) {
        if (HasData(entry, fileSize)) inFile.push_back(&entry);
    }
    // Of entries at one place the first of the directory is sorted last, so that it alone is
    // measured by the next place.
    std::sort(inFile.begin(), inFile.end(), [](const Entry* a, const Entry* b) {
        return a->headerPosition != b->headerPosition ? a->headerPosition < b->headerPosition : a > b;
    });
    for (std::size_t i = 0; i + 1 < inFile.size(); ++i) {
        const std::uint64_t room = inFile[i + 1]->headerPosition - inFile[i]->headerPosition;
        inFile[i]->overlaps = inFile[i]->compressedSize > room;
    }
}

}  // namespace vexpa_runtime::zip
