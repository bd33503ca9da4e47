#include "vexpa/opc/TypeText.h"

#include <algorithm>
#include <string_view>

#include "vexpa/base/Utf16.h"
#include "vexpa/opc/NormalizeRelationshipType.h"

namespace tarn::opc {

namespace {

constexpr std::size_t kRemembered = 16;

}  // namespace

TypeText::TypeText(const char16_t* text)
    : written(CopyText(text)), folded(NormalizeRelationshipType(written)) {}

std::shared_ptr<const TypeText> TypeTexts::Share(const char16_t* text) {
    const std::u16string_view written = text == nullptr ? u"" : text;
    auto found = std::find_if(last_.begin(), last_.end(),
                              [&](const auto& type) { return type->written == written; });
    if (found == last_.end()) {
        auto made = std::make_shared<const TypeText>(text);
        if (last_.size() == kRemembered) last_.pop_back();
        last_.push_back(std::move(made));
        found = last_.end() - 1;
    }
    std::rotate(last_.begin(), found, found + 1);
    return last_.front();
}

}  // namespace tarn::opc
