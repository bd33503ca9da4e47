#include "tests/hostile/compound/CompoundImage.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace vexpa_test {

namespace {

constexpr std::size_t kEntrySize = 128;
constexpr std::size_t kMiniSector = 64;
constexpr std::size_t kSmallest = 4096;  // of the streams that are not in the mini stream

struct Entry {
    std::u16string name;
    std::uint8_t type = kStreamType;
    std::uint32_t left = kNone;
    std::uint32_t right = kNone;
    std::uint32_t child = kNone;
    std::uint32_t start = kEnd;
    std::string content = {};
};

std::size_t Rounded(std::size_t size, std::size_t unit) {
    return (size + unit - 1) / unit * unit;
}

std::string Number(std::size_t value, std::size_t bytes = 4) {
    std::string text;
    for (std::size_t i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
}

// The directory of the elements, each storage's before those of the next.
class DirectoryTree {
public:
    explicit DirectoryTree(const Elements& elements) {
        entries_.push_back({u"Root Entry", kRootType});
        entries_[0].child = Add(elements);
    }

    std::vector<Entry> Take() { return std::move(entries_); }

private:
    std::uint32_t Add(const Elements& elements) {
        const auto first = static_cast<std::uint32_t>(entries_.size());
        for (const Element& element : elements) {
            Entry entry{element.name, element.storage ? kStorageType : kStreamType};
            entry.content = element.content;
            entries_.push_back(std::move(entry));
        }
        std::vector<std::uint32_t> sorted;
        for (std::size_t i = 0; i < elements.size(); ++i) {
            sorted.push_back(first + static_cast<std::uint32_t>(i));
            if (elements[i].elements.empty()) continue;
            const std::uint32_t child = Add(elements[i].elements);
            entries_[first + i].child = child;
        }
        // The order of names: short ones first (2.6.4); the tests' are in one case of letters.
        std::sort(sorted.begin(), sorted.end(), [this](std::uint32_t a, std::uint32_t b) {
            const std::u16string& left = entries_[a].name;
            const std::u16string& right = entries_[b].name;
            return std::pair(left.size(), left) < std::pair(right.size(), right);
        });
        return Tree(sorted, 0, sorted.size());
    }

    std::uint32_t Tree(const std::vector<std::uint32_t>& sorted, std::size_t first, std::size_t end) {
        if (first == end) return kNone;
        const std::size_t middle = (first + end) / 2;
        entries_[sorted[middle]].left = Tree(sorted, first, middle);
        entries_[sorted[middle]].right = Tree(sorted, middle + 1, end);
        return sorted[middle];
    }

    std::vector<Entry> entries_;
};

// Numbers the sectors and chains them.
class SectorChains {
public:
    explicit SectorChains(std::size_t size) : size_(size) {}

    std::size_t Links() const { return size_ / 4; }
    std::size_t For(std::size_t bytes) const { return Rounded(bytes, size_) / size_; }

    // The next sectors that so many bytes take: the first of them, or kEnd when it takes none.
    std::uint32_t Take(std::size_t bytes) {
        const std::size_t count = For(bytes);
        const std::size_t first = chain_.size();
        for (std::size_t i = 1; i < count; ++i) chain_.push_back(static_cast<std::uint32_t>(first + i));
        if (count != 0) chain_.push_back(kEnd);
        return count == 0 ? kEnd : static_cast<std::uint32_t>(first);
    }

    // The next `count` sectors, which no chain leads through.
    std::uint32_t Mark(std::size_t count, std::uint32_t mark) {
        const std::size_t first = chain_.size();
        chain_.resize(first + count, mark);
        return count == 0 ? kEnd : static_cast<std::uint32_t>(first);
    }

    std::string Fat(std::size_t sectors) const {
        std::string fat;
        for (const std::uint32_t next : chain_) fat += Number(next);
        fat.resize(sectors * size_, '\xFF');
        return fat;
    }

private:
    std::size_t size_;
    std::vector<std::uint32_t> chain_;
};

bool IsSmall(const Entry& entry) {
    return entry.type == kStreamType && !entry.content.empty() && entry.content.size() < kSmallest;
}

bool IsLarge(const Entry& entry) {
    return !entry.content.empty() && !IsSmall(entry);
}

struct SmallStreams {
    std::string bytes;
    std::string fat;
};

SmallStreams PlaceSmall(std::vector<Entry>& entries) {
    SmallStreams mini;
    for (Entry& entry : entries) {
        if (!IsSmall(entry)) continue;
        const std::size_t first = mini.bytes.size() / kMiniSector;
        entry.start = static_cast<std::uint32_t>(first);
        mini.bytes += entry.content;
        mini.bytes.resize(Rounded(mini.bytes.size(), kMiniSector));
        const std::size_t end = mini.bytes.size() / kMiniSector;
        for (std::size_t i = first + 1; i < end; ++i) mini.fat += Number(i);
        mini.fat += Number(kEnd);
    }
    return mini;
}

std::string DirectoryBytes(const std::vector<Entry>& entries) {
    std::string bytes;
    for (const Entry& entry : entries) {
        std::string name;
        for (const char16_t unit : entry.name) name += Number(unit, 2);
        const std::size_t nameSize = entry.name.empty() ? 0 : name.size() + 2;
        name.resize(64);
        bytes += name + Number(nameSize, 2) + Number(entry.type, 1) + Number(1, 1);  // black
        bytes += Number(entry.left) + Number(entry.right) + Number(entry.child);
        bytes += std::string(36, '\0') + Number(entry.start) + Number(entry.content.size(), 8);
    }
    return bytes;
}

// The FAT's own sectors and those of the DIFAT, which tells where they are.
struct TableSizes {
    std::size_t fat;
    std::size_t difat;
};

TableSizes SizesOfTables(std::size_t atLeast, std::size_t others, std::size_t links) {
    for (std::size_t fat = std::max<std::size_t>(atLeast, 1);; ++fat) {
        const std::size_t beyond = fat > kInHeader ? fat - kInHeader : 0;
        const std::size_t difat = (beyond + links - 2) / (links - 1);
        if (fat * links >= fat + difat + others) return {fat, difat};
    }
}

// The numbers of the FAT's sectors from `first` on, and in the last place where more are.
std::string DifatSector(std::size_t first, std::size_t fat, std::uint32_t next, std::size_t links) {
    std::string bytes;
    for (std::size_t i = first; i < first + links - 1; ++i) bytes += Number(i < fat ? i : kFree);
    return bytes + Number(next);
}

}  // namespace

Element Storage(std::u16string name, Elements elements) {
    return {std::move(name), {}, true, std::move(elements)};
}

CompoundImage::CompoundImage(const Elements& elements, const CompoundLayout& layout)
    : shift_(layout.sectorShift) {
    const std::size_t sectorSize = std::size_t{1} << shift_;
    SectorChains sectors(sectorSize);
    std::vector<Entry> entries = DirectoryTree(elements).Take();
    while (entries.size() * kEntrySize % sectorSize != 0) entries.push_back({{}, 0});
    for (const Entry& entry : entries) names_.push_back(entry.name);
    const SmallStreams mini = PlaceSmall(entries);
    entries[0].content = mini.bytes;  // the root's stream

    std::size_t others =
        entries.size() * kEntrySize / sectorSize + sectors.For(mini.fat.size()) + layout.freeSectors;
    for (const Entry& entry : entries) others += IsLarge(entry) ? sectors.For(entry.content.size()) : 0;
    const TableSizes tables = SizesOfTables(layout.fatSectors, others, sectors.Links());

    sectors.Mark(tables.fat, kFatSector);
    difat_ = sectors.Mark(tables.difat, kDifatSector);
    directory_ = sectors.Take(entries.size() * kEntrySize);
    miniFat_ = sectors.Take(mini.fat.size());
    for (Entry& entry : entries) {
        if (IsLarge(entry)) entry.start = sectors.Take(entry.content.size());
    }
    miniStream_ = entries[0].start;
    sectors.Mark(layout.freeSectors, kFree);

    WriteHeader(tables.fat, tables.difat, sectors.For(mini.fat.size()));
    bytes += sectors.Fat(tables.fat);
    for (std::size_t i = 0; i < tables.difat; ++i) {
        const std::size_t links = sectors.Links();
        const bool last = i + 1 == tables.difat;
        bytes += DifatSector(kInHeader + i * (links - 1), tables.fat,
                             last ? kEnd : static_cast<std::uint32_t>(difat_ + i + 1), links);
    }
    bytes += DirectoryBytes(entries);
    bytes += mini.fat;
    bytes.resize(Rounded(bytes.size(), sectorSize), '\xFF');
    for (const Entry& entry : entries) {
        if (IsLarge(entry)) bytes += entry.content;
        bytes.resize(Rounded(bytes.size(), sectorSize));
    }
    bytes.resize(bytes.size() + layout.freeSectors * sectorSize);
}

void CompoundImage::WriteHeader(std::size_t fat, std::size_t difat, std::size_t miniFat) {
    bytes.assign("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
    bytes.resize(SectorAt(0));
    Put16(kMinorVersion, 0x3E);
    Put16(kMajorVersion, shift_ == 9 ? 3 : 4);
    Put16(kByteOrder, 0xFFFE);
    Put16(kSectorShift, static_cast<std::uint16_t>(shift_));
    Put16(kMiniSectorShift, 6);
    if (shift_ != 9)
        Put32(kDirectoryCount, static_cast<std::uint32_t>(names_.size() * kEntrySize >> shift_));
    Put32(kFatCount, static_cast<std::uint32_t>(fat));
    Put32(kDirectoryStart, directory_);
    Put32(kMiniCutoff, kSmallest);
    Put32(kMiniFatStart, miniFat_);
    Put32(kMiniFatCount, static_cast<std::uint32_t>(miniFat));
    Put32(kDifatStart, difat_);
    Put32(kDifatCount, static_cast<std::uint32_t>(difat));
    for (std::size_t i = 0; i < kInHeader; ++i) {
        Put32(kDifat + 4 * i, i < fat ? static_cast<std::uint32_t>(i) : kFree);
    }
}

std::size_t CompoundImage::EntryAt(std::uint32_t number) const {
    return SectorAt(directory_) + number * kEntrySize;
}

std::uint32_t CompoundImage::NumberOf(std::u16string_view name) const {
    const auto found = std::find(names_.begin(), names_.end(), name);
    if (found == names_.end()) throw std::logic_error("no such element");
    return static_cast<std::uint32_t>(found - names_.begin());
}

std::uint32_t CompoundImage::Get32(std::size_t at) const {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes.at(at + i));
    return value;
}

void CompoundImage::Put8(std::size_t at, std::uint8_t value) {
    bytes.replace(at, 1, Number(value, 1));
}

void CompoundImage::Put16(std::size_t at, std::uint16_t value) {
    bytes.replace(at, 2, Number(value, 2));
}

void CompoundImage::Put32(std::size_t at, std::uint32_t value) {
    bytes.replace(at, 4, Number(value, 4));
}

void CompoundImage::PutName(std::size_t entry, std::u16string_view name, std::uint16_t size) {
    for (std::size_t i = 0; i < name.size(); ++i) Put16(entry + 2 * i, name[i]);
    Put16(entry + kNameSize, size);
}

}  // namespace vexpa_test
