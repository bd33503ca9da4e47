#include "runtime/zip/PatternSearch.h"

#include <utility>

#include "runtime/zip/Directory.h"
#include "runtime/zip/NameHash.h"
#include "runtime/zip/NamePattern.h"

namespace vexpa_runtime::zip {

std::size_t PatternSearch::Hash::operator()(const std::string& pattern) const noexcept {
    return HashName(pattern, ProcessKey());
}

const Entry* PatternSearch::FindFirst(const Directory& directory, const NamePattern& pattern,
                                      std::string_view text, std::size_t& namesTried) {
    const std::lock_guard lock(mutex_);
    std::string key(text);
    if (const auto known = answers_.find(key); known != answers_.end()) return known->second;

    const Entry* answer = nullptr;
    for (const Entry& entry : directory.Entries()) {
        std::size_t steps = 0;
        ++namesTried;
        const bool matches = pattern.Matches(directory.NameOf(entry), &steps);
        if (steps > stepsLeft_) {
            stepsLeft_ = 0;
            return nullptr;
        }
        stepsLeft_ -= steps;
        if (!matches) continue;
        answer = &entry;
        break;
    }
    Remember(std::move(key), answer);
    return answer;
}

void PatternSearch::Remember(std::string pattern, const Entry* answer) {
    constexpr std::size_t kRoomForEach = 128;  // what the table takes besides the text
    const std::size_t room = kRoomForEach + pattern.size();
    if (room > roomLeft_) return;
    answers_.emplace(std::move(pattern), answer);
    roomLeft_ -= room;
}

}  // namespace vexpa_runtime::zip
