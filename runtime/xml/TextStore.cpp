#include "runtime/xml/TextStore.h"

namespace vexpa_runtime {

char16_t* TextStore::Allocate(std::size_t units) {
    const std::size_t bytes = units * sizeof(char16_t);
    if (void* const text = memory_.TakeFromBlock(bytes, alignof(char16_t))) {
        return static_cast<char16_t*>(text);
    }
    // A long text has a piece to itself, and the rest of the open one is not lost.
    if (units > kPiece / 8) return NewPiece(units);
    if (units > left_) {
        next_ = NewPiece(kPiece);
        left_ = kPiece;
    }
    char16_t* text = next_;
    next_ += units;
    left_ -= units;
    return text;
}

char16_t* TextStore::NewPiece(std::size_t units) {
    return pieces_.emplace_back(std::make_unique_for_overwrite<char16_t[]>(units)).get();
}

}  // namespace vexpa_runtime
