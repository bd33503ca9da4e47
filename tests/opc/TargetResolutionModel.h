// tests/opc/TargetResolutionModel.h - target resolution step by step and search by search.
#ifndef VEXPA_TESTS_OPC_TARGETRESOLUTIONMODEL_H_
#define VEXPA_TESTS_OPC_TARGETRESOLUTIONMODEL_H_

#include <cstddef>
#include <string>

// What ResolveTarget is compared with: slow, and written without a look at it.
namespace vexpa_test::resolution_model {

inline constexpr std::size_t kNone = std::u16string::npos;

inline bool IsSeparator(char16_t unit) {
    return unit == u'/' || unit == u'\\';
}

inline std::size_t FirstOf(const std::u16string& text, char16_t unit) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == unit) return i;
    }
    return kNone;
}

inline bool IsUri(const std::u16string& target) {
    const std::size_t colon = FirstOf(target, u':');
    const std::size_t slash = FirstOf(target, u'/');
    const std::size_t backslash = FirstOf(target, u'\\');
    if (colon == kNone) return false;
    if (slash == kNone && backslash == kNone) return true;
    return slash != kNone ? colon < slash : colon < backslash;
}

inline std::u16string DirectoryOf(const std::u16string& source) {
    std::u16string directory = source;
    while (!directory.empty() && !IsSeparator(directory.back())) directory.pop_back();
    if (directory.size() >= 4096) directory.clear();
    if (!directory.empty() && IsSeparator(directory.back())) directory.pop_back();
    return directory;
}

// The last separator in front of `bound`, searched from the end.
inline std::size_t SearchBackward(const std::u16string& directory, std::size_t bound) {
    for (std::size_t i = bound; i-- > 0;) {
        if (IsSeparator(directory[i])) return i;
    }
    return kNone;
}

inline std::size_t CutPoint(const std::u16string& directory, std::size_t steps) {
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

inline std::u16string ResolveSlowly(const std::u16string& source, const std::u16string& target) {
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

}  // namespace vexpa_test::resolution_model

#endif  // VEXPA_TESTS_OPC_TARGETRESOLUTIONMODEL_H_
