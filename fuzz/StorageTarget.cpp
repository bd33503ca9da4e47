// A compound file: opened, enumerated, every stream read.
#include <cstring>

#include "fuzz/FuzzTarget.h"
#include "fuzz/ReadStream.h"
#include "vexpa/base/ComPtr.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    HGBL block = _XGblAlloc(0, size);
    if (size != 0) std::memcpy(_XGblLock(block), data, size);
    if (size != 0) _XGblUnlock(block);

    tarn::ComPtr<IStorage> storage;
    if (_XStgOpenStorageOnHGBL2(&block, 1, storage.Out()) != S_OK) return 0;
    vexpa_fuzz::ReadStorage(*storage.Get(), size);
    return 0;
}
