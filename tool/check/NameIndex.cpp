#include "tool/check/NameIndex.h"

#include <QString>
#include <algorithm>
#include <tuple>

namespace vexpa_tool {

namespace {

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<signed char>(c) >= 0; });
}

char FoldedAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::string FoldedCase(std::string_view utf8) {
    if (!IsAscii(utf8)) {
        return QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size()))
            .toCaseFolded()
            .toStdString();
    }
    std::string folded(utf8);
    std::transform(folded.begin(), folded.end(), folded.begin(), FoldedAscii);
    return folded;
}

NameIndex::NameIndex(const Container& container) : container_(container) {
    const std::vector<ContainerEntry>& entries = container.Entries();
    names_.reserve(entries.size());
    for (std::uint32_t i = 0; i < entries.size(); ++i)
        names_.push_back({FoldedCase(entries[i].name), i});
    std::sort(names_.begin(), names_.end(), [](const Name& a, const Name& b) {
        return std::tie(a.folded, a.entry) < std::tie(b.folded, b.entry);
    });
}

const ContainerEntry* NameIndex::FindVariant(std::string_view name) const {
    const std::string folded = FoldedCase(name);
    auto at =
        std::lower_bound(names_.begin(), names_.end(), folded,
                         [](const Name& a, const std::string& wanted) { return a.folded < wanted; });
    if (at == names_.end() || at->folded != folded) return nullptr;
    const ContainerEntry& entry = container_.Entries()[at->entry];
    return entry.name == name ? nullptr : &entry;
}

}  // namespace vexpa_tool
