// runtime/com/CompoundFile.h - the bytes of an open compound file.
#ifndef VEXPA_RUNTIME_COM_COMPOUNDFILE_H_
#define VEXPA_RUNTIME_COM_COMPOUNDFILE_H_

#include <cstddef>
#include <span>
#include <utility>

#include "runtime/com/GsfPtr.h"
#include "runtime/com/SharedBlock.h"

namespace vexpa_runtime {

// Keeps the block locked, so that libgsf may point into it. Every storage and stream of the
// file holds one of these, and the block goes with the last of them.
//
// Threads  libgsf counts its references plainly: a storage and all that came from it are
//          used by one thread at a time.
class CompoundFile {
public:
    explicit CompoundFile(SharedBlock block) noexcept : block_(std::move(block)) {
        _XGblLock(block_.get());
    }
    ~CompoundFile() { _XGblUnlock(block_.get()); }
    CompoundFile(const CompoundFile&) = delete;
    CompoundFile& operator=(const CompoundFile&) = delete;

    std::span<const std::byte> Bytes() const { return {block_->bytes, block_->size}; }

private:
    SharedBlock block_;
};

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_COM_COMPOUNDFILE_H_
