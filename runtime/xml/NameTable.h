// runtime/xml/NameTable.h - a number for each distinct name.
#ifndef VEXPA_RUNTIME_XML_NAMETABLE_H_
#define VEXPA_RUNTIME_XML_NAMETABLE_H_

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "runtime/xml/DocumentMemory.h"
#include "runtime/xml/TextStore.h"

namespace vexpa_runtime {

// Keyed by chance: a document cannot choose names that fall into one bucket.
class NameHash {
public:
    NameHash();
    // Not noexcept, so that the table keeps each hash rather than making it again.
    std::size_t operator()(std::u16string_view name) const;

private:
    std::uint64_t point_;
};

// Numbers run from 0 in order of first appearance, so they index arrays.
class NameTable {
public:
    static constexpr std::uint32_t kUnknown = 0xFFFFFFFF;

    // New names are copied into `text`; both it and `memory` outlive the table.
    NameTable(TextStore& text, DocumentMemory& memory)
        : text_(&text), numbers_(&memory), names_(&memory) {}

    std::uint32_t Intern(std::u16string_view name);
    std::uint32_t Find(std::u16string_view name) const;
    std::u16string_view NameOf(std::uint32_t number) const { return names_[number]; }
    std::size_t Size() const { return names_.size(); }

private:
    // To compare so many costs less than a hash, and most documents have no more.
    static constexpr std::uint32_t kFew = 8;

    TextStore* text_;
    std::pmr::unordered_map<std::u16string_view, std::uint32_t, NameHash>
        numbers_;                                  // once there are more than few
    std::pmr::vector<std::u16string_view> names_;  // by number
};

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_XML_NAMETABLE_H_
