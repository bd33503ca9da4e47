// vexpa/opc/RelationshipAllowance.h - how much the relationships of one package may take.
#ifndef VEXPA_OPC_RELATIONSHIPALLOWANCE_H_
#define VEXPA_OPC_RELATIONSHIPALLOWANCE_H_

#include <algorithm>
#include <cstddef>

namespace tarn::opc {

// A relationship takes half a kilobyte of memory and more, and deflate makes room for fifty million
// of them in a file of a megabyte. Sound packages have some thousands; the largest, with many sheets
// full of hyperlinks, some hundred thousand.
//
// What a stream holds besides takes time to parse. Sound streams hold next to nothing.
class RelationshipAllowance {
public:
    static constexpr std::size_t kMostMemory = 512UL << 20;
    static constexpr std::size_t kMostPadding = 16UL << 20;

    explicit RelationshipAllowance(std::size_t memory = kMostMemory,
                                   std::size_t padding = kMostPadding) noexcept
        : memoryLeft_(memory), paddingLeft_(padding) {}

    // Whether a relationship that takes so many bytes may be kept. After one that may not, no
    // other may.
    bool TakeMemory(std::size_t bytes) noexcept {
        const bool may = bytes <= memoryLeft_;
        memoryLeft_ = may ? memoryLeft_ - bytes : 0;
        return may;
    }

    // Counts the text of a stream of which this many relationships were made.
    void CountText(std::size_t bytes, std::size_t relationships) noexcept {
        constexpr std::size_t kTextOfOne = 2560;  // applications take links of 2,083 characters
        const std::size_t padding = bytes - std::min(bytes, relationships * kTextOfOne);
        paddingLeft_ -= std::min(padding, paddingLeft_);
    }

    // Whether streams need be read any more.
    bool IsUsedUp() const noexcept { return memoryLeft_ == 0 || paddingLeft_ == 0; }

private:
    std::size_t memoryLeft_;
    std::size_t paddingLeft_;
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_RELATIONSHIPALLOWANCE_H_
