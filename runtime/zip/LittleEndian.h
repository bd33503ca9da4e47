// runtime/zip/LittleEndian.h - the number fields of zip records.
#ifndef VEXPA_RUNTIME_ZIP_LITTLEENDIAN_H_
#define VEXPA_RUNTIME_ZIP_LITTLEENDIAN_H_

#include <bit>
#include <cstdint>
#include <cstring>

namespace vexpa_runtime::zip {

static_assert(std::endian::native == std::endian::little, "zip fields are read as they lie");

template <class Number>
Number Field(const std::uint8_t* at) noexcept {
    Number number;
    std::memcpy(&number, at, sizeof number);
    return number;
}

inline std::uint16_t Le16(const std::uint8_t* at) noexcept {
    return Field<std::uint16_t>(at);
}
inline std::uint32_t Le32(const std::uint8_t* at) noexcept {
    return Field<std::uint32_t>(at);
}
inline std::uint64_t Le64(const std::uint8_t* at) noexcept {
    return Field<std::uint64_t>(at);
}

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_LITTLEENDIAN_H_
