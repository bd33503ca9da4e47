#include "vexpa/opc/TargetResolution.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "vexpa/platform/Runtime.h"

namespace tarn::opc {

namespace {

constexpr std::size_t kDirectorySize = 4096;

bool IsSeparator(char16_t unit) {
    return unit == u'/' || unit == u'\\';
}

// Whether a scheme begins the target: a ':' before the first slash. Backslashes separate
// only in a target that has no slash at all.
bool IsAbsoluteUri(std::u16string_view target) {
    const std::size_t colon = target.find(u':');
    const std::size_t slash = target.find(u'/');
    const std::size_t separator = slash != target.npos ? slash : target.find(u'\\');
    return colon < separator;  // npos, none, is after every other place
}

struct StepsUp {
    std::size_t count = 0;
    std::size_t end = 0;  // right after the last of them
};

// Kept: every ".." is a step up, also one inside a file name.
// (ResolveTarget.TwoDotsInsideAFileNameClimb)
StepsUp CountStepsUp(std::u16string_view target) {
    StepsUp steps;
    for (std::size_t at = 0; (at = target.find(u"..", at)) != target.npos;) {
        at += 2;
        ++steps.count;
        steps.end = at;
    }
    return steps;
}

// The directory that remains after `steps` searches for a separator, each in front of the
// one found before, have cut it at the last one found.
//
// Kept: after a separator at the very start the searches begin again at the end of the
// directory; without one they stay at the first separator.
// (ResolveTarget.StepsBeyondTheRootBeginAgainAtTheEnd,
// ResolveTarget.StepsBeyondARelativeDirectoryStayAtItsFirstSeparator)
//
// So the separators are met in a cycle, or until they are used up, and counting them tells
// which one is the last: a target may hold far more steps than there is time to search.
std::u16string_view Climb(std::u16string_view directory, std::size_t steps) {
    const auto separators =
        static_cast<std::size_t>(std::count_if(directory.begin(), directory.end(), IsSeparator));
    if (separators == 0) return {};

    const bool isCycle = IsSeparator(directory.front());
    std::size_t cuts = isCycle ? (steps - 1) % separators + 1 : std::min(steps, separators);
    for (; cuts != 0; --cuts) directory = directory.substr(0, directory.find_last_of(u"/\\"));
    return directory;
}

// Kept: what stands before the last step up is dropped. A dot alone, an escape, a fragment and a
// backslash in front stay, and mostly name no part. (ResolveTarget.ClimbsADirectoryForEachStepUp,
// ResolveTarget.AppendsARelativeTargetToTheDirectoryOfTheSource)
std::u16string ResolveRelative(std::u16string_view directory, std::u16string_view target) {
    const StepsUp steps = CountStepsUp(target);

    std::u16string result;
    if (steps.count == 0) {
        result.append(directory).append(u"/").append(target);
    } else {
        result.append(Climb(directory, steps.count)).append(target.substr(steps.end));
    }
    if (!result.empty() && IsSeparator(result.front())) result.erase(0, 1);
    return result;
}

}  // namespace

// Kept: any other word means internal. (RelationshipStream.TakesAnyOtherTargetModeForInternal)
TargetMode ParseTargetMode(const char16_t* text) {
    if (text == nullptr) return TargetModeInternal;
    return _Xu2_stricmp(text, u"external") == 0 ? TargetModeExternal : TargetModeInternal;
}

std::u16string SourceDirectory(const std::u16string& source) {
    char16_t directory[kDirectorySize];
    directory[0] = 0;
    // Kept: one that does not fit is left empty, so its targets resolve from the root.
    // (ResolveTarget.TakesADirectoryThatDoesNotFitForTheRoot)
    u_splitpath_s(source.c_str(), nullptr, 0, directory, kDirectorySize, nullptr, 0, nullptr, 0);
    std::size_t length = u_strnlen_s(directory, kDirectorySize);
    if (length != 0 && IsSeparator(directory[length - 1])) --length;
    return {directory, length};
}

// Kept: the target mode does not count.
// (ResolveTarget.AnExternalTargetWithoutASchemeIsResolvedLikeAnyOther)
std::u16string ResolveTargetFrom(const std::u16string& directory, const std::u16string& target) {
    if (!target.empty() && target.front() == u'/') return target.substr(1);
    if (IsAbsoluteUri(target)) return target;
    return ResolveRelative(directory, target);
}

}  // namespace tarn::opc
