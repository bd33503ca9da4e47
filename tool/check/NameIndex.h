// tool/check/NameIndex.h - entries by name, whatever the case of the letters.
#ifndef VEXPA_TOOL_CHECK_NAMEINDEX_H_
#define VEXPA_TOOL_CHECK_NAMEINDEX_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tool/container/Container.h"

namespace vexpa_tool {

// The text with the case of its letters taken out, the same under every locale.
std::string FoldedCase(std::string_view utf8);

// Sorted, not hashed: names can be chosen.
class NameIndex {
public:
    explicit NameIndex(const Container& container);

    // [borrowed] The first entry that differs from the name only in letter case, or null.
    const ContainerEntry* FindVariant(std::string_view name) const;

    // Calls visit(first, other) for each entry that has the name of an earlier one but for letter
    // case, in the order of the names.
    template <class Visit>
    void ForEachRepeated(Visit visit) const {
        std::size_t first = 0;
        for (std::size_t i = 1; i < names_.size(); ++i) {
            if (names_[i].folded != names_[first].folded) {
                first = i;
            } else {
                visit(container_.Entries()[names_[first].entry], container_.Entries()[names_[i].entry]);
            }
        }
    }

private:
    struct Name {
        std::string folded;
        std::uint32_t entry;
    };

    const Container& container_;
    std::vector<Name> names_;  // by folded name, then entry
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_NAMEINDEX_H_
