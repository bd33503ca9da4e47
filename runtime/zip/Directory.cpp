#include "runtime/zip/Directory.h"

#include <bit>
#include <utility>

#include "runtime/zip/NameHash.h"

namespace vexpa_runtime::zip {

namespace {

constexpr std::uint32_t kFree = 0xFFFFFFFF;

std::uint32_t Tag(std::uint64_t hash) {
    return static_cast<std::uint32_t>(hash >> 32);
}

}  // namespace

Directory::Directory(std::vector<Entry> entries, std::string names)
    : entries_(std::move(entries)),
      names_(std::move(names)),
      slots_(std::bit_ceil(2 * entries_.size() + 1), Slot{0, kFree}),
      damage_(entries_.size()),
      patterns_(PatternSearch::StepsFor(names_.size()),
                PatternSearch::RoomFor(entries_.size(), names_.size())) {
    entries_.shrink_to_fit();
    names_.shrink_to_fit();
    for (std::uint32_t i = 0; i < entries_.size(); ++i) {
        const std::string_view name = NameOf(entries_[i]);
        const std::uint64_t hash = HashName(name, ProcessKey());
        Slot& slot = slots_[SlotOf(name, hash)];
        if (slot.entry == kFree) slot = {Tag(hash), i};
    }
}

std::size_t Directory::SlotOf(std::string_view name, std::uint64_t hash) const noexcept {
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
        const Slot& slot = slots_[at];
        if (slot.entry == kFree) return at;
        if (slot.tag == Tag(hash) && NameOf(entries_[slot.entry]) == name) return at;
    }
}

const Entry* Directory::Find(std::string_view name) const noexcept {
    const Slot& slot = slots_[SlotOf(name, HashName(name, ProcessKey()))];
    return slot.entry == kFree ? nullptr : &entries_[slot.entry];
}

std::size_t Directory::MemoryUse() const noexcept {
    return sizeof *this + entries_.capacity() * sizeof(Entry) + names_.capacity() +
           slots_.capacity() * sizeof(Slot) + damage_.capacity() + file_.capacity() +
           PatternSearch::RoomFor(entries_.size(), names_.size());
}

}  // namespace vexpa_runtime::zip
