#include "vexpa/zip/ExtractEntry.h"

#include <cstdlib>

#include "vexpa/base/ComPtr.h"
#include "vexpa/base/LocalText.h"
#include "vexpa/base/Noncopyable.h"
#include "vexpa/base/Result.h"
#include "vexpa/zip/UnZipArchiveImpl.h"

namespace lumo::Compression::Zip {

namespace {

// Kept: the record is larger, and this is the length that the unzip call has always been
// told. (ExtractEntry.TellsTheShortRecordLength)
constexpr unsigned long kCallbacksLength = 24;

// Nothing is shown or logged: the caller's user did not ask for this file by name.
int DropMessage(void*, unsigned char*, unsigned long, int) {
    return 0;
}

// The extracted bytes, freed at the end unless they are let go.
class ExtractedBytes : tarn::Noncopyable {
public:
    ~ExtractedBytes() { std::free(buffer_.strptr); }
    UzpBuffer* Out() noexcept { return &buffer_; }
    const char* Bytes() const noexcept { return buffer_.strptr; }
    std::size_t Size() const noexcept { return buffer_.strptr == nullptr ? 0 : buffer_.strlength; }
    void Lose() noexcept { buffer_.strptr = nullptr; }

private:
    UzpBuffer buffer_{};
};

// Access to a movable block's bytes for as long as this object lives.
class BlockLock : tarn::Noncopyable {
public:
    explicit BlockLock(HGBL block) : block_(block), bytes_(_XGblLock(block)) {}
    ~BlockLock() { _XGblUnlock(block_); }
    void* Bytes() const noexcept { return bytes_; }

private:
    HGBL block_;
    void* bytes_;
};

bool CopyInto(HGBL block, const ExtractedBytes& extracted) {
    const BlockLock lock(block);
    return vmemcpy_s(lock.Bytes(), extracted.Size(), extracted.Bytes(), extracted.Size()) == 0;
}

// The platform ends a block together with the stream that owns it.
void FreeBlock(HGBL block) {
    tarn::ComPtr<IStream> stream;
    _XCreateStreamOnHGBL(block, kFreeBlockOnRelease, stream.Out());
}

}  // namespace

// Kept: the unzip call takes 8-bit text, and patterns. A character that the locale lacks becomes
// a question mark and matches any, and what the conversion takes for a byte order mark is lost.
// (ExtractEntry.OfANameThatTheLocaleLacksIsAPattern, ExtractEntry.OfANameWithAByteOrderMarkFails)
HRESULT ExtractEntryToMemory(UnZipArchiveImpl& archive, const char16_t* entryName, UzpBuffer* result) {
    tarn::LocalText zip(archive.archivePath);
    tarn::LocalText entry(entryName);
    if (!zip || !entry) return E_FAIL;

    UzpOpts options{};
    UzpCB callbacks{};
    callbacks.structlen = kCallbacksLength;
    callbacks.msgfn = DropMessage;

    return UzpUnzipToMemory(zip.Data(), entry.Data(), &options, &callbacks, result) != 0 ? S_OK
                                                                                         : E_FAIL;
}

HRESULT ExtractEntryToBlock(UnZipArchiveImpl& archive, const char16_t* entryName,
                            OnBlockFailure onBlockFailure, HGBL* block, std::size_t* size) {
    *block = nullptr;
    if (size != nullptr) *size = 0;
    ExtractedBytes extracted;
    const HRESULT result = ExtractEntryToMemory(archive, entryName, extracted.Out());
    if (tarn::Failed(result)) return result;
    if (extracted.Size() == 0) return S_OK;

    HGBL copy = _XGblAlloc(kGblZeroInit, extracted.Size());
    if (copy == nullptr) {
        if (onBlockFailure == OnBlockFailure::LoseBytes) extracted.Lose();
        return E_OUTOFMEMORY;
    }
    if (!CopyInto(copy, extracted)) {
        FreeBlock(copy);
        return E_FAIL;
    }
    *block = copy;
    if (size != nullptr) *size = extracted.Size();
    return S_OK;
}

}  // namespace lumo::Compression::Zip
