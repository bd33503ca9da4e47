// tests/runtime/com/CompoundBytes.h - builds compound files in memory, sound ones and lying ones.
#ifndef VEXPA_TESTS_RUNTIME_COM_COMPOUNDBYTES_H_
#define VEXPA_TESTS_RUNTIME_COM_COMPOUNDBYTES_H_

#include <cstdint>
#include <string>
#include <vector>

namespace vexpa_test {

// A stream, or a storage when it holds elements or says so.
struct CompoundElement {
    std::string name;  // UTF-8
    std::string content = {};
    std::vector<CompoundElement> elements = {};
    bool storage = false;
};

// What libgsf's own writer makes of them. `rootClass` is 16 bytes or empty.
std::string CompoundBytes(const std::vector<CompoundElement>& elements,
                          const std::string& rootClass = {});

constexpr std::uint32_t kNoEntry = 0xFFFFFFFF;
constexpr std::uint32_t kEndOfChain = 0xFFFFFFFE;

// One entry of a directory as it is stored ([MS-CFB] 2.6.1).
struct RawEntry {
    std::u16string name;
    std::uint8_t type = 2;
    std::uint32_t left = kNoEntry;
    std::uint32_t right = kNoEntry;
    std::uint32_t child = kNoEntry;
    std::uint32_t start = kEndOfChain;
    std::uint32_t size = 0;
};

// A file of sectors of 512 bytes that holds nothing but this directory and `sectors` empty
// sectors after it; the first entry is the root.
std::string RawCompoundBytes(const std::vector<RawEntry>& directory, std::size_t sectors = 0);

// Stores a number in little-endian order.
void Put16(std::string& bytes, std::size_t at, std::uint16_t value);
void Put32(std::string& bytes, std::size_t at, std::uint32_t value);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_RUNTIME_COM_COMPOUNDBYTES_H_
