#include "runtime/com/CompoundCheck.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace vexpa_runtime {

namespace {

// [MS-CFB] 2.1, 2.2 and 2.6.1. A sector number above the last regular one ends a chain.
constexpr std::uint8_t kSignature[8] = {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};
constexpr std::size_t kHeaderSize = 512;
constexpr std::size_t kSectorShiftAt = 30;
constexpr std::size_t kMiniSectorShiftAt = 32;
constexpr std::size_t kFatCountAt = 44;
constexpr std::size_t kDirectoryStartAt = 48;
constexpr std::size_t kMiniCutoffAt = 56;
constexpr std::size_t kMiniFatStartAt = 60;
constexpr std::size_t kMiniFatCountAt = 64;
constexpr std::size_t kDifatStartAt = 68;
constexpr std::size_t kDifatCountAt = 72;
constexpr std::size_t kDifatAt = 76;
constexpr std::size_t kHeaderDifatEntries = 109;
constexpr std::uint32_t kMiniCutoff = 4096;
constexpr std::uint32_t kMaxRegularSector = 0xFFFFFFFA;
constexpr std::uint32_t kFirstMark = 0xFFFFFFFC;
constexpr std::uint32_t kFreeSector = 0xFFFFFFFF;

constexpr std::uint32_t kRootEntry = 0;
constexpr std::size_t kEntrySize = 128;
constexpr std::size_t kTypeAt = 66;
constexpr std::size_t kLeftAt = 68;
constexpr std::size_t kRightAt = 72;
constexpr std::size_t kChildAt = 76;
constexpr std::size_t kStartAt = 116;
constexpr std::size_t kSizeAt = 120;
constexpr std::uint8_t kStorageType = 1;
constexpr std::uint8_t kStreamType = 2;
constexpr std::uint8_t kRootType = 5;

// Offsets are computed in 32 bits by libgsf.
constexpr std::size_t kMaxFileSize = 0xFFFFFFFF;

// Streams may share sectors in a damaged file, but not so that opening each of them walks
// the file again and again. For each stream libgsf also clears a bit for each entry of the
// table, which is a step for so many.
constexpr std::uint64_t kFreeSteps = 1 << 20;
constexpr std::uint64_t kStepsPerSector = 4;
constexpr std::size_t kEntriesPerStep = 4'096;

class Checker {
public:
    explicit Checker(std::span<const std::byte> bytes) : bytes_(bytes) {}

    bool Sound() { return ReadHeader() && ReadFat() && ReadDirectory() && WalkDirectory(); }

private:
    using Sectors = std::vector<std::uint32_t>;

    // An allocation table: the sectors that hold it, in order.
    struct Table {
        Sectors sectors;
        std::size_t entries = 0;
    };

    // An entry to visit, how deep libgsf's recursion is there, and the storage it is in.
    struct Visit {
        std::uint32_t entry;
        std::size_t depth;
        std::uint32_t parent;
    };

    std::uint16_t U16(std::size_t at) const {
        return static_cast<std::uint16_t>(U8(at) | U8(at + 1) << 8);
    }
    std::uint32_t U32(std::size_t at) const {
        return U16(at) | static_cast<std::uint32_t>(U16(at + 2)) << 16;
    }
    std::uint8_t U8(std::size_t at) const { return std::to_integer<std::uint8_t>(bytes_[at]); }

    std::size_t SectorSize() const { return std::size_t{1} << sectorShift_; }
    std::size_t PerSector() const { return SectorSize() / sizeof(std::uint32_t); }
    std::size_t OffsetOf(std::uint32_t sector) const {
        return (std::size_t{sector} + 1) << sectorShift_;
    }
    // Tables and directories must lie in the file; only a stream may be cut.
    bool IsWhole(std::uint32_t sector) const {
        return sector <= kMaxRegularSector && OffsetOf(sector) + SectorSize() <= bytes_.size();
    }

    bool ReadHeader();
    bool ReadFat();
    bool ReadDirectory();
    bool ReadMiniFat();
    bool MakeTable(Table& table) const;
    bool WalkDirectory();
    std::uint8_t TypeOf(std::uint32_t entry, std::size_t at) const;
    bool CheckEntry(std::uint8_t type, std::size_t at);
    bool CheckStream(std::uint32_t start, std::uint32_t size);
    bool HasSiblings(std::size_t at) const;

    std::uint32_t Next(const Table& table, std::uint32_t sector) const;
    bool ChainEnds(const Table& table, std::uint32_t start);
    bool CollectWhole(std::uint32_t start, Sectors& sectors) const;

    std::span<const std::byte> bytes_;
    unsigned int sectorShift_ = 9;
    Table fat_;
    Table miniFat_;
    bool miniFatIsRead_ = false;
    Sectors directory_;
    std::uint64_t steps_ = 0;
};

bool Checker::ReadHeader() {
    if (bytes_.size() < kHeaderSize || bytes_.size() > kMaxFileSize) return false;
    if (std::memcmp(bytes_.data(), kSignature, sizeof kSignature) != 0) return false;
    sectorShift_ = U16(kSectorShiftAt);
    if (sectorShift_ != 9 && sectorShift_ != 12) return false;
    if (U32(kMiniFatCountAt) > bytes_.size() >> sectorShift_) return false;
    return U16(kMiniSectorShiftAt) == 6 && U32(kMiniCutoffAt) == kMiniCutoff;
}

bool Checker::ReadFat() {
    const std::size_t wanted = U32(kFatCountAt);
    if (wanted > bytes_.size() >> sectorShift_) return false;

    for (std::size_t i = 0; i < std::min(wanted, kHeaderDifatEntries); ++i) {
        fat_.sectors.push_back(U32(kDifatAt + i * sizeof(std::uint32_t)));
    }
    std::uint32_t difat = U32(kDifatStartAt);
    for (std::uint32_t left = U32(kDifatCountAt); left > 0 && fat_.sectors.size() < wanted; --left) {
        if (!IsWhole(difat)) return false;
        const std::size_t links = PerSector() - 1;  // the last entry leads on
        const std::size_t at = OffsetOf(difat);
        for (std::size_t i = 0; i < links && fat_.sectors.size() < wanted; ++i) {
            fat_.sectors.push_back(U32(at + i * sizeof(std::uint32_t)));
        }
        difat = U32(at + links * sizeof(std::uint32_t));
    }
    for (const std::uint32_t sector : fat_.sectors) {
        if (sector != kFreeSector && !IsWhole(sector)) return false;
    }
    return fat_.sectors.size() == wanted && MakeTable(fat_);
}

bool Checker::ReadDirectory() {
    return CollectWhole(U32(kDirectoryStartAt), directory_) && !directory_.empty();
}

// As libgsf does, when the first stream needs it: writers that have no small streams leave any
// number for the start. The count in the header means nothing to libgsf, which follows the chain.
bool Checker::ReadMiniFat() {
    if (miniFatIsRead_) return true;
    miniFatIsRead_ = true;
    return CollectWhole(U32(kMiniFatStartAt), miniFat_.sectors) && MakeTable(miniFat_);
}

// Once the table's sectors are known. libgsf stops reading at a number that is neither a sector nor a
// mark: for the FAT it reports an error, of the mini FAT it takes the rest for zeros, and hands out
// the wrong bytes for a stream.
bool Checker::MakeTable(Table& table) const {
    table.entries = table.sectors.size() * PerSector();
    if (table.entries > kMaxTableEntries) return false;
    for (std::uint32_t i = 0; i < table.entries; ++i) {
        const std::uint32_t next = Next(table, i);
        if (next >= table.entries && next < kFirstMark) return false;
    }
    return true;
}

// The sector after `sector`; what the table does not cover is free, and ends a chain.
std::uint32_t Checker::Next(const Table& table, std::uint32_t sector) const {
    const std::uint32_t holder = table.sectors[sector / PerSector()];
    if (holder == kFreeSector) return kFreeSector;
    return U32(OffsetOf(holder) + sector % PerSector() * sizeof(std::uint32_t));
}

// False when the chain runs in a circle, or all chains together take too long.
bool Checker::ChainEnds(const Table& table, std::uint32_t start) {
    const std::uint64_t limit = kFreeSteps + kStepsPerSector * (fat_.entries + miniFat_.entries);
    steps_ += table.entries / kEntriesPerStep;
    std::size_t length = 0;
    for (std::uint32_t at = start; at < table.entries; at = Next(table, at)) {
        if (++length > table.entries || ++steps_ > limit) return false;
    }
    return steps_ <= limit;
}

// The sectors of a chain that must lie in the file as a whole.
bool Checker::CollectWhole(std::uint32_t start, Sectors& sectors) const {
    for (std::uint32_t at = start; at < fat_.entries; at = Next(fat_, at)) {
        if (!IsWhole(at) || sectors.size() == fat_.entries) return false;
        sectors.push_back(at);
    }
    return true;
}

bool Checker::WalkDirectory() {
    const std::size_t perSector = SectorSize() / kEntrySize;
    const std::size_t count = directory_.size() * perSector;
    std::vector<bool> seen(count);
    std::vector<std::uint32_t> elements(count);
    std::size_t siblingSteps = 0;
    std::vector<Visit> open{{kRootEntry, 1, kRootEntry}};
    while (!open.empty()) {
        const Visit visit = open.back();
        open.pop_back();
        if (visit.entry > kMaxRegularSector) continue;
        if (visit.entry >= count || seen[visit.entry] || visit.depth > kMaxDirectoryDepth) return false;
        if (++elements[visit.parent] > kMaxStorageElements) return false;
        siblingSteps += elements[visit.parent];
        if (siblingSteps > kMaxSiblingSteps) return false;
        seen[visit.entry] = true;

        const std::size_t at =
            OffsetOf(directory_[visit.entry / perSector]) + visit.entry % perSector * kEntrySize;
        const std::uint8_t type = TypeOf(visit.entry, at);
        // libgsf neither shows nor follows what is of no known type; links are garbage there.
        if (type != kStorageType && type != kStreamType && type != kRootType) continue;
        if (!CheckEntry(type, at)) return false;
        if (visit.entry == kRootEntry && HasSiblings(at)) return false;
        open.push_back({U32(at + kLeftAt), visit.depth + 1, visit.parent});
        open.push_back({U32(at + kRightAt), visit.depth + 1, visit.parent});
        // A stream has no elements, whatever its entry says.
        if (type == kStreamType) continue;
        open.push_back({U32(at + kChildAt), visit.depth + 1, visit.entry});
    }
    return true;
}

// What libgsf takes the entry for: the first one for the root, though it says otherwise.
std::uint8_t Checker::TypeOf(std::uint32_t entry, std::size_t at) const {
    const std::uint8_t type = U8(at + kTypeAt);
    const bool known = type == kStorageType || type == kStreamType;
    return entry == kRootEntry && known ? kRootType : type;
}

// Whether the chain of a stream, or of the root's mini stream, comes to an end. An entry with
// more bytes than the file libgsf would leave out, and everything that hangs on it in the tree.
bool Checker::CheckEntry(std::uint8_t type, std::size_t at) {
    const std::uint32_t start = U32(at + kStartAt);
    if (type == kRootType) return ChainEnds(fat_, start);
    return type == kStorageType || CheckStream(start, U32(at + kSizeAt));
}

bool Checker::CheckStream(std::uint32_t start, std::uint32_t size) {
    if (size > bytes_.size()) return false;
    if (size >= kMiniCutoff) return ChainEnds(fat_, start);
    return ReadMiniFat() && ChainEnds(miniFat_, start);
}

// A sibling of the root is in no storage, and libgsf would lose the memory it takes for it.
bool Checker::HasSiblings(std::size_t at) const {
    return U32(at + kLeftAt) <= kMaxRegularSector || U32(at + kRightAt) <= kMaxRegularSector;
}

}  // namespace

bool IsSoundCompoundFile(std::span<const std::byte> bytes) {
    return Checker(bytes).Sound();
}

}  // namespace vexpa_runtime
