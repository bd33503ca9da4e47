// vexpa/opc/RelationshipAllowance.h - how much the relationships of one package may take.
#ifndef VEXPA_OPC_RELATIONSHIPALLOWANCE_H_
#define VEXPA_OPC_RELATIONSHIPALLOWANCE_H_

#include <cstddef>

namespace tarn::opc {

// A relationship takes half a kilobyte of memory and more, and deflate makes room for fifty million
// of them in a file of a megabyte. Sound packages have some thousands; the largest, with every
// sheet full of hyperlinks, some hundred thousand.
//
// The text is counted besides, as XML takes time whether or not it holds relationships.
class RelationshipAllowance {
public:
    static constexpr std::size_t kMostText = 256UL << 20;
    static constexpr std::size_t kMostMemory = 1UL << 30;

    explicit RelationshipAllowance(std::size_t text = kMostText,
                                   std::size_t memory = kMostMemory) noexcept
        : textLeft_(text), memoryLeft_(memory) {}

    // Whether a stream of so many bytes may be parsed, and a relationship that takes so many be
    // kept. After one that may not, no other of its kind may.
    bool TakeText(std::size_t bytes) noexcept { return Take(bytes, textLeft_); }
    bool TakeMemory(std::size_t bytes) noexcept { return Take(bytes, memoryLeft_); }

    // Whether no stream need be read any more.
    bool IsUsedUp() const noexcept { return textLeft_ == 0 || memoryLeft_ == 0; }

private:
    static bool Take(std::size_t bytes, std::size_t& left) noexcept {
        const bool may = bytes <= left;
        left = may ? left - bytes : 0;
        return may;
    }

    std::size_t textLeft_;
    std::size_t memoryLeft_;
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_RELATIONSHIPALLOWANCE_H_
