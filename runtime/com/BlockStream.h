// runtime/com/BlockStream.h - a stream over a memory block.
#ifndef VEXPA_RUNTIME_COM_BLOCKSTREAM_H_
#define VEXPA_RUNTIME_COM_BLOCKSTREAM_H_

#include <cstdint>
#include <utility>

#include "runtime/com/SharedBlock.h"
#include "runtime/com/StreamBase.h"

namespace vexpa_runtime {

// Asks the block for its bytes at every call, since a write may move them. While somebody
// holds the block locked its bytes must stand still, so nothing changes its size then.
class BlockStream final : public StreamBase {
public:
    explicit BlockStream(SharedBlock block, std::uint64_t position = 0) noexcept
        : StreamBase(position), block_(std::move(block)) {}

    HRESULT Read(void* destination, std::uint32_t size, std::uint32_t* read) override;
    HRESULT Write(const void* source, std::uint32_t size, std::uint32_t* written) override;
    HRESULT SetSize(std::uint64_t size) override;
    HRESULT Stat(STATSTG* stat, std::uint32_t flags) override;
    HRESULT Clone(IStream** out) override;

private:
    std::uint64_t Size() const noexcept override { return block_->size; }

    SharedBlock block_;
};

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_COM_BLOCKSTREAM_H_
