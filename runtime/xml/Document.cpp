#include "runtime/xml/Document.h"

#include <utility>

namespace vexpa_runtime {

IDomAttribute* Element::GetNamedItem(const char16_t* name) {
    if (name == nullptr) return nullptr;
    const std::u16string_view text = name;
    auto attribute = document_->attributes.begin() + first_;
    // Looking the name up would take longer than looking at the few attributes that most have.
    constexpr std::uint32_t kFew = 8;
    if (count_ <= kFew) {
        for (std::uint32_t i = 0; i < count_; ++i, ++attribute) {
            if (document_->attributeNames.NameOf(attribute->Name()) == text) return &*attribute;
        }
        return nullptr;
    }
    const std::uint32_t wanted = document_->attributeNames.Find(text);
    if (wanted == NameTable::kUnknown) return nullptr;
    for (std::uint32_t i = 0; i < count_; ++i, ++attribute) {
        if (attribute->Name() == wanted) return &*attribute;
    }
    return nullptr;
}

IDomNode* ElementList::GetItem(std::uint32_t index) {
    if (index >= length_) return nullptr;
    const std::uint32_t element = document_->order[first_ + index];
    if (element == DocumentData::kBare) return &document_->bareElement;
    return &document_->elements[element];
}

Document::Document(std::unique_ptr<DocumentData> data) noexcept
    : data_(std::move(data)), none_(data_.get(), 0, 0) {}

IDomNodeList* Document::GetElementsByTagName(const char16_t* name) {
    if (name == nullptr) return &none_;
    const std::uint32_t number = data_->localNames.Find(name);
    return number == NameTable::kUnknown ? &none_ : &data_->lists[number];
}

}  // namespace vexpa_runtime
