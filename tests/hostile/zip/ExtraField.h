// tests/hostile/zip/ExtraField.h - extra fields of an entry, byte by byte.
#ifndef VEXPA_TESTS_HOSTILE_ZIP_EXTRAFIELD_H_
#define VEXPA_TESTS_HOSTILE_ZIP_EXTRAFIELD_H_

#include <cstdint>
#include <initializer_list>
#include <string>

namespace vexpa_test {

inline constexpr std::uint16_t kZip64Field = 0x0001;
inline constexpr std::uint32_t kAllOnes32 = 0xFFFFFFFF;

inline std::string LittleEndian(std::uint64_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
    return text;
}

// Id, size and content (APPNOTE 4.5.1).
inline std::string ExtraField(std::uint16_t id, const std::string& content) {
    return LittleEndian(id, 2) + LittleEndian(content.size(), 2) + content;
}

// A zip64 field of these 64-bit numbers.
inline std::string WideNumbers(std::initializer_list<std::uint64_t> numbers) {
    std::string content;
    for (const std::uint64_t number : numbers) content += LittleEndian(number, 8);
    return ExtraField(kZip64Field, content);
}

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_HOSTILE_ZIP_EXTRAFIELD_H_
