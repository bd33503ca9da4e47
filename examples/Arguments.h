// examples/Arguments.h - what was typed, before it is passed on.
#ifndef VEXPA_EXAMPLES_ARGUMENTS_H_
#define VEXPA_EXAMPLES_ARGUMENTS_H_

#include <filesystem>
#include <system_error>

// The library takes UTF-16, so what is not UTF-8 names no file and no part; converting it would
// throw. The examples end with 2 then, as after a wrong number of arguments.
inline bool AreUtf8(const char* const* arguments) {
    try {
        for (; *arguments != nullptr; ++arguments) (void)std::filesystem::path(*arguments).u16string();
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

#endif  // VEXPA_EXAMPLES_ARGUMENTS_H_
