// tool/check/WordCounts.h - how often each word came: "image (12), theme (2)".
#ifndef VEXPA_TOOL_CHECK_WORDCOUNTS_H_
#define VEXPA_TOOL_CHECK_WORDCOUNTS_H_

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tool/check/Findings.h"

namespace vexpa_tool {

class WordCounts {
public:
    // Beyond that many different words, new ones are counted in all only.
    static constexpr std::size_t kMostWords = 50'000;

    void Add(std::string_view utf8);

    bool IsEmpty() const noexcept { return total_ == 0; }
    std::uint64_t Total() const noexcept { return total_; }
    // "3 types": how many different ones, "50,000 types or more" where that is not known.
    std::string WordsText(const std::string& one, const std::string& several) const;

    // At most `most` of them, the most frequent first.
    std::string Text(std::size_t most) const;
    bool IsWhole(std::size_t most) const noexcept { return counts_.size() <= most; }

    // All of them in that order, as items of a finding.
    void AddItems(const Findings& findings, Finding& finding) const;

private:
    std::vector<std::pair<std::string, std::uint64_t>> Sorted() const;

    std::map<std::string, std::uint64_t, std::less<>> counts_;
    std::uint64_t total_ = 0;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_WORDCOUNTS_H_
