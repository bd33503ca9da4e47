// runtime/memory/Poison.h - memory that is there but not to be touched, for AddressSanitizer.
//
// Memory that is handed out in pieces, or kept for later, looks sound to a sanitizer: it would not
// notice a read beyond a piece, or after its end. Without the sanitizer all of this is nothing.
#ifndef VEXPA_RUNTIME_MEMORY_POISON_H_
#define VEXPA_RUNTIME_MEMORY_POISON_H_

#include <cstddef>

#ifndef __has_feature
#define __has_feature(feature) 0  // GCC 12 has macros of its own for what Clang asks for so
#endif
#if defined(__SANITIZE_ADDRESS__) || __has_feature(address_sanitizer)
#define VEXPA_POISONS 1
#include <sanitizer/asan_interface.h>
#else
#define VEXPA_POISONS 0
#endif

namespace vexpa_runtime {

// Between two pieces, and the alignment of each, as the sanitizer counts in eights.
constexpr std::size_t kPoisonedGap = VEXPA_POISONS != 0 ? 8 : 0;

inline void Poison([[maybe_unused]] const void* memory, [[maybe_unused]] std::size_t bytes) noexcept {
#if VEXPA_POISONS
    __asan_poison_memory_region(memory, bytes);
#endif
}

inline void Unpoison([[maybe_unused]] const void* memory, [[maybe_unused]] std::size_t bytes) noexcept {
#if VEXPA_POISONS
    __asan_unpoison_memory_region(memory, bytes);
#endif
}

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_MEMORY_POISON_H_
