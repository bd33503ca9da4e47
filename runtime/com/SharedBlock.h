// runtime/com/SharedBlock.h - a memory block held by everything made over it.
#ifndef VEXPA_RUNTIME_COM_SHAREDBLOCK_H_
#define VEXPA_RUNTIME_COM_SHAREDBLOCK_H_

#include <memory>

#include "runtime/memory/GlobalBlock.h"

namespace vexpa_runtime {

using SharedBlock = std::shared_ptr<GlobalBlock>;

// With `owned` the block is freed with the last holder, and also when this call throws, so
// a caller that gave the block away has nothing to clean up.
inline SharedBlock ShareBlock(HGBL block, bool owned) {
    return SharedBlock(block, [owned](HGBL held) noexcept {
        if (owned) FreeBlock(held);
    });
}

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_COM_SHAREDBLOCK_H_
