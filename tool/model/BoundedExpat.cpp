#include "tool/model/BoundedExpat.h"

#include <malloc.h>

#include <cstdlib>
#include <new>

namespace vexpa_tool {

namespace {

// The parser passes nothing on to its allocator that could tell whose memory it is.
thread_local std::size_t used = 0;

void* Reallocate(void* old, std::size_t size) {
    const std::size_t oldSize = malloc_usable_size(old);
    if (size > kMostParserMemory || used - oldSize > kMostParserMemory - size) return nullptr;
    void* block = std::realloc(old, size);
    if (block != nullptr) used += malloc_usable_size(block) - oldSize;
    return block;
}

void* Allocate(std::size_t size) {
    return Reallocate(nullptr, size);
}

void Free(void* block) {
    used -= malloc_usable_size(block);
    std::free(block);
}

constexpr XML_Memory_Handling_Suite kBoundedMemory = {Allocate, Reallocate, Free};

}  // namespace

ExpatHandle MakeExpat(const char* namespaceSeparator) {
    ExpatHandle parser(XML_ParserCreate_MM(nullptr, &kBoundedMemory, namespaceSeparator));
    if (!parser) throw std::bad_alloc();
    return parser;
}

}  // namespace vexpa_tool
