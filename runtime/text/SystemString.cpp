#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

#include "vexpa/platform/Runtime.h"

namespace {

using ByteCount = std::uint32_t;  // stands right before the first unit and counts no terminator

}  // namespace

BSTR _XSysAllocString(const char16_t* text) {
    if (text == nullptr) return nullptr;
    const std::size_t size = std::char_traits<char16_t>::length(text) * sizeof(char16_t);
    if (size > std::numeric_limits<ByteCount>::max()) return nullptr;

    auto* memory = static_cast<char*>(std::malloc(sizeof(ByteCount) + size + sizeof(char16_t)));
    if (memory == nullptr) return nullptr;
    const auto count = static_cast<ByteCount>(size);
    std::memcpy(memory, &count, sizeof(count));
    std::memcpy(memory + sizeof(count), text, size + sizeof(char16_t));
    return reinterpret_cast<BSTR>(memory + sizeof(count));
}

void _XSysFreeString(BSTR text) {
    if (text == nullptr) return;
    std::free(reinterpret_cast<char*>(text) - sizeof(ByteCount));
}
