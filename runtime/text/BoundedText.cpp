#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

#include "vexpa/platform/Runtime.h"

namespace {

int Empty(char16_t* text, int error) {
    *text = 0;
    return error;
}

}  // namespace

std::size_t u_strlen(const char16_t* text) {
    return text == nullptr ? 0 : std::char_traits<char16_t>::length(text);
}

std::size_t u_strnlen_s(const char16_t* text, std::size_t limit) {
    if (text == nullptr) return 0;
    // Not find(): the text may lie in less memory than the limit allows for.
    std::size_t length = 0;
    while (length < limit && text[length] != 0) ++length;
    return length;
}

int u_strcat_s(char16_t* destination, std::size_t size, const char16_t* source) {
    if (destination == nullptr || size == 0) return EINVAL;
    if (source == nullptr) return Empty(destination, EINVAL);
    const std::size_t used = u_strnlen_s(destination, size);
    if (used == size) return Empty(destination, EINVAL);

    const std::size_t added = u_strnlen_s(source, size - used);
    if (added == size - used) return Empty(destination, ERANGE);
    std::copy_n(source, added, destination + used);
    destination[used + added] = 0;
    return 0;
}

int vmemcpy_s(void* destination, std::size_t size, const void* source, std::size_t count) {
    if (count == 0) return 0;
    if (destination == nullptr) return EINVAL;
    if (source == nullptr || count > size) {
        std::memset(destination, 0, size);
        return source == nullptr ? EINVAL : ERANGE;
    }
    std::memcpy(destination, source, count);
    return 0;
}
