// tests/abi/CompiledCaller.h - how a caller that was compiled long ago reaches the library.
//
// It includes no header of the project, loads the library by its name, and knows mangled
// names, slots and one-pointer handles only.
#ifndef VEXPA_TESTS_ABI_COMPILEDCALLER_H_
#define VEXPA_TESTS_ABI_COMPILEDCALLER_H_

#include <dlfcn.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>

[[noreturn]] inline void Fail(const char* what) {
    std::fprintf(stderr, "compiled caller: %s\n", what);
    std::exit(1);
}

inline void Require(bool condition, const char* what) {
    if (!condition) Fail(what);
}

inline void* Load(const char* path) {
    void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) Fail(dlerror());
    return library;
}

template <class Function>
Function Symbol(void* library, const char* name) {
    void* symbol = dlsym(library, name);
    if (symbol == nullptr) Fail(name);
    return reinterpret_cast<Function>(symbol);
}

template <class Function>
Function Slot(void* object, std::size_t index) {
    return reinterpret_cast<Function>((*static_cast<void***>(object))[index]);
}

// For ASCII text.
using UnitText = std::basic_string<unsigned short>;

inline UnitText Units(const std::string& text) {
    return {text.begin(), text.end()};
}

inline std::string Ascii(const unsigned short* text) {
    std::string ascii;
    while (*text != 0) ascii += static_cast<char>(*text++);
    return ascii;
}

#endif  // VEXPA_TESTS_ABI_COMPILEDCALLER_H_
