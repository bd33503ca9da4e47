// runtime/zip/Directory.h - the entries of an archive, as its central directory lists them.
#ifndef VEXPA_RUNTIME_ZIP_DIRECTORY_H_
#define VEXPA_RUNTIME_ZIP_DIRECTORY_H_

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/zip/PatternSearch.h"

namespace vexpa_runtime::zip {

// A position that no file reaches: an entry there fails when it is extracted.
constexpr std::uint64_t kNowhere = std::numeric_limits<std::uint64_t>::max();

// What the directory says about one entry. None of it is checked against the file yet: an
// entry that lies fails when it is extracted, and does not cost the others.
struct Entry {
    std::uint64_t headerPosition;  // in the file, bytes before the archive counted in; or kNowhere
    std::uint64_t compressedSize;
    std::uint64_t size;
    std::size_t nameAt;  // into the directory's names
    std::uint32_t nameSize;
    std::uint32_t crc;
    std::uint16_t method;
    bool encrypted;
    bool onOtherDisk;
    bool overlaps = false;  // see OverlapCheck.h
};

// Its entries never change once it is made, so any number of threads may share it then.
class Directory {
public:
    Directory(std::vector<Entry> entries, std::string names);

    std::size_t Count() const noexcept { return entries_.size(); }
    const std::vector<Entry>& Entries() const noexcept { return entries_; }
    std::string_view NameOf(const Entry& entry) const noexcept {
        return {names_.data() + entry.nameAt, entry.nameSize};
    }

    // The first entry of this name, or null. Costs the same however many entries there are.
    const Entry* Find(std::string_view name) const noexcept;

    PatternSearch& Patterns() const noexcept { return patterns_; }

    // What reading has found of an entry. A damaged one can unpack to a thousand times its size
    // before that shows, and may be asked for under thousands of names: once is enough.
    bool IsDamaged(const Entry& entry) const noexcept { return Damage(entry); }
    void NoteDamage(const Entry& entry) const noexcept { Damage(entry) = true; }

    // The whole file that it was read from, where that is kept beside it; else empty.
    std::span<const std::uint8_t> File() const noexcept { return file_; }
    void KeepFile(std::vector<std::uint8_t> file) noexcept { file_ = std::move(file); }

    // With what it may come to remember of patterns.
    std::size_t MemoryUse() const noexcept;

private:
    // A slot of the open-addressed name table. The tag, a part of the hash, spares most
    // comparisons with names that only share the slot.
    struct Slot {
        std::uint32_t tag;
        std::uint32_t entry;
    };

    std::atomic<bool>& Damage(const Entry& entry) const noexcept {
        return damage_[static_cast<std::size_t>(&entry - entries_.data())];
    }

    // The slot that holds `name`, or the free one where it belongs.
    std::size_t SlotOf(std::string_view name, std::uint64_t hash) const noexcept;

    std::vector<Entry> entries_;
    std::string names_;
    std::vector<Slot> slots_;
    mutable std::vector<std::atomic<bool>> damage_;  // by entry
    mutable PatternSearch patterns_;
    std::vector<std::uint8_t> file_;
};

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_DIRECTORY_H_
