#include "runtime/xml/DocumentBuilder.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

#include "runtime/text/Utf8.h"

namespace vexpa_runtime {

namespace {

constexpr std::size_t kMaxCount = std::numeric_limits<std::uint32_t>::max();

// The units of `utf8` in UTF-16: one for each character, and another for those of four bytes.
std::size_t Utf16Length(std::string_view utf8) {
    std::size_t units = 0;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        units +=
            static_cast<std::size_t>((byte & 0xC0) != 0x80) + static_cast<std::size_t>(byte >= 0xF0);
    }
    return units;
}

// Writes the UTF-16 of `utf8`, which the parser has checked, and answers its end.
char16_t* WriteUtf16(std::string_view utf8, std::size_t units, char16_t* out) {
    const bool isAscii = units == utf8.size();
    if (isAscii) return std::copy(utf8.begin(), utf8.end(), out);
    for (std::size_t at = 0; at < utf8.size();) out = WriteCharacter(NextCharacter(utf8, at), out);
    return out;
}

std::u16string_view Convert(std::string_view utf8, std::pmr::u16string& scratch) {
    const std::size_t units = Utf16Length(utf8);
    if (scratch.size() < units) scratch.resize(units);
    WriteUtf16(utf8, units, scratch.data());
    return {scratch.data(), units};
}

// The local name is what follows the first colon; the rest of the colons belong to it.
std::string_view LocalName(std::string_view name) {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

}  // namespace

void DocumentBuilder::AddElement(const char* name, const char* const* attributes) {
    const std::uint32_t element = AddAttributes(attributes);
    if (draft_->elements.size() == kMaxCount) throw std::bad_alloc();
    draft_->elements.push_back(
        {data_->localNames.Intern(Convert(LocalName(name), draft_->scratch)), element});
    cost_ += sizeof(NamedElement) + sizeof(std::uint32_t);
}

// The element that holds them, or kBare when there are none.
std::uint32_t DocumentBuilder::AddAttributes(const char* const* attributes) {
    if (*attributes == nullptr) return DocumentData::kBare;
    const std::size_t first = data_->attributes.size();
    for (; *attributes != nullptr; attributes += 2) AddAttribute(attributes[0], attributes[1]);
    if (data_->attributes.size() > kMaxCount) throw std::bad_alloc();

    const std::size_t count = data_->attributes.size() - first;
    data_->elements.emplace_back(data_.get(), static_cast<std::uint32_t>(first),
                                 static_cast<std::uint32_t>(count));
    cost_ += sizeof(Element);
    return static_cast<std::uint32_t>(data_->elements.size() - 1);
}

void DocumentBuilder::AddAttribute(const char* name, const char* value) {
    const std::string_view text = value;
    const std::size_t units = Utf16Length(text);
    char16_t* copy = data_->text.Allocate(units + 1);
    *WriteUtf16(text, units, copy) = u'\0';
    data_->attributes.emplace_back(data_->attributeNames.Intern(Convert(name, draft_->scratch)), copy);
    cost_ += sizeof(Attribute) + (units + 1) * sizeof(char16_t);
}

std::unique_ptr<Document> DocumentBuilder::Finish() {
    BuildLists();
    draft_.reset();
    return std::make_unique<Document>(std::move(data_));
}

// A counting sort: each list is a range, and document order holds within it.
void DocumentBuilder::BuildLists() {
    std::pmr::vector<std::uint32_t> places(data_->localNames.Size(), &data_->memory);
    for (const NamedElement& element : draft_->elements) ++places[element.name];

    data_->lists.reserve(places.size());
    std::uint32_t first = 0;
    for (std::uint32_t& place : places) {
        const std::uint32_t length = std::exchange(place, first);
        data_->lists.emplace_back(data_.get(), first, length);
        first += length;
    }

    data_->order.resize(draft_->elements.size());
    for (const NamedElement& element : draft_->elements) {
        data_->order[places[element.name]++] = element.element;
    }
}

}  // namespace vexpa_runtime
