#include "runtime/com/StorageStream.h"

#include <gsf/gsf-input.h>

#include <new>

#include "runtime/com/GsfSilence.h"

namespace vexpa_runtime {

HRESULT StorageStream::Read(void* destination, std::uint32_t size, std::uint32_t* read) {
    if (read != nullptr) *read = 0;
    if (destination == nullptr && size != 0) return E_INVALIDARG;
    const auto count = static_cast<std::uint32_t>(Available(size));
    if (count == 0) return S_OK;

    const GsfSilence silence;
    GsfInput* input = stream_->input.get();
    if (gsf_input_seek(input, static_cast<gsf_off_t>(position_), G_SEEK_SET)) return E_FAIL;
    if (gsf_input_read(input, count, static_cast<guint8*>(destination)) == nullptr) return E_FAIL;
    position_ += count;
    if (read != nullptr) *read = count;
    return S_OK;
}

HRESULT StorageStream::Write(const void*, std::uint32_t, std::uint32_t* written) {
    if (written != nullptr) *written = 0;
    return E_ACCESSDENIED;
}

HRESULT StorageStream::SetSize(std::uint64_t) {
    return E_ACCESSDENIED;
}

HRESULT StorageStream::Stat(STATSTG* stat, std::uint32_t flags) {
    if (stat == nullptr) return E_INVALIDARG;
    return CopyStat(stream_->stat, stream_->name, flags, stat);
}

HRESULT StorageStream::Clone(IStream** out) {
    if (out == nullptr) return E_INVALIDARG;
    *out = new (std::nothrow) StorageStream(stream_, position_);
    return *out != nullptr ? S_OK : E_OUTOFMEMORY;
}

}  // namespace vexpa_runtime
