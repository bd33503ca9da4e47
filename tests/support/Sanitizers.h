// tests/support/Sanitizers.h - whether a sanitizer with an allocator of its own watches the program.
#ifndef VEXPA_TESTS_SUPPORT_SANITIZERS_H_
#define VEXPA_TESTS_SUPPORT_SANITIZERS_H_

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define VEXPA_SANITIZER_ALLOCATES 1
#elif defined(__has_feature)  // Clang has no macros of its own for it
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define VEXPA_SANITIZER_ALLOCATES 1
#endif
#endif
#ifndef VEXPA_SANITIZER_ALLOCATES
#define VEXPA_SANITIZER_ALLOCATES 0
#endif

#endif  // VEXPA_TESTS_SUPPORT_SANITIZERS_H_
