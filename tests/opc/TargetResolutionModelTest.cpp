// The resolution once more, step by step and search by search, against the one that counts.
#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

#include "vexpa/opc/TargetResolution.h"

namespace {

constexpr std::size_t kNone = std::u16string::npos;

bool IsSeparator(char16_t unit) {
    return unit == u'/' || unit == u'\\';
}

std::size_t FirstOf(const std::u16string& text, char16_t unit) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == unit) return i;
    }
    return kNone;
}

bool IsUri(const std::u16string& target) {
    const std::size_t colon = FirstOf(target, u':');
    const std::size_t slash = FirstOf(target, u'/');
    const std::size_t backslash = FirstOf(target, u'\\');
    if (colon == kNone) return false;
    if (slash == kNone && backslash == kNone) return true;
    return slash != kNone ? colon < slash : colon < backslash;
}

std::u16string DirectoryOf(const std::u16string& source) {
    std::u16string directory = source;
    while (!directory.empty() && !IsSeparator(directory.back())) directory.pop_back();
    if (directory.size() >= 4096) directory.clear();
    if (!directory.empty() && IsSeparator(directory.back())) directory.pop_back();
    return directory;
}

// The last separator in front of `bound`, searched from the end.
std::size_t SearchBackward(const std::u16string& directory, std::size_t bound) {
    for (std::size_t i = bound; i-- > 0;) {
        if (IsSeparator(directory[i])) return i;
    }
    return kNone;
}

std::size_t CutPoint(const std::u16string& directory, std::size_t steps) {
    std::size_t cut = 0;
    std::size_t bound = directory.size();
    for (std::size_t i = 0; i < steps; ++i) {
        const std::size_t found = SearchBackward(directory, bound);
        if (found == kNone) return cut;
        cut = found;
        bound = found == 0 ? directory.size() : found;
    }
    return cut;
}

std::u16string ResolveSlowly(const std::u16string& source, const std::u16string& target) {
    if (source.empty()) return target;
    if (!target.empty() && target[0] == u'/') return target.substr(1);
    if (IsUri(target)) return target;

    const std::u16string directory = DirectoryOf(source);
    std::size_t steps = 0;
    std::size_t tail = 0;
    for (std::size_t i = 0; i + 1 < target.size();) {
        const bool isPair = target[i] == u'.' && target[i + 1] == u'.';
        i += isPair ? 2 : 1;
        if (!isPair) continue;
        ++steps;
        tail = i;
    }
    std::u16string result = steps == 0
                                ? directory + u"/" + target
                                : directory.substr(0, CutPoint(directory, steps)) + target.substr(tail);
    if (!result.empty() && IsSeparator(result[0])) result.erase(result.begin());
    return result;
}

std::u16string RandomText(std::mt19937& random, std::size_t most) {
    static const std::array<std::u16string, 12> kPieces = {u"/", u"/", u"\\", u"..",  u"../", u".",
                                                           u"a", u"b", u":",  u"ab/", u"%2E", u"#"};
    std::u16string text;
    for (std::size_t i = random() % (most + 1); i > 0; --i) text += kPieces[random() % kPieces.size()];
    return text;
}

TEST(ResolveTarget, AgreesWithTheSearchesMadeOneByOne) {
    std::mt19937 random(20240229);
    for (int i = 0; i < 200000; ++i) {
        const std::u16string source = RandomText(random, 9);
        const std::u16string target = RandomText(random, 9);
        ASSERT_EQ(tarn::opc::ResolveTarget(source, target), ResolveSlowly(source, target))
            << "source " << testing::PrintToString(source) << ", target "
            << testing::PrintToString(target);
    }
}

TEST(ResolveTarget, AgreesWithTheSearchesAroundTheEndOfTheBuffer) {
    std::mt19937 random(4096);
    for (std::size_t length = 4080; length < 4112; ++length) {
        std::u16string source(length, u'a');
        for (int i = 0; i < 40; ++i) source[random() % length] = u'/';
        for (int i = 0; i < 20; ++i) {
            source[length - 1 - random() % 8] = u'/';
            const std::u16string target = RandomText(random, 60);
            ASSERT_EQ(tarn::opc::ResolveTarget(source, target), ResolveSlowly(source, target))
                << "length " << length << ", target " << testing::PrintToString(target);
        }
    }
}

}  // namespace
