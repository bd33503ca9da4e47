// runtime/memory/Poison.h - memory that is there but not to be touched, for AddressSanitizer.
//
// Memory that is handed out in pieces, or kept for later, looks sound to a sanitizer: it would not
// notice a read beyond a piece, or after its end. Without the sanitizer all of this is nothing.
#ifndef VEXPA_RUNTIME_MEMORY_POISON_H_
#define VEXPA_RUNTIME_MEMORY_POISON_H_

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
#define VEXPA_POISONS 1
#elif defined(__has_feature)  // Clang has no macro of its own for it
#if __has_feature(address_sanitizer)
#define VEXPA_POISONS 1
#endif
#endif
#ifndef VEXPA_POISONS
#define VEXPA_POISONS 0
#endif

#if VEXPA_POISONS
#include <sanitizer/asan_interface.h>
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
