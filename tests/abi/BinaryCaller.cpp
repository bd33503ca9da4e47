// A caller that was compiled long ago opens a package and reads a part.

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "tests/abi/CompiledCaller.h"

namespace {

// A handle is one pointer that comes back through memory.
using Open = void** (*)(void** handle, const unsigned short* path, unsigned flags);
using Find = void* (*)(void* object, const void* argument);

void ReadStream(void* part) {
    void* stream = nullptr;
    Require(Slot<std::int32_t (*)(void*, void**)>(part, 12)(part, &stream) == 0, "GetStream");
    char head[5] = {};
    std::uint32_t read = 0;
    Require(Slot<std::int32_t (*)(void*, void*, std::uint32_t, std::uint32_t*)>(stream, 3)(
                stream, head, 5, &read) == 0,
            "IStream::Read");
    Require(read == 5 && std::memcmp(head, "<?xml", 5) == 0, "the bytes of the document");
    Require(Slot<std::uint32_t (*)(void*)>(stream, 2)(stream) == 1,
            "IUnknown::Release of a shared stream");
}

}  // namespace

int main(int argc, char** argv) {
    Require(argc == 3, "usage: library package");
    void* library = Load(argv[1]);

    const auto open = Symbol<Open>(library, "_ZN4tarn3opc7Package4OpenEPKtj");
    const auto typeId = Symbol<std::uint32_t (*)(const unsigned short*)>(
        library, "_ZN4tarn3opc21GetRelationshipTypeIdEPKt");
    const auto typeUri = Symbol<const unsigned short* (*)(std::uint32_t)>(
        library, "_ZN4tarn3opc22GetRelationshipTypeUriENS0_18RelationshipTypeIdE");
    const auto makeUri =
        Symbol<void (*)(void*, const unsigned short*)>(library, "_ZN4tarn3opc7PartUriC1EPKt");

    Require(typeId(typeUri(9)) == 9, "the type table");
    Require(typeId(typeUri(34)) == 33, "the thumbnail answers 33");

    void* handle = nullptr;
    open(&handle, Units(std::string(argv[2]) + ".gone").c_str(), 0);
    Require(handle == nullptr, "a missing file gives an empty handle");
    open(&handle, nullptr, 0);
    Require(handle == nullptr, "a null path gives an empty handle");

    open(&handle, Units(argv[2]).c_str(), 7);
    Require(handle != nullptr, "Package::Open");
    void* main = Slot<void* (*)(void*, std::uint32_t, void*)>(handle, 8)(handle, 9, nullptr);
    Require(main != nullptr, "GetRelationshipByType");
    Require(Ascii(Slot<const unsigned short* (*)(void*)>(main, 3)(main)) != "", "GetId");
    const void* target = Slot<const void* (*)(void*)>(main, 6)(main);
    void* part = Slot<Find>(handle, 4)(handle, target);
    Require(part != nullptr, "GetPart");
    Require(Ascii(Slot<const unsigned short* (*)(void*)>(part, 5)(part)).find("main+xml") !=
                std::string::npos,
            "GetContentType");
    ReadStream(part);

    // A name made by the caller: ten fields in 296 bytes, the name last.
    alignas(8) static unsigned char uri[296];
    makeUri(uri, Units("/word/document.xml").c_str());
    Require(Slot<bool (*)(void*, const void*)>(handle, 5)(handle, uri), "PartExists");

    Slot<void (*)(void*)>(handle, 2)(nullptr);
    Slot<void (*)(void*)>(handle, 2)(handle);
    std::puts("binary caller: done");
    return 0;
}
