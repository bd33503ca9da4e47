#include "tool/check/WordCounts.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "tool/check/Shown.h"
#include "tool/text/Size.h"

namespace vexpa_tool {

void WordCounts::Add(std::string_view utf8) {
    ++total_;
    const auto known = counts_.find(utf8);
    if (known != counts_.end()) {
        ++known->second;
    } else if (counts_.size() < kMostWords) {
        counts_.emplace(utf8, 1);
    }
}

std::string WordCounts::WordsText(const std::string& one, const std::string& several) const {
    return Counted(counts_.size(), one, several) + (counts_.size() < kMostWords ? "" : " or more");
}

std::string WordCounts::Text(std::size_t most) const {
    std::vector<std::pair<std::string, std::uint64_t>> words(counts_.begin(), counts_.end());
    std::stable_sort(words.begin(), words.end(),
                     [](const auto& a, const auto& b) { return a.second > b.second; });
    ShownList list(most);
    for (const auto& [word, count] : words) list.Add(word + " (" + GroupedDigits(count) + ")");
    return list.Text();
}

}  // namespace vexpa_tool
