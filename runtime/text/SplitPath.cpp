#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>

#include "vexpa/platform/Runtime.h"

namespace {

// One part of the path and the buffer that asks for it, or does not: null and size 0.
struct Part {
    char16_t* buffer;
    std::size_t size;
    std::u16string_view text;

    bool IsValid() const { return (buffer == nullptr) == (size == 0); }
    bool Fits() const { return buffer == nullptr || text.size() < size; }
    void Store() const {
        if (buffer != nullptr) *std::copy(text.begin(), text.end(), buffer) = 0;
    }
    void Clear() const {
        if (buffer != nullptr && size != 0) *buffer = 0;
    }
};

// Where the text after the last separator begins.
std::size_t NameStart(std::u16string_view path) {
    const std::size_t separator = path.find_last_of(u"/\\");
    return separator == path.npos ? 0 : separator + 1;
}

}  // namespace

int u_splitpath_s(const char16_t* path, char16_t* drive, std::size_t driveSize, char16_t* directory,
                  std::size_t directorySize, char16_t* name, std::size_t nameSize, char16_t* extension,
                  std::size_t extensionSize) {
    const std::u16string_view whole = path == nullptr ? std::u16string_view() : path;
    const std::size_t nameStart = NameStart(whole);
    const std::u16string_view file = whole.substr(nameStart);
    const std::size_t dot = std::min(file.rfind(u'.'), file.size());

    const std::array<Part, 4> parts = {{
        {drive, driveSize, {}},
        {directory, directorySize, whole.substr(0, nameStart)},
        {name, nameSize, file.substr(0, dot)},
        {extension, extensionSize, file.substr(dot)},
    }};
    const bool valid = path != nullptr && std::all_of(parts.begin(), parts.end(),
                                                      [](const Part& part) { return part.IsValid(); });
    const bool fits =
        std::all_of(parts.begin(), parts.end(), [](const Part& part) { return part.Fits(); });
    if (!valid || !fits) {
        for (const Part& part : parts) part.Clear();
        return valid ? ERANGE : EINVAL;
    }
    for (const Part& part : parts) part.Store();
    return 0;
}
