#include "runtime/xml/DocumentBuilder.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace vexpa_runtime {

namespace {

constexpr std::size_t kMaxCount = std::numeric_limits<std::uint32_t>::max();

// Writes the UTF-16 of `utf8`, which the parser has checked, and answers where it places.
char16_t* WriteUtf16(std::string_view utf8, char16_t* out) {
    const auto* at = reinterpret_cast<const unsigned char*>(utf8.data());
    const unsigned char* end = at + utf8.size();
    const auto next = [&] { return at != end ? static_cast<char32_t>(*at++ & 0x3F) : 0; };
    while (at != end) {
        char32_t code = *at++;
        if (code >= 0xF0) {
            code = (code & 0x07) << 18;
            code |= next() << 12;
            code |= next() << 6;
            code |= next();
            *out++ = static_cast<char16_t>(0xD7C0 + (code >> 10));
            *out++ = static_cast<char16_t>(0xDC00 | (code & 0x3FF));
            continue;
        }
        if (code >= 0xE0) {
            code = (code & 0x0F) << 12;
            code |= next() << 6;
            code |= next();
        } else if (code >= 0x80) {
            code = (code & 0x1F) << 6;
            code |= next();
        }
        *out++ = static_cast<char16_t>(code);
    }
    return out;
}

// UTF-16 never has more units than UTF-8 has bytes.
std::u16string_view Convert(std::string_view utf8, std::u16string& scratch) {
    if (scratch.size() < utf8.size()) scratch.resize(utf8.size());
    const char16_t* end = WriteUtf16(utf8, scratch.data());
    return {scratch.data(), static_cast<std::size_t>(end - scratch.data())};
}

// The local name is what follows the first colon; the rest of the colons belong to it.
std::string_view LocalName(std::string_view name) {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

}  // namespace

void DocumentBuilder::AddElement(const char* name, const char* const* attributes) {
    const std::size_t first = data_->attributes.size();
    for (; *attributes != nullptr; attributes += 2) AddAttribute(attributes[0], attributes[1]);

    const std::size_t count = data_->attributes.size() - first;
    if (data_->attributes.size() > kMaxCount || data_->elements.size() == kMaxCount) {
        throw std::bad_alloc();
    }
    elementNames_.push_back(data_->localNames.Intern(Convert(LocalName(name), scratch_)));
    data_->elements.emplace_back(data_.get(), static_cast<std::uint32_t>(first),
                                 static_cast<std::uint32_t>(count));
    cost_ += sizeof(Element) + 2 * sizeof(std::uint32_t);
}

void DocumentBuilder::AddAttribute(const char* name, const char* value) {
    const std::u16string_view text = Convert(value, scratch_);
    const std::size_t bytes = (text.size() + 1) * sizeof(char16_t);
    auto* copy = static_cast<char16_t*>(data_->text.allocate(bytes, alignof(char16_t)));
    *std::copy(text.begin(), text.end(), copy) = u'\0';

    const std::uint32_t number = data_->attributeNames.Intern(Convert(name, scratch_));
    data_->attributes.emplace_back(number, copy);
    cost_ += sizeof(Attribute) + bytes;
}

std::unique_ptr<Document> DocumentBuilder::Finish() {
    BuildLists();
    return std::make_unique<Document>(std::move(data_));
}

// A counting sort: each list is a range, and document order holds within it.
void DocumentBuilder::BuildLists() {
    std::vector<std::uint32_t> places(data_->localNames.Size());
    for (const std::uint32_t name : elementNames_) ++places[name];

    data_->lists.reserve(places.size());
    std::uint32_t first = 0;
    for (std::uint32_t& place : places) {
        const std::uint32_t length = std::exchange(place, first);
        data_->lists.emplace_back(data_.get(), first, length);
        first += length;
    }

    data_->order.resize(elementNames_.size());
    for (std::size_t i = 0; i < elementNames_.size(); ++i) {
        data_->order[places[elementNames_[i]]++] = static_cast<std::uint32_t>(i);
    }
}

}  // namespace vexpa_runtime
