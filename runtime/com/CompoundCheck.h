// runtime/com/CompoundCheck.h - tells hostile compound files from readable ones.
#ifndef VEXPA_RUNTIME_COM_COMPOUNDCHECK_H_
#define VEXPA_RUNTIME_COM_COMPOUNDCHECK_H_

#include <cstddef>
#include <span>

namespace vexpa_runtime {

// False for what libgsf must not be given: besides what is no compound file at all, one in
// which chains run in circles or a directory is so deep or so wide that libgsf, which
// recurses over it and keeps siblings in a sorted list, overflows the stack or takes hours.
//
// A damaged stream is no reason: it fails when it is read, and the others are sound.
bool IsSoundCompoundFile(std::span<const std::byte> bytes);

// Bounds on the directory, well above any document. The deepest takes libgsf about half a
// megabyte of stack.
constexpr std::size_t kMaxDirectoryDepth = 2'048;
constexpr std::size_t kMaxStorageElements = 8'192;

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_COM_COMPOUNDCHECK_H_
