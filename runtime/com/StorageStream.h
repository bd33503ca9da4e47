// runtime/com/StorageStream.h - a stream of a compound file, for reading.
#ifndef VEXPA_RUNTIME_COM_STORAGESTREAM_H_
#define VEXPA_RUNTIME_COM_STORAGESTREAM_H_

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "runtime/com/CompoundFile.h"
#include "runtime/com/StorageElements.h"
#include "runtime/com/StreamBase.h"

namespace vexpa_runtime {

// The stream as libgsf opened it, with what Stat tells of it: shared by all clones, each of
// which seeks before it reads. `input` ends before the bytes that it reads from.
struct OpenedStream {
    std::shared_ptr<const CompoundFile> file;
    GsfPtr<GsfInput> input;
    std::u16string name;
    STATSTG stat;
};

// Reads the sectors as they are asked for; nothing is copied beforehand.
class StorageStream final : public StreamBase {
public:
    explicit StorageStream(std::shared_ptr<const OpenedStream> stream,
                           std::uint64_t position = 0) noexcept
        : StreamBase(position), stream_(std::move(stream)) {}

    HRESULT Read(void* destination, std::uint32_t size, std::uint32_t* read) override;
    HRESULT Write(const void* source, std::uint32_t size, std::uint32_t* written) override;
    HRESULT SetSize(std::uint64_t size) override;
    HRESULT Stat(STATSTG* stat, std::uint32_t flags) override;
    HRESULT Clone(IStream** out) override;

private:
    std::uint64_t Size() const noexcept override { return stream_->stat.cbSize; }

    std::shared_ptr<const OpenedStream> stream_;
};

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_COM_STORAGESTREAM_H_
