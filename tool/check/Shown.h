// tool/check/Shown.h - names and values from a package, inside a sentence.
#ifndef VEXPA_TOOL_CHECK_SHOWN_H_
#define VEXPA_TOOL_CHECK_SHOWN_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexpa_tool {

// Printable text; of a very long one the beginning and the end. Two quotes for the empty text.
std::string Shown(std::u16string_view text);
std::string Shown(std::string_view utf8);

// "1 entry", "1,204 entries".
std::string Counted(std::uint64_t count, const std::string& one, const std::string& several);

// "a", "a and b", "a, b and c"; of more than `most` the first, "and 7 more".
class ShownList {
public:
    explicit ShownList(std::size_t most = 3) : most_(most) {}
    // What is beyond the most is only counted.
    void Add(std::string_view utf8);
    std::uint64_t Count() const noexcept { return count_; }
    // Whether nothing is left out of the text.
    bool IsWhole() const noexcept { return count_ <= most_; }
    std::string Text() const;

private:
    std::size_t most_;
    std::uint64_t count_ = 0;
    std::vector<std::string> shown_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_SHOWN_H_
