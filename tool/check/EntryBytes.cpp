#include "tool/check/EntryBytes.h"

#include <QByteArray>
#include <QString>
#include <cstring>
#include <new>

#include "vexpa/base/Result.h"

namespace vexpa_tool {

using tarn::ComPtr;
using tarn::Failed;

std::optional<EntryBytes> EntryBytes::Extract(const std::string& path, std::string_view pattern) {
    std::string file = path;
    QByteArray entry =
        QString::fromUtf8(pattern.data(), static_cast<int>(pattern.size())).toLocal8Bit();
    UzpOpts options{};
    UzpCB callbacks{};
    callbacks.structlen = sizeof callbacks;
    callbacks.msgfn = [](void*, unsigned char*, unsigned long, int) { return 0; };
    UzpBuffer buffer{};
    const bool isExtracted =
        UzpUnzipToMemory(file.data(), entry.data(), &options, &callbacks, &buffer) != 0;
    EntryBytes bytes(buffer);
    if (!isExtracted) return std::nullopt;
    return bytes;
}

HGBL EntryBytes::MakeBlock() const {
    if (size_ == 0) return nullptr;
    HGBL block = _XGblAlloc(kGblZeroInit, size_);
    if (block == nullptr) throw std::bad_alloc();
    std::memcpy(_XGblLock(block), bytes_.get(), size_);
    _XGblUnlock(block);
    return block;
}

ComPtr<IDomDocument> EntryBytes::Parse() const {
    constexpr std::uint32_t kAllParseOptions = 0xFFFFFFFF;
    ComPtr<IDomDocument> document;
    ComPtr<IStream> stream;
    if (Failed(_XCreateStreamOnHGBL(MakeBlock(), 1, stream.Out()))) return document;
    _XDOMParse(document.Out(), stream.Get(), kAllParseOptions, 0, 0, 0);
    return document;
}

ComPtr<IStorage> EntryBytes::OpenStorage() const {
    ComPtr<IStorage> storage;
    HGBL block = MakeBlock();
    _XStgOpenStorageOnHGBL2(&block, 1, storage.Out());
    return storage;
}

}  // namespace vexpa_tool
