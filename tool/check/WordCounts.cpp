#include "tool/check/WordCounts.h"

#include <algorithm>

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

std::vector<std::pair<std::string, std::uint64_t>> WordCounts::Sorted() const {
    std::vector<std::pair<std::string, std::uint64_t>> words(counts_.begin(), counts_.end());
    std::stable_sort(words.begin(), words.end(),
                     [](const auto& a, const auto& b) { return a.second > b.second; });
    return words;
}

std::string WordCounts::Text(std::size_t most) const {
    ShownList list(most);
    for (const auto& [word, count] : Sorted()) list.Add(word + " (" + GroupedDigits(count) + ")");
    return list.Text();
}

void WordCounts::AddItems(const Findings& findings, Finding& finding) const {
    for (const auto& [word, count] : Sorted()) findings.AddItem(finding, {{}, word, count});
}

}  // namespace vexpa_tool
