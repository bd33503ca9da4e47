// tests/hostile/compound/CompoundImage.h - a compound file whose every field a test can find.
#ifndef VEXPA_TESTS_HOSTILE_COMPOUND_COMPOUNDIMAGE_H_
#define VEXPA_TESTS_HOSTILE_COMPOUND_COMPOUNDIMAGE_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexpa_test {

// What sector numbers and entry numbers mean that are none ([MS-CFB] 2.1, 2.6.1).
inline constexpr std::uint32_t kFree = 0xFFFFFFFF;
inline constexpr std::uint32_t kEnd = 0xFFFFFFFE;
inline constexpr std::uint32_t kFatSector = 0xFFFFFFFD;
inline constexpr std::uint32_t kDifatSector = 0xFFFFFFFC;
inline constexpr std::uint32_t kNone = 0xFFFFFFFF;

// Where the fields of the header are (2.2),
inline constexpr std::size_t kMinorVersion = 24;
inline constexpr std::size_t kMajorVersion = 26;
inline constexpr std::size_t kByteOrder = 28;
inline constexpr std::size_t kSectorShift = 30;
inline constexpr std::size_t kMiniSectorShift = 32;
inline constexpr std::size_t kReserved = 34;
inline constexpr std::size_t kDirectoryCount = 40;
inline constexpr std::size_t kFatCount = 44;
inline constexpr std::size_t kDirectoryStart = 48;
inline constexpr std::size_t kTransaction = 52;
inline constexpr std::size_t kMiniCutoff = 56;
inline constexpr std::size_t kMiniFatStart = 60;
inline constexpr std::size_t kMiniFatCount = 64;
inline constexpr std::size_t kDifatStart = 68;
inline constexpr std::size_t kDifatCount = 72;
inline constexpr std::size_t kDifat = 76;  // 109 numbers
inline constexpr std::size_t kInHeader = 109;

// and those of a directory entry (2.6.1).
inline constexpr std::size_t kNameSize = 64;
inline constexpr std::size_t kType = 66;
inline constexpr std::size_t kColour = 67;
inline constexpr std::size_t kLeft = 68;
inline constexpr std::size_t kRight = 72;
inline constexpr std::size_t kChild = 76;
inline constexpr std::size_t kClass = 80;
inline constexpr std::size_t kState = 96;
inline constexpr std::size_t kCreated = 100;
inline constexpr std::size_t kModified = 108;
inline constexpr std::size_t kStart = 116;
inline constexpr std::size_t kSize = 120;
inline constexpr std::size_t kSizeHigh = 124;

inline constexpr std::uint8_t kStorageType = 1;
inline constexpr std::uint8_t kStreamType = 2;
inline constexpr std::uint8_t kRootType = 5;

// A stream, or a storage and what is in it.
struct Element {
    std::u16string name;
    std::string content = {};
    bool storage = false;
    std::vector<Element> elements = {};
};
using Elements = std::vector<Element>;

Element Storage(std::u16string name, Elements elements = {});

// How it is written. Tables come first: the FAT from sector 0 on, the DIFAT, the directory and
// the mini FAT; then the mini stream and the large streams, in the order of the directory.
struct CompoundLayout {
    unsigned int sectorShift = 9;
    std::size_t fatSectors = 0;   // at least so many
    std::size_t freeSectors = 0;  // at the end
};

// The bytes of a sound file, and where everything is in them.
class CompoundImage {
public:
    explicit CompoundImage(const Elements& elements, const CompoundLayout& layout = {});

    std::string bytes;

    // Offsets of a sector, of its number in the FAT, and of a mini sector's in the mini FAT.
    std::size_t SectorAt(std::uint32_t sector) const { return (std::size_t{sector} + 1) << shift_; }
    std::size_t FatAt(std::uint32_t sector) const { return SectorAt(0) + 4 * std::size_t{sector}; }
    std::size_t MiniFatAt(std::uint32_t sector) const {
        return SectorAt(miniFat_) + 4 * std::size_t{sector};
    }
    // Of a directory entry: by number, 0 being the root, or of the first of a name.
    std::size_t EntryAt(std::uint32_t number) const;
    std::size_t EntryOf(std::u16string_view name) const { return EntryAt(NumberOf(name)); }
    std::uint32_t NumberOf(std::u16string_view name) const;

    // The first sector of each; kEnd when there is none. The FAT begins in sector 0.
    std::uint32_t Difat() const { return difat_; }
    std::uint32_t Directory() const { return directory_; }
    std::uint32_t MiniFat() const { return miniFat_; }
    std::uint32_t MiniStream() const { return miniStream_; }
    // How many there are.
    std::uint32_t Sectors() const { return static_cast<std::uint32_t>((bytes.size() >> shift_) - 1); }

    std::uint32_t Get32(std::size_t at) const;
    void Put8(std::size_t at, std::uint8_t value);
    void Put16(std::size_t at, std::uint16_t value);
    void Put32(std::size_t at, std::uint32_t value);
    // Writes units from the start of an entry on, and says of them that they are `size` bytes.
    void PutName(std::size_t entry, std::u16string_view name, std::uint16_t size);

private:
    void WriteHeader(std::size_t fat, std::size_t difat, std::size_t miniFat);

    unsigned int shift_;
    std::uint32_t difat_;
    std::uint32_t directory_;
    std::uint32_t miniFat_;
    std::uint32_t miniStream_;
    std::vector<std::u16string> names_;
};

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_HOSTILE_COMPOUND_COMPOUNDIMAGE_H_
