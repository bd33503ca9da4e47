#include "runtime/zip/NamePattern.h"

#include <algorithm>

#include "runtime/text/Utf8.h"

namespace vexpa_runtime::zip {

namespace {

constexpr std::size_t kNone = std::u32string_view::npos;

std::u32string Characters(std::string_view text) {
    std::u32string characters;
    for (std::size_t at = 0; at < text.size();) characters.push_back(NextCharacter(text, at));
    return characters;
}

// The index of the ']' that ends the class whose body begins at `at`.
std::size_t ClassEnd(std::u32string_view text, std::size_t at) {
    for (; at < text.size(); ++at) {
        if (text[at] == U']') return at;
        if (text[at] == U'\\') ++at;
    }
    return kNone;
}

}  // namespace

bool NamePattern::HasSpecialCharacters(std::string_view text) noexcept {
    return text.find_first_of("*?[\\") != std::string_view::npos;
}

std::optional<std::string> NamePattern::EscapedName(std::string_view text) {
    constexpr std::string_view kSpecial = "*?[]\\";
    std::string name;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isEscape = text[at] == '\\';
        if (isEscape) ++at;
        const bool isSpecial = at < text.size() && kSpecial.find(text[at]) != kSpecial.npos;
        if (isSpecial != isEscape) return std::nullopt;
        name.push_back(text[at]);
    }
    return name;
}

// No byte of a longer character is one of those that mean something.
std::optional<std::string> NamePattern::OnlyName(std::string_view text) {
    std::string name;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isEscape = text[at] == '\\';
        if (!isEscape && HasSpecialCharacters(text.substr(at, 1))) return std::nullopt;
        if (isEscape && ++at == text.size()) return std::nullopt;
        name.push_back(text[at]);
    }
    return name;
}

NamePattern::NamePattern(std::string_view text) : patternSize_(text.size()) {
    matchesNothing_ = !Parse(Characters(text));
    FindPlainEnds();
}

void NamePattern::FindPlainEnds() {
    const auto isSpecial = [](const Token& token) { return token.kind != Kind::kCharacter; };
    const auto first = std::find_if(tokens_.begin(), tokens_.end(), isSpecial);
    const auto last = std::find_if(tokens_.rbegin(), tokens_.rend(), isSpecial).base();
    std::for_each(tokens_.begin(), first,
                  [this](const Token& t) { AppendUtf8(plainStart_, t.character); });
    std::for_each(last, tokens_.end(), [this](const Token& t) { AppendUtf8(plainEnd_, t.character); });
}

bool NamePattern::Parse(std::u32string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        switch (text[at]) {
            case U'*':
                tokens_.push_back({Kind::kAnyRun, 0, false, 0, 0});
                break;
            case U'?':
                tokens_.push_back({Kind::kAnyCharacter, 0, false, 0, 0});
                break;
            case U'[': {
                const std::size_t end = ClassEnd(text, at + 1);
                if (end == kNone) return false;
                AddClass(text.substr(at + 1, end - at - 1));
                at = end;
                break;
            }
            case U'\\':
                if (++at == text.size()) return false;
                [[fallthrough]];
            default:
                tokens_.push_back({Kind::kCharacter, text[at], false, 0, 0});
        }
    }
    return true;
}

// Step for step as Info-ZIP walks the body, since that is what gives the odd cases their
// meaning: a character right before a '-' is not in the class by itself, it starts the range.
void NamePattern::AddClass(std::u32string_view body) {
    const bool negated = !body.empty() && (body[0] == U'!' || body[0] == U'^');
    if (negated) body.remove_prefix(1);
    const std::size_t firstRange = ranges_.size();
    std::size_t rangeStart = kNone;  // index of the first character of an open range
    bool literal = !body.empty() && body[0] == U'-';
    for (std::size_t i = 0; i < body.size(); ++i) {
        if (!literal && body[i] == U'\\') {
            literal = true;
        } else if (!literal && body[i] == U'-') {
            rangeStart = i - 1;
        } else {
            const bool startsRange = i + 1 < body.size() && body[i + 1] == U'-';
            if (!startsRange) ranges_.push_back({body[rangeStart == kNone ? i : rangeStart], body[i]});
            rangeStart = kNone;
            literal = false;
        }
    }
    tokens_.push_back({Kind::kClass, 0, negated, firstRange, MergeRanges(firstRange)});
}

// Brings the ranges from `first` on into order and joins those that overlap, so that looking into
// a class of ten thousand characters takes hardly longer than into one of ten. Answers their number.
std::size_t NamePattern::MergeRanges(std::size_t first) {
    const auto begin = ranges_.begin() + static_cast<std::ptrdiff_t>(first);
    std::vector<Range> given(begin, ranges_.end());
    ranges_.erase(begin, ranges_.end());
    std::sort(given.begin(), given.end(),
              [](const Range& a, const Range& b) { return a.first < b.first; });
    for (const Range& range : given) {
        if (range.first > range.last) continue;  // written the wrong way round: empty
        if (ranges_.size() > first && range.first <= ranges_.back().last) {
            ranges_.back().last = std::max(ranges_.back().last, range.last);
        } else {
            ranges_.push_back(range);
        }
    }
    return ranges_.size() - first;
}

bool NamePattern::Accepts(const Token& token, char32_t character) const noexcept {
    if (token.kind == Kind::kAnyCharacter) return true;
    if (token.kind == Kind::kCharacter) return character == token.character;
    if (token.kind == Kind::kAnyRun) return false;
    const auto first = ranges_.begin() + static_cast<std::ptrdiff_t>(token.firstRange);
    const auto last = first + static_cast<std::ptrdiff_t>(token.rangeCount);
    const auto candidate =
        std::lower_bound(first, last, character, [](const Range& r, char32_t c) { return r.last < c; });
    const bool holds = candidate != last && candidate->first <= character;
    return token.negated != holds;
}

bool NamePattern::Matches(std::string_view name, std::size_t* steps) const noexcept {
    constexpr std::size_t kBytesComparedInAStep = 16;
    std::size_t ignored = 0;
    std::size_t& taken = steps == nullptr ? ignored : *steps;
    taken += 1 + (plainStart_.size() + plainEnd_.size()) / kBytesComparedInAStep;
    if (matchesNothing_ || !name.starts_with(plainStart_) || !name.ends_with(plainEnd_)) return false;

    const std::size_t allowed = kStepsForEachByte * (name.size() + patternSize_ + 1);
    std::size_t left = allowed;
    const bool matches = MatchesTokens(name, left);
    taken += allowed - left;
    return matches;
}

bool NamePattern::MatchesTokens(std::string_view name, std::size_t& stepsLeft) const noexcept {
    std::size_t token = 0, at = 0;
    std::size_t tokenAfterStar = kNone, starEnd = 0;  // the last star, and where its run ends so far
    while (at < name.size()) {
        if (stepsLeft == 0) return false;
        --stepsLeft;
        if (token < tokens_.size() && tokens_[token].kind == Kind::kAnyRun) {
            tokenAfterStar = ++token;
            if (tokenAfterStar == tokens_.size()) return true;
            starEnd = at;
            continue;
        }
        std::size_t next = at;
        const char32_t character = NextCharacter(name, next);
        if (token < tokens_.size() && Accepts(tokens_[token], character)) {
            ++token;
            at = next;
            continue;
        }
        if (tokenAfterStar == kNone) return false;
        // What follows the last star does not fit here: let its run take one character more.
        NextCharacter(name, starEnd);
        token = tokenAfterStar;
        at = starEnd;
    }
    while (token < tokens_.size() && tokens_[token].kind == Kind::kAnyRun) ++token;
    return token == tokens_.size();
}

}  // namespace vexpa_runtime::zip
