#include "tool/check/Shown.h"

#include "tool/text/Size.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

constexpr std::size_t kLongest = 200;  // UTF-16 units
constexpr std::size_t kEndShown = 60;

bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// Not inside a surrogate pair.
std::size_t CutBefore(std::u16string_view text, std::size_t at) {
    return IsLowSurrogate(text[at]) ? at - 1 : at;
}

}  // namespace

std::string Shown(std::u16string_view text) {
    if (text.size() <= kLongest) return PrintableOrQuotes(text);
    const std::size_t headEnd = CutBefore(text, kLongest - kEndShown);
    const std::size_t tailStart = CutBefore(text, text.size() - kEndShown);
    return Printable(text.substr(0, headEnd)) + "..." + Printable(text.substr(tailStart));
}

std::string Shown(std::string_view utf8) {
    return Shown(FromUtf8(utf8));
}

std::string Counted(std::uint64_t count, const std::string& one, const std::string& several) {
    return GroupedDigits(count) + " " + (count == 1 ? one : several);
}

void ShownList::Add(std::string_view utf8) {
    if (++count_ <= most_) shown_.push_back(Shown(utf8));
}

std::string ShownList::Text() const {
    std::vector<std::string> items = shown_;
    if (count_ > items.size()) items.push_back(GroupedDigits(count_ - items.size()) + " more");
    std::string text;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i != 0) text += i + 1 == items.size() ? " and " : ", ";
        text += items[i];
    }
    return text;
}

}  // namespace vexpa_tool
