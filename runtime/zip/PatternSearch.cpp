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
    const std::size_t room = kRoomForEach + key.size();
    if (room > roomLeft_) return nullptr;

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
    answers_.emplace(std::move(key), answer);
    roomLeft_ -= room;
    return answer;
}

}  // namespace vexpa_runtime::zip
