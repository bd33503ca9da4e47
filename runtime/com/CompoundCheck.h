// runtime/com/CompoundCheck.h - tells hostile compound files from readable ones.
#ifndef VEXPA_RUNTIME_COM_COMPOUNDCHECK_H_
#define VEXPA_RUNTIME_COM_COMPOUNDCHECK_H_

#include <cstddef>
#include <span>

namespace vexpa_runtime {

// False for what libgsf must not be given: besides what is no compound file at all, one in
// which chains run in circles, or tables are so large, or a directory is so deep or so wide,
// that libgsf overflows the stack or takes hours: it keeps marks for a table there, recurses
// over directories and keeps siblings in a sorted list.
//
// A damaged stream is no reason: it fails when it is read, and the others are sound.
bool IsSoundCompoundFile(std::span<const std::byte> bytes);

// Bounds on the directory and on what the allocation tables cover, well above any document:
// so many sectors are two gigabytes. The deepest directory takes libgsf about half a megabyte
// of stack, and so does a bit for each entry of the largest table, but not at the same time: a
// megabyte of stack is enough for all that the runtime does.
constexpr std::size_t kMaxDirectoryDepth = 2'048;
constexpr std::size_t kMaxStorageElements = 2'048;
constexpr std::size_t kMaxTableEntries = 1 << 22;
// To put an element among those that its storage has already, libgsf goes over them. As many steps
// in all as 32 of the widest storages take, which is half a second.
constexpr std::size_t kMaxSiblingSteps = 32 * kMaxStorageElements * (kMaxStorageElements + 1) / 2;

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_COM_COMPOUNDCHECK_H_
