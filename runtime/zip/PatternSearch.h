// runtime/zip/PatternSearch.h - finds what patterns match in one directory, without end to the
// patterns.
#ifndef VEXPA_RUNTIME_ZIP_PATTERNSEARCH_H_
#define VEXPA_RUNTIME_ZIP_PATTERNSEARCH_H_

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vexpa_runtime::zip {

class Directory;
class NamePattern;
struct Entry;

// Every request for an entry is a pattern, that for the relationships of a part too, and a part
// may be named a*b. An archive of many such names would have many patterns tried on every name, for
// hours. Therefore
//
// - what a pattern matched is remembered: opening the same document again costs nothing;
// - the work for new ones is bounded for each directory, and so is the room to remember them in.
//   When either is used up, new patterns match nothing; names are found as ever. No archive that was
//   not made for it comes near these bounds.
//
// So a pattern that matched once always does, and a file gives the same package each time that it
// is opened.
//
// Threads  Any thread at any time.
class PatternSearch {
public:
    // May take `steps`, as NamePattern counts them, and remember patterns in `room` bytes.
    PatternSearch(std::size_t steps, std::size_t room) : stepsLeft_(steps), roomLeft_(room) {}

    // As many as a directory is allowed whose names have `nameBytes` in all.
    static constexpr std::size_t StepsFor(std::size_t nameBytes) {
        constexpr std::size_t kFree = 16'000'000, kForEachByte = 64;
        return kFree + kForEachByte * nameBytes;
    }

    // And room for a pattern for each entry, a little longer than its name, and for some besides.
    static constexpr std::size_t RoomFor(std::size_t entries, std::size_t nameBytes) {
        constexpr std::size_t kFree = 64UL * 1024, kLonger = 32;
        return kFree + (kRoomForEach + kLonger) * entries + nameBytes;
    }

    // The first entry in the order of `directory`, always the same one, that `pattern`, spelled
    // `text`, matches; or null. *namesTried grows by the number of names that it was tried on.
    const Entry* FindFirst(const Directory& directory, const NamePattern& pattern,
                           std::string_view text, std::size_t& namesTried);

private:
    static constexpr std::size_t kRoomForEach = 128;  // what the table takes besides the text

    struct Hash {
        std::size_t operator()(const std::string& pattern) const noexcept;
    };

    std::mutex mutex_;  // guards what follows
    std::size_t stepsLeft_;
    std::size_t roomLeft_;
    std::unordered_map<std::string, const Entry*, Hash> answers_;
};

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_PATTERNSEARCH_H_
