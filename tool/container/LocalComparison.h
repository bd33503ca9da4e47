// tool/container/LocalComparison.h - where directory and local header tell different things.
#ifndef VEXPA_TOOL_CONTAINER_LOCALCOMPARISON_H_
#define VEXPA_TOOL_CONTAINER_LOCALCOMPARISON_H_

#include <cstdint>

#include "tool/container/LocalHeader.h"

namespace vexpa_tool {

enum LocalDifference : unsigned {
    kNoLocalHeader = 1U << 0,  // and nothing else is said
    kDataBeyondFile = 1U << 1,
    kNameDiffers = 1U << 2,
    kMethodDiffers = 1U << 3,
    kEncryptionDiffers = 1U << 4,
    kCrcDiffers = 1U << 5,
    kCompressedSizeDiffers = 1U << 6,
    kSizeDiffers = 1U << 7,
};

class LocalComparison {
public:
    explicit LocalComparison(const Container& container) : container_(container) {}

    // LocalDifference bits. What a local header leaves to its descriptor differs from nothing.
    unsigned Compare(const ContainerEntry& entry);

private:
    unsigned CompareSizes(const ContainerEntry& entry, LocalHeader local);

    const Container& container_;
    // Headers may share the bytes of their extra data, so reading all of it could take the
    // square of the file's size. Real archives stay far below this.
    std::uint64_t extraLeft_ = 64 << 20;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CONTAINER_LOCALCOMPARISON_H_
