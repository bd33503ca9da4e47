// runtime/zip/NamePattern.h - a pattern of entry names in Info-ZIP's manner.
#ifndef VEXPA_RUNTIME_ZIP_NAMEPATTERN_H_
#define VEXPA_RUNTIME_ZIP_NAMEPATTERN_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexpa_runtime::zip {

// Matches whole names; the case of letters counts.
//
//   *      any run of characters, also an empty one, also over '/'
//   ?      one character
//   [...]  one character of the class, with ranges; after a leading ! or ^ one not of it. The
//          first ']' that no backslash precedes ends it.
//   \x     the character x, also within a class
//
// Info-ZIP's readings of the odd cases hold: a class that is not closed and a backslash at the
// end match nothing, and so does the empty class []; a '-' that comes first stands for itself;
// one that comes last, as in [a-], swallows the character before it and matches nothing.
//
// Matching remembers one place to go back to, that of the last '*', so many stars cost no more
// than one. What is left is the product of the lengths, for a name and a pattern that agree over
// long stretches again and again; a match that takes kStepsForEachByte steps for each byte of
// both is given up as none. Only names that were made for it come near.
class NamePattern {
public:
    // Whether `text` holds a character that means something in a pattern.
    static bool HasSpecialCharacters(std::string_view text) noexcept;

    // The name that `text` spells with each of *?[]\ in it escaped, and nothing else; nothing for
    // other texts.
    static std::optional<std::string> EscapedName(std::string_view text);

    // The one name that a pattern of plain and escaped characters matches; nothing for others.
    static std::optional<std::string> OnlyName(std::string_view text);

    explicit NamePattern(std::string_view text);  // both texts are valid UTF-8

    // How long a match may take, in characters compared.
    static constexpr std::size_t kStepsForEachByte = 64;

    // *steps, when asked for, grows by the steps that it took.
    bool Matches(std::string_view name, std::size_t* steps = nullptr) const noexcept;

private:
    enum class Kind { kCharacter, kAnyCharacter, kAnyRun, kClass };
    struct Range {
        char32_t first;
        char32_t last;
    };
    struct Token {
        Kind kind;
        char32_t character;      // kCharacter
        bool negated;            // kClass
        std::size_t firstRange;  // kClass: into ranges_, where its own stand in order and apart
        std::size_t rangeCount;
    };

    bool Parse(std::u32string_view text);
    void AddClass(std::u32string_view body);
    std::size_t MergeRanges(std::size_t first);
    void FindPlainEnds();
    bool Accepts(const Token& token, char32_t character) const noexcept;
    bool MatchesTokens(std::string_view name, std::size_t& stepsLeft) const noexcept;

    std::vector<Token> tokens_;
    std::vector<Range> ranges_;
    // What every match begins and ends with. Comparing them first spares nearly all names of an
    // archive the match proper.
    std::string plainStart_;
    std::string plainEnd_;
    std::size_t patternSize_;
    bool matchesNothing_ = false;
};

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_NAMEPATTERN_H_
