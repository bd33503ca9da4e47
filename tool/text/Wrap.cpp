#include "tool/text/Wrap.h"

#include <algorithm>

namespace vexpa_tool {

namespace {

constexpr std::size_t kWidth = 78;

}  // namespace

std::string Wrapped(std::string_view text, const std::string& first, const std::string& indent) {
    std::string lines;
    std::string line = first;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        if (line.size() + 1 + word.size() > kWidth && line.size() > indent.size()) {
            lines += line + "\n";
            line = indent;
        }
        if (line.size() > indent.size() && line.back() != ' ') line += ' ';
        line += word;
    }
    return lines + line + "\n";
}

}  // namespace vexpa_tool
