// runtime/com/Storage.h - a storage of a compound file, for reading.
#ifndef VEXPA_RUNTIME_COM_STORAGE_H_
#define VEXPA_RUNTIME_COM_STORAGE_H_

#include <gsf/gsf-infile.h>

#include <memory>
#include <string>

#include "runtime/com/ComObject.h"
#include "runtime/com/CompoundFile.h"
#include "runtime/com/StorageElements.h"

namespace vexpa_runtime {

// Open modes and exclusions are ignored: everything is open for reading, to anybody, and
// whatever would write is refused when it is called.
class Storage final : public ComObject<IStorage, IID_IStorage> {
public:
    // `name` is empty for the root, which has none of its own.
    Storage(std::shared_ptr<const CompoundFile> file, GsfPtr<GsfInfile> storage, std::u16string name);

    HRESULT OpenStream(const char16_t* name, void*, std::uint32_t, std::uint32_t,
                       IStream** out) override;
    HRESULT OpenStorage(const char16_t* name, IStorage*, std::uint32_t, char16_t**, std::uint32_t,
                        IStorage** out) override;
    HRESULT EnumElements(std::uint32_t, void*, std::uint32_t, IEnumSTATSTG** out) override;
    HRESULT Stat(STATSTG* stat, std::uint32_t flags) override;
    // Nothing changes, so there is nothing to commit or to take back.
    HRESULT Commit(std::uint32_t) override { return S_OK; }
    HRESULT Revert() override { return S_OK; }

    HRESULT CreateStream(const char16_t* name, std::uint32_t, std::uint32_t, std::uint32_t,
                         IStream** out) override;
    HRESULT CreateStorage(const char16_t* name, std::uint32_t, std::uint32_t, std::uint32_t,
                          IStorage** out) override;
    HRESULT CopyTo(std::uint32_t, const GUID*, char16_t**, IStorage*) override;
    HRESULT MoveElementTo(const char16_t*, IStorage*, const char16_t*, std::uint32_t) override;
    HRESULT DestroyElement(const char16_t*) override;
    HRESULT RenameElement(const char16_t*, const char16_t*) override;
    HRESULT SetElementTimes(const char16_t*, const FILETIME*, const FILETIME*,
                            const FILETIME*) override;
    HRESULT SetClass(const GUID&) override;
    HRESULT SetStateBits(std::uint32_t, std::uint32_t) override;

private:
    const std::shared_ptr<const StorageElements>& Elements();

    std::shared_ptr<const CompoundFile> file_;  // outlives storage_, which points into it
    GsfPtr<GsfInfile> storage_;
    std::u16string name_;
    std::shared_ptr<const StorageElements> elements_;  // read when first asked for
};

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_COM_STORAGE_H_
