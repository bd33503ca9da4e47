// runtime/xml/DocumentBuilder.h - makes a document of the parser's start tags.
#ifndef VEXPA_RUNTIME_XML_DOCUMENTBUILDER_H_
#define VEXPA_RUNTIME_XML_DOCUMENTBUILDER_H_

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/xml/Document.h"

namespace vexpa_runtime {

// Takes names and values in the parser's UTF-8. Everything throws std::bad_alloc when
// memory is exhausted or a number of 32 bits is.
class DocumentBuilder {
public:
    DocumentBuilder() : data_(std::make_unique<DocumentData>()), draft_(std::in_place, data_->memory) {}

    // `attributes` alternates names and values up to a null.
    void AddElement(const char* name, const char* const* attributes);

    // How many bytes the document takes, about. A name of its own costs an element or attribute as
    // much as a dozen that share one.
    std::uint64_t Cost() const noexcept {
        return cost_ + kNameCost * (data_->localNames.Size() + data_->attributeNames.Size());
    }
    // Elements and attributes.
    std::uint64_t Nodes() const noexcept {
        return std::uint64_t{draft_->elements.size()} + data_->attributes.size();
    }

    // The document; nothing may be added or asked after this.
    std::unique_ptr<Document> Finish();

private:
    static constexpr std::uint64_t kNameCost = 96;  // in the tables of names

    struct NamedElement {
        std::uint32_t name;     // in DocumentData::localNames
        std::uint32_t element;  // in DocumentData::elements, or kBare
    };

    // What only the making needs, in the document's memory.
    struct Draft {
        explicit Draft(DocumentMemory& memory) : elements(&memory), scratch(&memory) {}
        std::pmr::deque<NamedElement> elements;  // in document order
        std::pmr::u16string scratch;
    };

    std::uint32_t AddAttributes(const char* const* attributes);
    void AddAttribute(const char* name, const char* value);
    void BuildLists();

    std::unique_ptr<DocumentData> data_;
    std::optional<Draft> draft_;  // until the document goes to its owner, and its memory with it
    std::uint64_t cost_ = 0;
};

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_XML_DOCUMENTBUILDER_H_
