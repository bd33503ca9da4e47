// runtime/zip/ExtraFields.h - the fields in the extra data of a header.
#ifndef VEXPA_RUNTIME_ZIP_EXTRAFIELDS_H_
#define VEXPA_RUNTIME_ZIP_EXTRAFIELDS_H_

#include <cstddef>
#include <cstdint>
#include <optional>

#include "runtime/zip/LittleEndian.h"

namespace vexpa_runtime::zip {

constexpr std::uint16_t kZip64Field = 0x0001;  // APPNOTE 4.5.3

// Bytes that are taken from the front.
struct FieldBytes {
    const std::uint8_t* at;
    std::size_t size;

    template <class Number>
    bool Take(Number& number) {
        if (size < sizeof number) return false;
        number = Field<Number>(at);
        Skip(sizeof number);
        return true;
    }

    void Skip(std::size_t count) {
        at += count;
        size -= count;
    }
};

struct ExtraField {
    std::uint16_t id;
    FieldBytes content;
};

// Takes the next field off `extra` (APPNOTE 4.5.1). Nothing at the end, and nothing for a field
// that runs past it: what came before is still good.
inline std::optional<ExtraField> TakeField(FieldBytes& extra) {
    ExtraField field{};
    std::uint16_t size = 0;
    if (!extra.Take(field.id) || !extra.Take(size) || size > extra.size) return std::nullopt;
    field.content = {extra.at, size};
    extra.Skip(size);
    return field;
}

// The content of the first field `id`; of no size when there is none.
inline FieldBytes FindField(FieldBytes extra, std::uint16_t id) {
    while (const std::optional<ExtraField> field = TakeField(extra)) {
        if (field->id == id) return field->content;
    }
    return {nullptr, 0};
}

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_EXTRAFIELDS_H_
