// runtime/xml/TextStore.h - room for the text of a document.
#ifndef VEXPA_RUNTIME_XML_TEXTSTORE_H_
#define VEXPA_RUNTIME_XML_TEXTSTORE_H_

#include <cstddef>
#include <memory>
#include <vector>

#include "runtime/xml/DocumentMemory.h"

namespace vexpa_runtime {

// Nothing is given back or moved before the store ends. Beyond the document's block pieces are of
// one size, so that the last of them is never a large part of the whole.
class TextStore {
public:
    // `memory` outlives the store.
    explicit TextStore(DocumentMemory& memory) noexcept : memory_(memory) {}
    TextStore(const TextStore&) = delete;
    TextStore& operator=(const TextStore&) = delete;

    // [borrowed] Room for that many units, which are not set.
    char16_t* Allocate(std::size_t units);

private:
    static constexpr std::size_t kPiece = 8'192;  // units

    char16_t* NewPiece(std::size_t units);

    DocumentMemory& memory_;
    std::vector<std::unique_ptr<char16_t[]>> pieces_;
    char16_t* next_ = nullptr;  // in the piece that is not full yet
    std::size_t left_ = 0;
};

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_XML_TEXTSTORE_H_
